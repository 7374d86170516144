#pragma once

#include <zt_orvex/ast/TypedViews.h>

#include <boost/optional.hpp>

#include <cstdint>

namespace zt::orvex::internal {

// The children of every kind of node, in the order in which a walk visits them.
//
// Children<KView>::visit(node, walk) calls walk(NodeView) for each child. A row lists the parts of
// a kind from first to last:
//
//   One<accessor>    a child that is always there
//   Maybe<accessor>  a child that may be absent
//   Each<accessor>   the elements of a range
//
// How a part asks is settled in these three alone.

template <NodeView (IAstView::*accessor)(std::uint64_t) const>
struct One {
    static constexpr bool IS_ALWAYS_THERE = true;

    template <typename Walk>
    static void visit(const NodeView& node, const Walk& walk) {
        walk((node.view->*accessor)(node.node));
    }
};

template <boost::optional<NodeView> (IAstView::*accessor)(std::uint64_t) const>
struct Maybe {
    static constexpr bool IS_ALWAYS_THERE = false;

    /// Asks once to see whether the child is there and again to use it. A tree that changes its
    /// answer in between has no child here.
    template <typename Walk>
    static void visit(const NodeView& node, const Walk& walk) {
        if (!isThere(node)) return;
        const boost::optional<NodeView> child = (node.view->*accessor)(node.node);
        if (child) walk(*child);
    }

private:
    static bool isThere(const NodeView& node) {
        return (node.view->*accessor)(node.node).has_value();
    }
};

template <auto accessor>
struct Each {
    static constexpr bool IS_ALWAYS_THERE = false;

    /// Asks the size anew before each element: a range that shrinks during the walk ends early.
    template <typename Walk>
    static void visit(const NodeView& node, const Walk& walk) {
        const auto range = (node.view->*accessor)(node.node);
        for (std::uint64_t i = 0; i < range.size(); ++i)
            walk(range[i]);
    }
};

template <typename... Parts>
struct InOrder {
    /// Whether there are as many children as parts, whatever the node.
    static constexpr bool IS_FIXED = (Parts::IS_ALWAYS_THERE && ...);

