#pragma once

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/RangeViews.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ostrel {

/// Where to begin with a tree of one's own: every operation of `IAstView` with a default, so that a
/// tree overrides only what its nodes have.
///
/// An operation that is asked and not overridden throws std::logic_error with its name; those that
/// nobody asks answer 0. Three defaults are useful as they are: every symbol is a variable, the two
/// pseudo nodes have the two highest handles, and the ranges of all sixteen families lead to
/// `rangeElement` and `rangeSize`, the only two to override where all ranges are kept alike.
///
///     class MyTree : public ostrel::BasicAstView {
///         NodeKind getNodeKind(std::uint64_t node) const override { ... }
///         NodeView getAssignmentLhs(std::uint64_t node) const override { ... }
///     };
///
/// This header needs nothing of the other examples: copy it.
class BasicAstView : public zt::orvex::IAstView {
public:
    // Symbols
    bool isVariableSymbol(std::uint64_t) const override { return true; }

    // The view as a whole
    zt::orvex::NodeView getEntryNode() const override { return {UINT64_MAX - 1, this}; }
    zt::orvex::NodeView getExitNode() const override { return {UINT64_MAX, this}; }

    // Not settled
    std::uint64_t reservedOperation4() const override { return 0; }
    std::uint64_t reservedOperation5() const override { return 0; }

    // AnonymousFunction
    zt::orvex::InputParameterRangeView
    getAnonymousFunctionParameters(std::uint64_t) const override {
        missing("getAnonymousFunctionParameters");
    }
    zt::orvex::NodeView getAnonymousFunctionBody(std::uint64_t) const override {
        missing("getAnonymousFunctionBody");
    }

    // Range of ArgumentsBlock
    zt::orvex::NodeView getArgumentsBlockRangeElement(std::uint64_t index, std::uint64_t first,
                                                      std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getArgumentsBlockRangeSize(std::uint64_t first,
                                             std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // ArgumentsBlock
    zt::orvex::AttributeRangeView getArgumentsBlockAttributes(std::uint64_t) const override {
        missing("getArgumentsBlockAttributes");
    }
    zt::orvex::ArgumentDeclarationRangeView
    getArgumentsBlockDeclarations(std::uint64_t) const override {
        missing("getArgumentsBlockDeclarations");
    }

    // Range of ArgumentDeclaration
    zt::orvex::NodeView getArgumentDeclarationRangeElement(std::uint64_t index, std::uint64_t first,
                                                           std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getArgumentDeclarationRangeSize(std::uint64_t first,
                                                  std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // ArgumentDeclaration
    zt::orvex::NodeView getArgumentDeclarationName(std::uint64_t) const override {
        missing("getArgumentDeclarationName");
    }
    boost::optional<zt::orvex::NodeView> getArgumentDeclarationPart1(std::uint64_t) const override {
        missing("getArgumentDeclarationPart1");
    }
    boost::optional<zt::orvex::NodeView> getArgumentDeclarationPart2(std::uint64_t) const override {
        missing("getArgumentDeclarationPart2");
    }
    boost::optional<zt::orvex::NodeView> getArgumentDeclarationPart3(std::uint64_t) const override {
        missing("getArgumentDeclarationPart3");
    }
    boost::optional<zt::orvex::NodeView> getArgumentDeclarationPart4(std::uint64_t) const override {
        missing("getArgumentDeclarationPart4");
    }

    // AssignmentStatement
    zt::orvex::NodeView getAssignmentLhs(std::uint64_t) const override {
        missing("getAssignmentLhs");
    }
    zt::orvex::NodeView getAssignmentRhs(std::uint64_t) const override {
        missing("getAssignmentRhs");
    }

    // Range of Attribute
    zt::orvex::NodeView getAttributeRangeElement(std::uint64_t index, std::uint64_t first,
                                                 std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getAttributeRangeSize(std::uint64_t first, std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // Attribute
    zt::orvex::NodeView getAttributeName(std::uint64_t) const override {
        missing("getAttributeName");
    }
    boost::optional<zt::orvex::NodeView> getAttributeValue(std::uint64_t) const override {
        missing("getAttributeValue");
    }

    // Not settled
    std::uint64_t getAttributeExtra(std::uint64_t) const override { return 0; }

    // BareIdentifierStatement
    zt::orvex::NodeView getBareIdentifier(std::uint64_t) const override {
        missing("getBareIdentifier");
    }

    // Not settled
    std::uint64_t getBareStatementExtra(std::uint64_t) const override { return 0; }

    // BinaryOperation
    zt::orvex::BinaryOperator getBinaryOperator(std::uint64_t) const override {
        missing("getBinaryOperator");
    }
    zt::orvex::NodeView getBinaryLhs(std::uint64_t) const override { missing("getBinaryLhs"); }
    zt::orvex::NodeView getBinaryRhs(std::uint64_t) const override { missing("getBinaryRhs"); }

    // BraceOperation
    zt::orvex::NodeView getBraceBase(std::uint64_t) const override { missing("getBraceBase"); }
    zt::orvex::ExpressionRangeView getBraceArguments(std::uint64_t) const override {
        missing("getBraceArguments");
    }

    // Range of CaseClause
    zt::orvex::NodeView getCaseClauseRangeElement(std::uint64_t index, std::uint64_t first,
                                                  std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getCaseClauseRangeSize(std::uint64_t first, std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // CaseClause
    zt::orvex::StatementRangeView getCaseBody(std::uint64_t) const override {
        missing("getCaseBody");
    }
    zt::orvex::NodeView getCaseExpression(std::uint64_t) const override {
        missing("getCaseExpression");
    }

    // CatchClause
    boost::optional<zt::orvex::NodeView> getCatchIdentifier(std::uint64_t) const override {
        missing("getCatchIdentifier");
    }
    zt::orvex::StatementRangeView getCatchBody(std::uint64_t) const override {
        missing("getCatchBody");
    }

    // Range of command words
    zt::orvex::NodeView getCommandWordRangeElement(std::uint64_t index, std::uint64_t first,
                                                   std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getCommandWordRangeSize(std::uint64_t first,
                                          std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // Not settled
    std::uint64_t getCharacterLiteralText(std::uint64_t) const override { return 0; }

    // CharacterLiteral
    boost::optional<zt::orvex::NodeView> getCharacterLiteralPart(std::uint64_t) const override {
        missing("getCharacterLiteralPart");
    }

    // CellArray
    zt::orvex::RowRangeView getCellArrayRows(std::uint64_t) const override {
        missing("getCellArrayRows");
    }

    // ClassDefinition
    zt::orvex::AttributeRangeView getClassAttributes(std::uint64_t) const override {
        missing("getClassAttributes");
    }
    zt::orvex::NodeView getClassName(std::uint64_t) const override { missing("getClassName"); }
    zt::orvex::IdentifierRangeView getClassSuperclasses(std::uint64_t) const override {
        missing("getClassSuperclasses");
    }
    zt::orvex::NodeRangeView getClassMembers(std::uint64_t) const override {
        missing("getClassMembers");
    }

    // ColonOperation
    zt::orvex::NodeView getColonStart(std::uint64_t) const override { missing("getColonStart"); }
    boost::optional<zt::orvex::NodeView> getColonStep(std::uint64_t) const override {
        missing("getColonStep");
    }
    zt::orvex::NodeView getColonStop(std::uint64_t) const override { missing("getColonStop"); }

    // CommandStatement
    zt::orvex::NodeView getCommandTarget(std::uint64_t) const override {
        missing("getCommandTarget");
    }
    zt::orvex::NodeView getCommandCallee(std::uint64_t) const override {
        missing("getCommandCallee");
    }
    zt::orvex::CommandWordRangeView getCommandWords(std::uint64_t) const override {
        missing("getCommandWords");
    }

    // DotOperation
    zt::orvex::NodeView getDotBase(std::uint64_t) const override { missing("getDotBase"); }
    zt::orvex::NodeView getDotField(std::uint64_t) const override { missing("getDotField"); }

    // DynamicFieldOperation
    zt::orvex::NodeView getDynamicFieldBase(std::uint64_t) const override {
        missing("getDynamicFieldBase");
    }
    zt::orvex::NodeView getDynamicFieldExpression(std::uint64_t) const override {
        missing("getDynamicFieldExpression");
    }

    // ElseClause
    zt::orvex::StatementRangeView getElseBody(std::uint64_t) const override {
        missing("getElseBody");
    }

    // Range of ElseIfClause
    zt::orvex::NodeView getElseIfClauseRangeElement(std::uint64_t index, std::uint64_t first,
                                                    std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getElseIfClauseRangeSize(std::uint64_t first,
                                           std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // ElseIfClause
    zt::orvex::StatementRangeView getElseIfBody(std::uint64_t) const override {
        missing("getElseIfBody");
    }
    zt::orvex::NodeView getElseIfCondition(std::uint64_t) const override {
        missing("getElseIfCondition");
    }

    // EnumerationBlock
    zt::orvex::AttributeRangeView getEnumerationBlockAttributes(std::uint64_t) const override {
        missing("getEnumerationBlockAttributes");
    }
    zt::orvex::EnumerationMemberRangeView getEnumerationBlockMembers(std::uint64_t) const override {
        missing("getEnumerationBlockMembers");
    }

    // Range of EnumerationMember
    zt::orvex::NodeView getEnumerationMemberRangeElement(std::uint64_t index, std::uint64_t first,
                                                         std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getEnumerationMemberRangeSize(std::uint64_t first,
                                                std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // EnumerationMember
    zt::orvex::NodeView getEnumerationMemberName(std::uint64_t) const override {
        missing("getEnumerationMemberName");
    }
    zt::orvex::ExpressionRangeView getEnumerationMemberArguments(std::uint64_t) const override {
        missing("getEnumerationMemberArguments");
    }

    // Range of expressions
    zt::orvex::NodeView getExpressionRangeElement(std::uint64_t index, std::uint64_t first,
                                                  std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getExpressionRangeSize(std::uint64_t first, std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // ExpressionStatement
    zt::orvex::NodeView getExpressionStatementTarget(std::uint64_t) const override {
        missing("getExpressionStatementTarget");
    }
    zt::orvex::NodeView getExpressionStatementExpression(std::uint64_t) const override {
        missing("getExpressionStatementExpression");
    }

    // Range of EventDefinition
    zt::orvex::NodeView getEventDefinitionRangeElement(std::uint64_t index, std::uint64_t first,
                                                       std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getEventDefinitionRangeSize(std::uint64_t first,
                                              std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // EventsBlock
    zt::orvex::AttributeRangeView getEventsBlockAttributes(std::uint64_t) const override {
        missing("getEventsBlockAttributes");
    }
    zt::orvex::EventDefinitionRangeView getEventsBlockEvents(std::uint64_t) const override {
        missing("getEventsBlockEvents");
    }

    // EventDefinition
    zt::orvex::NodeView getEventName(std::uint64_t) const override { missing("getEventName"); }
    boost::optional<zt::orvex::NodeView> getEventPart(std::uint64_t) const override {
        missing("getEventPart");
    }

    // Not settled
    std::uint64_t getFillerExtra(std::uint64_t) const override { return 0; }

    // ForStatement
    zt::orvex::NodeView getForVariable(std::uint64_t) const override { missing("getForVariable"); }
    zt::orvex::NodeView getForExpression(std::uint64_t) const override {
        missing("getForExpression");
    }
    zt::orvex::StatementRangeView getForBody(std::uint64_t) const override {
        missing("getForBody");
    }

    // FunctionDefinition
    zt::orvex::IdentifierRangeView getFunctionOutputs(std::uint64_t) const override {
        missing("getFunctionOutputs");
    }
    zt::orvex::NodeView getFunctionName(std::uint64_t) const override {
        missing("getFunctionName");
    }
    zt::orvex::InputParameterRangeView getFunctionInputs(std::uint64_t) const override {
        missing("getFunctionInputs");
    }
    zt::orvex::NodeView getFunctionPart(std::uint64_t) const override {
        missing("getFunctionPart");
    }
    zt::orvex::ArgumentsBlockRangeView getFunctionArgumentsBlocks(std::uint64_t) const override {
        missing("getFunctionArgumentsBlocks");
    }
    zt::orvex::NodeRangeView getFunctionMembers(std::uint64_t) const override {
        missing("getFunctionMembers");
    }

    // GlobalDeclaration
    zt::orvex::IdentifierRangeView getGlobalIdentifiers(std::uint64_t) const override {
        missing("getGlobalIdentifiers");
    }

    // Range of Identifier
    zt::orvex::NodeView getIdentifierRangeElement(std::uint64_t index, std::uint64_t first,
                                                  std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getIdentifierRangeSize(std::uint64_t first, std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // Identifier
    std::u16string_view getIdentifierName(std::uint64_t) const override {
        missing("getIdentifierName");
    }
    zt::orvex::SymbolView getIdentifierSymbol(std::uint64_t) const override {
        missing("getIdentifierSymbol");
    }

    // IfStatement
    zt::orvex::NodeView getIfCondition(std::uint64_t) const override { missing("getIfCondition"); }
    zt::orvex::StatementRangeView getIfBody(std::uint64_t) const override { missing("getIfBody"); }
    zt::orvex::ElseIfClauseRangeView getIfElseIfClauses(std::uint64_t) const override {
        missing("getIfElseIfClauses");
    }
    boost::optional<zt::orvex::NodeView> getIfElseClause(std::uint64_t) const override {
        missing("getIfElseClause");
    }

    // ImplicitCommandStatement
    zt::orvex::NodeView getImplicitCommandTarget(std::uint64_t) const override {
        missing("getImplicitCommandTarget");
    }
    zt::orvex::CommandWordRangeView getImplicitCommandWords(std::uint64_t) const override {
        missing("getImplicitCommandWords");
    }

    // Range of InputParameter
    zt::orvex::NodeView getInputParameterRangeElement(std::uint64_t index, std::uint64_t first,
                                                      std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getInputParameterRangeSize(std::uint64_t first,
                                             std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // InputParameter
    zt::orvex::NodeKind getInputParameterKind(std::uint64_t) const override {
        missing("getInputParameterKind");
    }
    boost::optional<zt::orvex::NodeView> getInputParameterIdentifier(std::uint64_t) const override {
        missing("getInputParameterIdentifier");
    }
    boost::optional<zt::orvex::NodeView> getInputParameterIgnored(std::uint64_t) const override {
        missing("getInputParameterIgnored");
    }

    // Matrix
    zt::orvex::RowRangeView getMatrixRows(std::uint64_t) const override {
        missing("getMatrixRows");
    }

    // MethodDefinition
    zt::orvex::NodeView getMethodPart(std::uint64_t) const override { missing("getMethodPart"); }
    zt::orvex::ArgumentsBlockRangeView getMethodArgumentsBlocks(std::uint64_t) const override {
        missing("getMethodArgumentsBlocks");
    }
    zt::orvex::NodeRangeView getMethodMembers(std::uint64_t) const override {
        missing("getMethodMembers");
    }

    // MethodsBlock
    zt::orvex::AttributeRangeView getMethodsBlockAttributes(std::uint64_t) const override {
        missing("getMethodsBlockAttributes");
    }
    zt::orvex::MethodRangeView getMethodsBlockMethods(std::uint64_t) const override {
        missing("getMethodsBlockMethods");
    }

    // MethodDeclaration and MethodDefinition
    zt::orvex::IdentifierRangeView getMethodOutputs(std::uint64_t) const override {
        missing("getMethodOutputs");
    }
    zt::orvex::NodeView getMethodName(std::uint64_t) const override { missing("getMethodName"); }
    zt::orvex::InputParameterRangeView getMethodInputs(std::uint64_t) const override {
        missing("getMethodInputs");
    }

    // Range of methods
    zt::orvex::NodeView getMethodRangeElement(std::uint64_t index, std::uint64_t first,
                                              std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getMethodRangeSize(std::uint64_t first, std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // MultiAssignmentStatement
    zt::orvex::ExpressionRangeView getMultiAssignmentTargets(std::uint64_t) const override {
        missing("getMultiAssignmentTargets");
    }
    zt::orvex::NodeView getMultiAssignmentRhs(std::uint64_t) const override {
        missing("getMultiAssignmentRhs");
    }

    // NamedArgument
    zt::orvex::NodeView getNamedArgumentName(std::uint64_t) const override {
        missing("getNamedArgumentName");
    }
    zt::orvex::NodeView getNamedArgumentValue(std::uint64_t) const override {
        missing("getNamedArgumentValue");
    }

    // Not settled
    std::uint64_t getNamedArgumentExtra(std::uint64_t) const override { return 0; }

    // Every node
    zt::orvex::NodeKind getNodeKind(std::uint64_t) const override { missing("getNodeKind"); }

    // Not settled
    std::uint64_t getNodeExtra(std::uint64_t) const override { return 0; }

    // Range of nodes
    zt::orvex::NodeView getNodeRangeElement(std::uint64_t index, std::uint64_t first,
                                            std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getNodeRangeSize(std::uint64_t first, std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // Not settled
    std::uint64_t getNumberOperation1(std::uint64_t) const override { return 0; }
    std::uint64_t getNumberOperation2(std::uint64_t) const override { return 0; }
    std::uint64_t getNumberOperation3(std::uint64_t) const override { return 0; }
    std::uint64_t getNumberOperation4(std::uint64_t) const override { return 0; }
    std::uint64_t getNumberOperation5(std::uint64_t) const override { return 0; }
    std::uint64_t getNumberOperation6(std::uint64_t) const override { return 0; }

    // OtherwiseClause
    zt::orvex::StatementRangeView getOtherwiseBody(std::uint64_t) const override {
        missing("getOtherwiseBody");
    }

    // ParenOperation
    zt::orvex::NodeView getParenBase(std::uint64_t) const override { missing("getParenBase"); }
    zt::orvex::ExpressionRangeView getParenArguments(std::uint64_t) const override {
        missing("getParenArguments");
    }

    // ParenthesizedExpression
    zt::orvex::NodeView getParenthesizedInner(std::uint64_t) const override {
        missing("getParenthesizedInner");
    }

    // ParforStatement
    zt::orvex::ExpressionRangeView getParforOptions(std::uint64_t) const override {
        missing("getParforOptions");
    }
    zt::orvex::NodeView getParforVariable(std::uint64_t) const override {
        missing("getParforVariable");
    }
    zt::orvex::NodeView getParforExpression(std::uint64_t) const override {
        missing("getParforExpression");
    }
    zt::orvex::StatementRangeView getParforBody(std::uint64_t) const override {
        missing("getParforBody");
    }

    // PersistentDeclaration
    zt::orvex::IdentifierRangeView getPersistentIdentifiers(std::uint64_t) const override {
        missing("getPersistentIdentifiers");
    }

    // PrintStatement
    zt::orvex::NodeView getPrintedStatement(std::uint64_t) const override {
        missing("getPrintedStatement");
    }

    // Program
    zt::orvex::NodeRangeView getProgramNodes(std::uint64_t) const override {
        missing("getProgramNodes");
    }

    // Range of PropertyDefinition
    zt::orvex::NodeView getPropertyDefinitionRangeElement(std::uint64_t index, std::uint64_t first,
                                                          std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getPropertyDefinitionRangeSize(std::uint64_t first,
                                                 std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // PropertyDefinition
    zt::orvex::NodeView getPropertyName(std::uint64_t) const override {
        missing("getPropertyName");
    }
    boost::optional<zt::orvex::NodeView> getPropertyPart1(std::uint64_t) const override {
        missing("getPropertyPart1");
    }
    boost::optional<zt::orvex::NodeView> getPropertyPart2(std::uint64_t) const override {
        missing("getPropertyPart2");
    }

    // PropertiesBlock
    zt::orvex::AttributeRangeView getPropertiesBlockAttributes(std::uint64_t) const override {
        missing("getPropertiesBlockAttributes");
    }
    zt::orvex::PropertyDefinitionRangeView
    getPropertiesBlockProperties(std::uint64_t) const override {
        missing("getPropertiesBlockProperties");
    }

    // Range of Row
    zt::orvex::NodeView getRowRangeElement(std::uint64_t index, std::uint64_t first,
                                           std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getRowRangeSize(std::uint64_t first, std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // Row
    zt::orvex::ExpressionRangeView getRowExpressions(std::uint64_t) const override {
        missing("getRowExpressions");
    }

    // SpmdStatement
    zt::orvex::ExpressionRangeView getSpmdOptions(std::uint64_t) const override {
        missing("getSpmdOptions");
    }
    zt::orvex::StatementRangeView getSpmdBody(std::uint64_t) const override {
        missing("getSpmdBody");
    }

    // Range of statements
    zt::orvex::NodeView getStatementRangeElement(std::uint64_t index, std::uint64_t first,
                                                 std::uint64_t second) const override {
        return rangeElement(index, first, second);
    }
    std::uint64_t getStatementRangeSize(std::uint64_t first, std::uint64_t second) const override {
        return rangeSize(first, second);
    }

    // Not settled
    std::uint64_t getStringLiteralText(std::uint64_t) const override { return 0; }

    // StringLiteral
    boost::optional<zt::orvex::NodeView> getStringLiteralPart(std::uint64_t) const override {
        missing("getStringLiteralPart");
    }

    // SwitchStatement
    zt::orvex::NodeView getSwitchSubject(std::uint64_t) const override {
        missing("getSwitchSubject");
    }
    zt::orvex::CaseClauseRangeView getSwitchCases(std::uint64_t) const override {
        missing("getSwitchCases");
    }
    boost::optional<zt::orvex::NodeView> getSwitchOtherwise(std::uint64_t) const override {
        missing("getSwitchOtherwise");
    }

    // TryStatement
    boost::optional<zt::orvex::NodeView> getTryCatch(std::uint64_t) const override {
        missing("getTryCatch");
    }
    zt::orvex::StatementRangeView getTryBody(std::uint64_t) const override {
        missing("getTryBody");
    }

    // UnaryOperation
    zt::orvex::UnaryOperator getUnaryOperator(std::uint64_t) const override {
        missing("getUnaryOperator");
    }
    zt::orvex::NodeView getUnaryOperand(std::uint64_t) const override {
        missing("getUnaryOperand");
    }

    // ValidationSpecification
    zt::orvex::ExpressionRangeView getValidationFirstExpressions(std::uint64_t) const override {
        missing("getValidationFirstExpressions");
    }
    boost::optional<zt::orvex::NodeView> getValidationPart(std::uint64_t) const override {
        missing("getValidationPart");
    }
    zt::orvex::ExpressionRangeView getValidationSecondExpressions(std::uint64_t) const override {
        missing("getValidationSecondExpressions");
    }

    // WhileStatement
    zt::orvex::NodeView getWhileCondition(std::uint64_t) const override {
        missing("getWhileCondition");
    }
    zt::orvex::StatementRangeView getWhileBody(std::uint64_t) const override {
        missing("getWhileBody");
    }

protected:
    /// Element `index` of the range with these two words, whatever its family.
    virtual zt::orvex::NodeView rangeElement(std::uint64_t, std::uint64_t, std::uint64_t) const {
        missing("rangeElement");
    }
    /// How many elements the range with these two words has, whatever its family.
    virtual std::uint64_t rangeSize(std::uint64_t, std::uint64_t) const { missing("rangeSize"); }

    [[noreturn]] static void missing(const char* operation) {
        throw std::logic_error(std::string(operation) +
                               " was asked, and this tree does not override it");
    }
};

} // namespace ostrel
