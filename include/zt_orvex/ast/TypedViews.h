#pragma once

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/RangeViews.h>

#include <boost/optional.hpp>

#include <string_view>
#include <type_traits>

namespace zt::orvex {

/// What one kind of node can be asked beyond its kind; nothing, for the kinds without a row below.
///
/// Each accessor forwards to the `IAstView` operation of its name. Use the typed views instead.
template <NodeKind kind>
class Accessors : public NodeView {};

template <>
class Accessors<NodeKind::AnonymousFunction> : public NodeView {
public:
    InputParameterRangeView getAnonymousFunctionParameters() const {
        return view->getAnonymousFunctionParameters(node);
    }
    NodeView getAnonymousFunctionBody() const { return view->getAnonymousFunctionBody(node); }
};

template <>
class Accessors<NodeKind::ArgumentDeclaration> : public NodeView {
public:
    NodeView getArgumentDeclarationName() const { return view->getArgumentDeclarationName(node); }
    boost::optional<NodeView> getArgumentDeclarationPart1() const {
        return view->getArgumentDeclarationPart1(node);
    }
    boost::optional<NodeView> getArgumentDeclarationPart2() const {
        return view->getArgumentDeclarationPart2(node);
    }
    boost::optional<NodeView> getArgumentDeclarationPart3() const {
        return view->getArgumentDeclarationPart3(node);
    }
    boost::optional<NodeView> getArgumentDeclarationPart4() const {
        return view->getArgumentDeclarationPart4(node);
    }
};

template <>
class Accessors<NodeKind::ArgumentsBlock> : public NodeView {
public:
    AttributeRangeView getArgumentsBlockAttributes() const {
        return view->getArgumentsBlockAttributes(node);
    }
    ArgumentDeclarationRangeView getArgumentsBlockDeclarations() const {
        return view->getArgumentsBlockDeclarations(node);
    }
};

template <>
class Accessors<NodeKind::AssignmentStatement> : public NodeView {
public:
    NodeView getAssignmentLhs() const { return view->getAssignmentLhs(node); }
    NodeView getAssignmentRhs() const { return view->getAssignmentRhs(node); }
};

template <>
class Accessors<NodeKind::Attribute> : public NodeView {
public:
    NodeView getAttributeName() const { return view->getAttributeName(node); }
    boost::optional<NodeView> getAttributeValue() const { return view->getAttributeValue(node); }
};

template <>
class Accessors<NodeKind::BareIdentifierStatement> : public NodeView {
public:
    NodeView getBareIdentifier() const { return view->getBareIdentifier(node); }
};

template <>
class Accessors<NodeKind::BinaryOperation> : public NodeView {
public:
    BinaryOperator getBinaryOperator() const { return view->getBinaryOperator(node); }
    NodeView getBinaryLhs() const { return view->getBinaryLhs(node); }
    NodeView getBinaryRhs() const { return view->getBinaryRhs(node); }
};

template <>
class Accessors<NodeKind::BraceOperation> : public NodeView {
public:
    NodeView getBraceBase() const { return view->getBraceBase(node); }
    ExpressionRangeView getBraceArguments() const { return view->getBraceArguments(node); }
};

template <>
class Accessors<NodeKind::CaseClause> : public NodeView {
public:
    StatementRangeView getCaseBody() const { return view->getCaseBody(node); }
    NodeView getCaseExpression() const { return view->getCaseExpression(node); }
};

template <>
class Accessors<NodeKind::CatchClause> : public NodeView {
public:
    boost::optional<NodeView> getCatchIdentifier() const { return view->getCatchIdentifier(node); }
    StatementRangeView getCatchBody() const { return view->getCatchBody(node); }
};

template <>
class Accessors<NodeKind::CellArray> : public NodeView {
public:
    RowRangeView getCellArrayRows() const { return view->getCellArrayRows(node); }
};

template <>
class Accessors<NodeKind::CharacterLiteral> : public NodeView {
public:
    boost::optional<NodeView> getCharacterLiteralPart() const {
        return view->getCharacterLiteralPart(node);
    }
};

template <>
class Accessors<NodeKind::ClassDefinition> : public NodeView {
public:
    AttributeRangeView getClassAttributes() const { return view->getClassAttributes(node); }
    NodeView getClassName() const { return view->getClassName(node); }
    IdentifierRangeView getClassSuperclasses() const { return view->getClassSuperclasses(node); }
    NodeRangeView getClassMembers() const { return view->getClassMembers(node); }
};

template <>
class Accessors<NodeKind::ColonOperation> : public NodeView {
public:
    NodeView getColonStart() const { return view->getColonStart(node); }
    boost::optional<NodeView> getColonStep() const { return view->getColonStep(node); }
    NodeView getColonStop() const { return view->getColonStop(node); }
};

template <>
class Accessors<NodeKind::CommandStatement> : public NodeView {
public:
    NodeView getCommandTarget() const { return view->getCommandTarget(node); }
    NodeView getCommandCallee() const { return view->getCommandCallee(node); }
    CommandWordRangeView getCommandWords() const { return view->getCommandWords(node); }
};

template <>
class Accessors<NodeKind::DotOperation> : public NodeView {
public:
    NodeView getDotBase() const { return view->getDotBase(node); }
    NodeView getDotField() const { return view->getDotField(node); }
};

template <>
class Accessors<NodeKind::DynamicFieldOperation> : public NodeView {
public:
    NodeView getDynamicFieldBase() const { return view->getDynamicFieldBase(node); }
    NodeView getDynamicFieldExpression() const { return view->getDynamicFieldExpression(node); }
};

template <>
class Accessors<NodeKind::ElseClause> : public NodeView {
public:
    StatementRangeView getElseBody() const { return view->getElseBody(node); }
};

template <>
class Accessors<NodeKind::ElseIfClause> : public NodeView {
public:
    StatementRangeView getElseIfBody() const { return view->getElseIfBody(node); }
    NodeView getElseIfCondition() const { return view->getElseIfCondition(node); }
};

template <>
class Accessors<NodeKind::EnumerationBlock> : public NodeView {
public:
    AttributeRangeView getEnumerationBlockAttributes() const {
        return view->getEnumerationBlockAttributes(node);
    }
    EnumerationMemberRangeView getEnumerationBlockMembers() const {
        return view->getEnumerationBlockMembers(node);
    }
};

template <>
class Accessors<NodeKind::EnumerationMember> : public NodeView {
public:
    NodeView getEnumerationMemberName() const { return view->getEnumerationMemberName(node); }
    ExpressionRangeView getEnumerationMemberArguments() const {
        return view->getEnumerationMemberArguments(node);
    }
};

template <>
class Accessors<NodeKind::EventDefinition> : public NodeView {
public:
    NodeView getEventName() const { return view->getEventName(node); }
    boost::optional<NodeView> getEventPart() const { return view->getEventPart(node); }
};

template <>
class Accessors<NodeKind::EventsBlock> : public NodeView {
public:
    AttributeRangeView getEventsBlockAttributes() const {
        return view->getEventsBlockAttributes(node);
    }
    EventDefinitionRangeView getEventsBlockEvents() const {
        return view->getEventsBlockEvents(node);
    }
};

template <>
class Accessors<NodeKind::ExpressionStatement> : public NodeView {
public:
    NodeView getExpressionStatementTarget() const {
        return view->getExpressionStatementTarget(node);
    }
    NodeView getExpressionStatementExpression() const {
        return view->getExpressionStatementExpression(node);
    }
};

template <>
class Accessors<NodeKind::ForStatement> : public NodeView {
public:
    NodeView getForVariable() const { return view->getForVariable(node); }
    NodeView getForExpression() const { return view->getForExpression(node); }
    StatementRangeView getForBody() const { return view->getForBody(node); }
};

template <>
class Accessors<NodeKind::FunctionDefinition> : public NodeView {
public:
    IdentifierRangeView getFunctionOutputs() const { return view->getFunctionOutputs(node); }
    NodeView getFunctionName() const { return view->getFunctionName(node); }
    InputParameterRangeView getFunctionInputs() const { return view->getFunctionInputs(node); }
    NodeView getFunctionPart() const { return view->getFunctionPart(node); }
    ArgumentsBlockRangeView getFunctionArgumentsBlocks() const {
        return view->getFunctionArgumentsBlocks(node);
    }
    NodeRangeView getFunctionMembers() const { return view->getFunctionMembers(node); }
};

template <>
class Accessors<NodeKind::GlobalDeclaration> : public NodeView {
public:
    IdentifierRangeView getGlobalIdentifiers() const { return view->getGlobalIdentifiers(node); }
};

template <>
class Accessors<NodeKind::Identifier> : public NodeView {
public:
    std::u16string_view getIdentifierName() const { return view->getIdentifierName(node); }
    SymbolView getIdentifierSymbol() const { return view->getIdentifierSymbol(node); }
};

template <>
class Accessors<NodeKind::IfStatement> : public NodeView {
public:
    NodeView getIfCondition() const { return view->getIfCondition(node); }
    StatementRangeView getIfBody() const { return view->getIfBody(node); }
    ElseIfClauseRangeView getIfElseIfClauses() const { return view->getIfElseIfClauses(node); }
    boost::optional<NodeView> getIfElseClause() const { return view->getIfElseClause(node); }
};

template <>
class Accessors<NodeKind::ImplicitCommandStatement> : public NodeView {
public:
    NodeView getImplicitCommandTarget() const { return view->getImplicitCommandTarget(node); }
    CommandWordRangeView getImplicitCommandWords() const {
        return view->getImplicitCommandWords(node);
    }
};

template <>
class Accessors<NodeKind::InputParameter> : public NodeView {
public:
    NodeKind getInputParameterKind() const { return view->getInputParameterKind(node); }
    boost::optional<NodeView> getInputParameterIdentifier() const {
        return view->getInputParameterIdentifier(node);
    }
    boost::optional<NodeView> getInputParameterIgnored() const {
        return view->getInputParameterIgnored(node);
    }
};

template <>
class Accessors<NodeKind::Matrix> : public NodeView {
public:
    RowRangeView getMatrixRows() const { return view->getMatrixRows(node); }
};

template <>
class Accessors<NodeKind::MethodDeclaration> : public NodeView {
public:
    IdentifierRangeView getMethodOutputs() const { return view->getMethodOutputs(node); }
    NodeView getMethodName() const { return view->getMethodName(node); }
    InputParameterRangeView getMethodInputs() const { return view->getMethodInputs(node); }
};

template <>
class Accessors<NodeKind::MethodDefinition> : public NodeView {
public:
    NodeView getMethodPart() const { return view->getMethodPart(node); }
    ArgumentsBlockRangeView getMethodArgumentsBlocks() const {
        return view->getMethodArgumentsBlocks(node);
    }
    NodeRangeView getMethodMembers() const { return view->getMethodMembers(node); }
    IdentifierRangeView getMethodOutputs() const { return view->getMethodOutputs(node); }
    NodeView getMethodName() const { return view->getMethodName(node); }
    InputParameterRangeView getMethodInputs() const { return view->getMethodInputs(node); }
};

template <>
class Accessors<NodeKind::MethodsBlock> : public NodeView {
public:
    AttributeRangeView getMethodsBlockAttributes() const {
        return view->getMethodsBlockAttributes(node);
    }
    MethodRangeView getMethodsBlockMethods() const { return view->getMethodsBlockMethods(node); }
};

template <>
class Accessors<NodeKind::MultiAssignmentStatement> : public NodeView {
public:
    ExpressionRangeView getMultiAssignmentTargets() const {
        return view->getMultiAssignmentTargets(node);
    }
    NodeView getMultiAssignmentRhs() const { return view->getMultiAssignmentRhs(node); }
};

template <>
class Accessors<NodeKind::NamedArgument> : public NodeView {
public:
    NodeView getNamedArgumentName() const { return view->getNamedArgumentName(node); }
    NodeView getNamedArgumentValue() const { return view->getNamedArgumentValue(node); }
};

template <>
class Accessors<NodeKind::OtherwiseClause> : public NodeView {
public:
    StatementRangeView getOtherwiseBody() const { return view->getOtherwiseBody(node); }
};

template <>
class Accessors<NodeKind::ParenOperation> : public NodeView {
public:
    NodeView getParenBase() const { return view->getParenBase(node); }
    ExpressionRangeView getParenArguments() const { return view->getParenArguments(node); }
};

template <>
class Accessors<NodeKind::ParenthesizedExpression> : public NodeView {
public:
    NodeView getParenthesizedInner() const { return view->getParenthesizedInner(node); }
};

template <>
class Accessors<NodeKind::ParforStatement> : public NodeView {
public:
    ExpressionRangeView getParforOptions() const { return view->getParforOptions(node); }
    NodeView getParforVariable() const { return view->getParforVariable(node); }
    NodeView getParforExpression() const { return view->getParforExpression(node); }
    StatementRangeView getParforBody() const { return view->getParforBody(node); }
};

template <>
class Accessors<NodeKind::PersistentDeclaration> : public NodeView {
public:
    IdentifierRangeView getPersistentIdentifiers() const {
        return view->getPersistentIdentifiers(node);
    }
};

template <>
class Accessors<NodeKind::PrintStatement> : public NodeView {
public:
    NodeView getPrintedStatement() const { return view->getPrintedStatement(node); }
};

template <>
class Accessors<NodeKind::Program> : public NodeView {
public:
    NodeRangeView getProgramNodes() const { return view->getProgramNodes(node); }
};

template <>
class Accessors<NodeKind::PropertiesBlock> : public NodeView {
public:
    AttributeRangeView getPropertiesBlockAttributes() const {
        return view->getPropertiesBlockAttributes(node);
    }
    PropertyDefinitionRangeView getPropertiesBlockProperties() const {
        return view->getPropertiesBlockProperties(node);
    }
};

template <>
class Accessors<NodeKind::PropertyDefinition> : public NodeView {
public:
    NodeView getPropertyName() const { return view->getPropertyName(node); }
    boost::optional<NodeView> getPropertyPart1() const { return view->getPropertyPart1(node); }
    boost::optional<NodeView> getPropertyPart2() const { return view->getPropertyPart2(node); }
};

template <>
class Accessors<NodeKind::Row> : public NodeView {
public:
    ExpressionRangeView getRowExpressions() const { return view->getRowExpressions(node); }
};

template <>
class Accessors<NodeKind::SpmdStatement> : public NodeView {
public:
    ExpressionRangeView getSpmdOptions() const { return view->getSpmdOptions(node); }
    StatementRangeView getSpmdBody() const { return view->getSpmdBody(node); }
};

template <>
class Accessors<NodeKind::StringLiteral> : public NodeView {
public:
    boost::optional<NodeView> getStringLiteralPart() const {
        return view->getStringLiteralPart(node);
    }
};

template <>
class Accessors<NodeKind::SwitchStatement> : public NodeView {
public:
    NodeView getSwitchSubject() const { return view->getSwitchSubject(node); }
    CaseClauseRangeView getSwitchCases() const { return view->getSwitchCases(node); }
    boost::optional<NodeView> getSwitchOtherwise() const { return view->getSwitchOtherwise(node); }
};

template <>
class Accessors<NodeKind::TryStatement> : public NodeView {
public:
    boost::optional<NodeView> getTryCatch() const { return view->getTryCatch(node); }
    StatementRangeView getTryBody() const { return view->getTryBody(node); }
};

template <>
class Accessors<NodeKind::UnaryOperation> : public NodeView {
public:
    UnaryOperator getUnaryOperator() const { return view->getUnaryOperator(node); }
    NodeView getUnaryOperand() const { return view->getUnaryOperand(node); }
};

template <>
class Accessors<NodeKind::ValidationSpecification> : public NodeView {
public:
    ExpressionRangeView getValidationFirstExpressions() const {
        return view->getValidationFirstExpressions(node);
    }
    boost::optional<NodeView> getValidationPart() const { return view->getValidationPart(node); }
    ExpressionRangeView getValidationSecondExpressions() const {
        return view->getValidationSecondExpressions(node);
    }
};

template <>
class Accessors<NodeKind::WhileStatement> : public NodeView {
public:
    NodeView getWhileCondition() const { return view->getWhileCondition(node); }
    StatementRangeView getWhileBody() const { return view->getWhileBody(node); }
};

// A typed view for each kind: IdentifierView, ForStatementView and so on.
//
// A typed view is a NodeView that is known to have its kind, and gives that kind's accessors. It
// adds no data. It is made from a NodeView without a check, by whoever has just asked for the kind:
//
//     if (node.getKind() == NodeKind::ForStatement) use(ForStatementView(node).getForBody());
#define ZT_ORVEX_NODE_KIND(Name, Class)                                                            \
    class Name##View : public Accessors<NodeKind::Name> {                                          \
    public:                                                                                        \
        static constexpr NodeKind KIND = NodeKind::Name;                                           \
        explicit Name##View(const NodeView& of) : Accessors<NodeKind::Name>{{of}} {}               \
    };                                                                                             \
    static_assert(sizeof(Name##View) == sizeof(NodeView), "a typed view adds no data");            \
    static_assert(std::is_trivially_copyable_v<Name##View>, "a typed view is a plain value");
#include <zt_orvex/ast/NodeKinds.def>

} // namespace zt::orvex