    template <typename Walk>
    static void visit(const NodeView& node, const Walk& walk) {
        (Parts::visit(node, walk), ...);
    }
};

struct Leaf {
    template <typename Walk>
    static void visit(const NodeView&, const Walk&) {}
};

/// The row of the kind of `View`. A kind without a row does not compile.
template <typename View>
struct Children;

// clang-format off
template <> struct Children<AnonymousFunctionView>
    : InOrder<Each<&IAstView::getAnonymousFunctionParameters>,
              One<&IAstView::getAnonymousFunctionBody>> {};
template <> struct Children<AnyExpressionView> : Leaf {};
template <> struct Children<ArgumentDeclarationView>
    : InOrder<One<&IAstView::getArgumentDeclarationName>,
              Maybe<&IAstView::getArgumentDeclarationPart1>,
              Maybe<&IAstView::getArgumentDeclarationPart2>,
              Maybe<&IAstView::getArgumentDeclarationPart3>,
              Maybe<&IAstView::getArgumentDeclarationPart4>> {};
// Deliberate: attributes first here and in ClassDefinition, last in the four other blocks.
template <> struct Children<ArgumentsBlockView>
    : InOrder<Each<&IAstView::getArgumentsBlockAttributes>,
              Each<&IAstView::getArgumentsBlockDeclarations>> {};
// Deliberate: the left side first. A walk follows the tree; evaluation starts at the right.
template <> struct Children<AssignmentStatementView>
    : InOrder<One<&IAstView::getAssignmentLhs>,
              One<&IAstView::getAssignmentRhs>> {};
template <> struct Children<AttributeView>
    : InOrder<One<&IAstView::getAttributeName>,
              Maybe<&IAstView::getAttributeValue>> {};
template <> struct Children<BareIdentifierStatementView>
    : InOrder<One<&IAstView::getBareIdentifier>> {};
template <> struct Children<BinaryOperationView>
    : InOrder<One<&IAstView::getBinaryLhs>,
              One<&IAstView::getBinaryRhs>> {};
template <> struct Children<BraceOperationView>
    : InOrder<One<&IAstView::getBraceBase>,
              Each<&IAstView::getBraceArguments>> {};
template <> struct Children<BreakStatementView> : Leaf {};
// Deliberate: the head before the body, though IAstView declares the body first.
template <> struct Children<CaseClauseView>
    : InOrder<One<&IAstView::getCaseExpression>,
              Each<&IAstView::getCaseBody>> {};
template <> struct Children<CatchClauseView>
    : InOrder<Maybe<&IAstView::getCatchIdentifier>,
              Each<&IAstView::getCatchBody>> {};
template <> struct Children<CellArrayView>
    : InOrder<Each<&IAstView::getCellArrayRows>> {};
template <> struct Children<CharacterLiteralView>
    : InOrder<Maybe<&IAstView::getCharacterLiteralPart>> {};
// Deliberate: attributes first.
template <> struct Children<ClassDefinitionView>
    : InOrder<Each<&IAstView::getClassAttributes>,
              One<&IAstView::getClassName>,
              Each<&IAstView::getClassSuperclasses>,
              Each<&IAstView::getClassMembers>> {};
template <> struct Children<ColonView> : Leaf {};
template <> struct Children<ColonOperationView>
    : InOrder<One<&IAstView::getColonStart>,
              Maybe<&IAstView::getColonStep>,
              One<&IAstView::getColonStop>> {};
template <> struct Children<CommandStatementView>
    : InOrder<One<&IAstView::getCommandTarget>,
              One<&IAstView::getCommandCallee>,
              Each<&IAstView::getCommandWords>> {};
template <> struct Children<ContinueStatementView> : Leaf {};
template <> struct Children<DiscardedExpressionView> : Leaf {};
template <> struct Children<DiscardedStatementView> : Leaf {};
template <> struct Children<DotOperationView>
    : InOrder<One<&IAstView::getDotBase>,
              One<&IAstView::getDotField>> {};
template <> struct Children<DynamicFieldOperationView>
    : InOrder<One<&IAstView::getDynamicFieldBase>,
              One<&IAstView::getDynamicFieldExpression>> {};
template <> struct Children<ElseClauseView>
    : InOrder<Each<&IAstView::getElseBody>> {};
// Deliberate: the head before the body, though IAstView declares the body first.
template <> struct Children<ElseIfClauseView>
    : InOrder<One<&IAstView::getElseIfCondition>,
              Each<&IAstView::getElseIfBody>> {};
template <> struct Children<EmptyStatementView> : Leaf {};
template <> struct Children<EndView> : Leaf {};
// Deliberate: attributes last.
template <> struct Children<EnumerationBlockView>
    : InOrder<Each<&IAstView::getEnumerationBlockMembers>,
              Each<&IAstView::getEnumerationBlockAttributes>> {};
template <> struct Children<EnumerationMemberView>
    : InOrder<One<&IAstView::getEnumerationMemberName>,
              Each<&IAstView::getEnumerationMemberArguments>> {};
template <> struct Children<EventDefinitionView>
    : InOrder<One<&IAstView::getEventName>,
              Maybe<&IAstView::getEventPart>> {};
// Deliberate: attributes last.
template <> struct Children<EventsBlockView>
    : InOrder<Each<&IAstView::getEventsBlockEvents>,
              Each<&IAstView::getEventsBlockAttributes>> {};
template <> struct Children<ExpressionStatementView>
    : InOrder<One<&IAstView::getExpressionStatementTarget>,
              One<&IAstView::getExpressionStatementExpression>> {};
template <> struct Children<FillerNodeView> : Leaf {};
template <> struct Children<ForStatementView>
    : InOrder<One<&IAstView::getForVariable>,
              One<&IAstView::getForExpression>,
              Each<&IAstView::getForBody>> {};
// Deliberate: name, then inputs, then outputs, as in both methods.
template <> struct Children<FunctionDefinitionView>
    : InOrder<One<&IAstView::getFunctionName>,
              Each<&IAstView::getFunctionInputs>,
              Each<&IAstView::getFunctionOutputs>,
              One<&IAstView::getFunctionPart>,
              Each<&IAstView::getFunctionArgumentsBlocks>,
              Each<&IAstView::getFunctionMembers>> {};
template <> struct Children<GlobalDeclarationView>
    : InOrder<Each<&IAstView::getGlobalIdentifiers>> {};
template <> struct Children<IdentifierView> : Leaf {};
template <> struct Children<IfStatementView>
    : InOrder<One<&IAstView::getIfCondition>,
              Each<&IAstView::getIfBody>,
              Each<&IAstView::getIfElseIfClauses>,
              Maybe<&IAstView::getIfElseClause>> {};
template <> struct Children<IgnoredArgumentView> : Leaf {};
template <> struct Children<ImplicitCommandStatementView>
    : InOrder<One<&IAstView::getImplicitCommandTarget>,
              Each<&IAstView::getImplicitCommandWords>> {};
// The one kind that says by kind which of two children it has.
template <> struct Children<InputParameterView> {
    static constexpr bool IS_FIXED = false;

    template <typename Walk>
    static void visit(const NodeView& node, const Walk& walk) {
        const boost::optional<NodeView> held = getHeld(InputParameterView(node));
        if (held) walk(*held);
    }

private:
    // Asks the accessor once: the kind has already told that the child is there. Where it is not
    // after all, or where the kind is any other, the parameter has no child.
    static boost::optional<NodeView> getHeld(const InputParameterView& parameter) {
        switch (parameter.getInputParameterKind()) {
        case NodeKind::Identifier: return parameter.getInputParameterIdentifier();
        case NodeKind::IgnoredArgument: return parameter.getInputParameterIgnored();
        default: return boost::none;
        }
    }
};
template <> struct Children<MatrixView>
    : InOrder<Each<&IAstView::getMatrixRows>> {};
// Deliberate: name, then inputs, then outputs.
template <> struct Children<MethodDeclarationView>
    : InOrder<One<&IAstView::getMethodName>,
              Each<&IAstView::getMethodInputs>,
              Each<&IAstView::getMethodOutputs>> {};
// Deliberate: name, then inputs, then outputs.
template <> struct Children<MethodDefinitionView>
    : InOrder<One<&IAstView::getMethodName>,
              Each<&IAstView::getMethodInputs>,
              Each<&IAstView::getMethodOutputs>,
              One<&IAstView::getMethodPart>,
              Each<&IAstView::getMethodArgumentsBlocks>,
              Each<&IAstView::getMethodMembers>> {};
// Deliberate: attributes last.
template <> struct Children<MethodsBlockView>
    : InOrder<Each<&IAstView::getMethodsBlockMethods>,
              Each<&IAstView::getMethodsBlockAttributes>> {};
template <> struct Children<MultiAssignmentStatementView>
    : InOrder<Each<&IAstView::getMultiAssignmentTargets>,
              One<&IAstView::getMultiAssignmentRhs>> {};
template <> struct Children<NamedArgumentView>
    : InOrder<One<&IAstView::getNamedArgumentName>,
              One<&IAstView::getNamedArgumentValue>> {};
template <> struct Children<NumberLiteralView> : Leaf {};
template <> struct Children<OtherwiseClauseView>
    : InOrder<Each<&IAstView::getOtherwiseBody>> {};
template <> struct Children<ParenOperationView>
    : InOrder<One<&IAstView::getParenBase>,
              Each<&IAstView::getParenArguments>> {};
template <> struct Children<ParenthesizedExpressionView>
    : InOrder<One<&IAstView::getParenthesizedInner>> {};
// Deliberate: the options after the loop variable and the loop expression.
template <> struct Children<ParforStatementView>
    : InOrder<One<&IAstView::getParforVariable>,
              One<&IAstView::getParforExpression>,
              Each<&IAstView::getParforOptions>,
              Each<&IAstView::getParforBody>> {};
template <> struct Children<PersistentDeclarationView>
    : InOrder<Each<&IAstView::getPersistentIdentifiers>> {};
template <> struct Children<PrintStatementView>
    : InOrder<One<&IAstView::getPrintedStatement>> {};
template <> struct Children<ProgramView>
    : InOrder<Each<&IAstView::getProgramNodes>> {};
// Deliberate: attributes last.
template <> struct Children<PropertiesBlockView>
    : InOrder<Each<&IAstView::getPropertiesBlockProperties>,
              Each<&IAstView::getPropertiesBlockAttributes>> {};
template <> struct Children<PropertyDefinitionView>
    : InOrder<One<&IAstView::getPropertyName>,
              Maybe<&IAstView::getPropertyPart1>,
              Maybe<&IAstView::getPropertyPart2>> {};
template <> struct Children<ReturnStatementView> : Leaf {};
template <> struct Children<RowView>
    : InOrder<Each<&IAstView::getRowExpressions>> {};
template <> struct Children<SpmdStatementView>
    : InOrder<Each<&IAstView::getSpmdOptions>,
              Each<&IAstView::getSpmdBody>> {};
template <> struct Children<StringLiteralView>
    : InOrder<Maybe<&IAstView::getStringLiteralPart>> {};
template <> struct Children<SwitchStatementView>
    : InOrder<One<&IAstView::getSwitchSubject>,
              Each<&IAstView::getSwitchCases>,
              Maybe<&IAstView::getSwitchOtherwise>> {};
// Deliberate: the body before the catch clause, though IAstView declares the clause first.
template <> struct Children<TryStatementView>
    : InOrder<Each<&IAstView::getTryBody>,
              Maybe<&IAstView::getTryCatch>> {};
template <> struct Children<UnaryOperationView>
    : InOrder<One<&IAstView::getUnaryOperand>> {};
template <> struct Children<ValidationSpecificationView>
    : InOrder<Each<&IAstView::getValidationFirstExpressions>,
              Maybe<&IAstView::getValidationPart>,
              Each<&IAstView::getValidationSecondExpressions>> {};
template <> struct Children<WhileStatementView>
    : InOrder<One<&IAstView::getWhileCondition>,
              Each<&IAstView::getWhileBody>> {};
// clang-format on

} // namespace zt::orvex::internal
