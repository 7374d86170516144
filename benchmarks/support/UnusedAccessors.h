#pragma once

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/RangeViews.h>

#include <stdexcept>

namespace zt::orvex::benchmarks {

/// Refuses every question, so that a tree of few kinds need answer only those that it has.
class UnusedAccessors : public IAstView {
public:
    bool isVariableSymbol(std::uint64_t) const override { unused(); }
    NodeView getEntryNode() const override { unused(); }
    NodeView getExitNode() const override { unused(); }
    std::uint64_t reservedOperation4() const override { unused(); }
    std::uint64_t reservedOperation5() const override { unused(); }
    InputParameterRangeView getAnonymousFunctionParameters(std::uint64_t) const override {
        unused();
    }
    NodeView getAnonymousFunctionBody(std::uint64_t) const override { unused(); }
    NodeView getArgumentsBlockRangeElement(std::uint64_t, std::uint64_t,
                                           std::uint64_t) const override {
        unused();
    }
    std::uint64_t getArgumentsBlockRangeSize(std::uint64_t, std::uint64_t) const override {
        unused();
    }
    AttributeRangeView getArgumentsBlockAttributes(std::uint64_t) const override { unused(); }
    ArgumentDeclarationRangeView getArgumentsBlockDeclarations(std::uint64_t) const override {
        unused();
    }
    NodeView getArgumentDeclarationRangeElement(std::uint64_t, std::uint64_t,
                                                std::uint64_t) const override {
        unused();
    }
    std::uint64_t getArgumentDeclarationRangeSize(std::uint64_t, std::uint64_t) const override {
        unused();
    }
    NodeView getArgumentDeclarationName(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getArgumentDeclarationPart1(std::uint64_t) const override {
        unused();
    }
    boost::optional<NodeView> getArgumentDeclarationPart2(std::uint64_t) const override {
        unused();
    }
    boost::optional<NodeView> getArgumentDeclarationPart3(std::uint64_t) const override {
        unused();
    }
    boost::optional<NodeView> getArgumentDeclarationPart4(std::uint64_t) const override {
        unused();
    }
    NodeView getAssignmentLhs(std::uint64_t) const override { unused(); }
    NodeView getAssignmentRhs(std::uint64_t) const override { unused(); }
    NodeView getAttributeRangeElement(std::uint64_t, std::uint64_t, std::uint64_t) const override {
        unused();
    }
    std::uint64_t getAttributeRangeSize(std::uint64_t, std::uint64_t) const override { unused(); }
    NodeView getAttributeName(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getAttributeValue(std::uint64_t) const override { unused(); }
    std::uint64_t getAttributeExtra(std::uint64_t) const override { unused(); }
    NodeView getBareIdentifier(std::uint64_t) const override { unused(); }
    std::uint64_t getBareStatementExtra(std::uint64_t) const override { unused(); }
    BinaryOperator getBinaryOperator(std::uint64_t) const override { unused(); }
    NodeView getBinaryLhs(std::uint64_t) const override { unused(); }
    NodeView getBinaryRhs(std::uint64_t) const override { unused(); }
    NodeView getBraceBase(std::uint64_t) const override { unused(); }
    ExpressionRangeView getBraceArguments(std::uint64_t) const override { unused(); }
    NodeView getCaseClauseRangeElement(std::uint64_t, std::uint64_t, std::uint64_t) const override {
        unused();
    }
    std::uint64_t getCaseClauseRangeSize(std::uint64_t, std::uint64_t) const override { unused(); }
    StatementRangeView getCaseBody(std::uint64_t) const override { unused(); }
    NodeView getCaseExpression(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getCatchIdentifier(std::uint64_t) const override { unused(); }
    StatementRangeView getCatchBody(std::uint64_t) const override { unused(); }
    NodeView getCommandWordRangeElement(std::uint64_t, std::uint64_t,
                                        std::uint64_t) const override {
        unused();
    }
    std::uint64_t getCommandWordRangeSize(std::uint64_t, std::uint64_t) const override { unused(); }
    std::uint64_t getCharacterLiteralText(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getCharacterLiteralPart(std::uint64_t) const override { unused(); }
    RowRangeView getCellArrayRows(std::uint64_t) const override { unused(); }
    AttributeRangeView getClassAttributes(std::uint64_t) const override { unused(); }
    NodeView getClassName(std::uint64_t) const override { unused(); }
    IdentifierRangeView getClassSuperclasses(std::uint64_t) const override { unused(); }
    NodeRangeView getClassMembers(std::uint64_t) const override { unused(); }
    NodeView getColonStart(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getColonStep(std::uint64_t) const override { unused(); }
    NodeView getColonStop(std::uint64_t) const override { unused(); }
    NodeView getCommandTarget(std::uint64_t) const override { unused(); }
    NodeView getCommandCallee(std::uint64_t) const override { unused(); }
    CommandWordRangeView getCommandWords(std::uint64_t) const override { unused(); }
    NodeView getDotBase(std::uint64_t) const override { unused(); }
    NodeView getDotField(std::uint64_t) const override { unused(); }
    NodeView getDynamicFieldBase(std::uint64_t) const override { unused(); }
    NodeView getDynamicFieldExpression(std::uint64_t) const override { unused(); }
    StatementRangeView getElseBody(std::uint64_t) const override { unused(); }
    NodeView getElseIfClauseRangeElement(std::uint64_t, std::uint64_t,
                                         std::uint64_t) const override {
        unused();
    }
    std::uint64_t getElseIfClauseRangeSize(std::uint64_t, std::uint64_t) const override {
        unused();
    }
    StatementRangeView getElseIfBody(std::uint64_t) const override { unused(); }
    NodeView getElseIfCondition(std::uint64_t) const override { unused(); }
    AttributeRangeView getEnumerationBlockAttributes(std::uint64_t) const override { unused(); }
    EnumerationMemberRangeView getEnumerationBlockMembers(std::uint64_t) const override {
        unused();
    }
    NodeView getEnumerationMemberRangeElement(std::uint64_t, std::uint64_t,
                                              std::uint64_t) const override {
        unused();
    }
    std::uint64_t getEnumerationMemberRangeSize(std::uint64_t, std::uint64_t) const override {
        unused();
    }
    NodeView getEnumerationMemberName(std::uint64_t) const override { unused(); }
    ExpressionRangeView getEnumerationMemberArguments(std::uint64_t) const override { unused(); }
    NodeView getExpressionRangeElement(std::uint64_t, std::uint64_t, std::uint64_t) const override {
        unused();
    }
    std::uint64_t getExpressionRangeSize(std::uint64_t, std::uint64_t) const override { unused(); }
    NodeView getExpressionStatementTarget(std::uint64_t) const override { unused(); }
    NodeView getExpressionStatementExpression(std::uint64_t) const override { unused(); }
    NodeView getEventDefinitionRangeElement(std::uint64_t, std::uint64_t,
                                            std::uint64_t) const override {
        unused();
    }
    std::uint64_t getEventDefinitionRangeSize(std::uint64_t, std::uint64_t) const override {
        unused();
    }
    AttributeRangeView getEventsBlockAttributes(std::uint64_t) const override { unused(); }
    EventDefinitionRangeView getEventsBlockEvents(std::uint64_t) const override { unused(); }
    NodeView getEventName(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getEventPart(std::uint64_t) const override { unused(); }
    std::uint64_t getFillerExtra(std::uint64_t) const override { unused(); }
    NodeView getForVariable(std::uint64_t) const override { unused(); }
    NodeView getForExpression(std::uint64_t) const override { unused(); }
    StatementRangeView getForBody(std::uint64_t) const override { unused(); }
    IdentifierRangeView getFunctionOutputs(std::uint64_t) const override { unused(); }
    NodeView getFunctionName(std::uint64_t) const override { unused(); }
    InputParameterRangeView getFunctionInputs(std::uint64_t) const override { unused(); }
    NodeView getFunctionPart(std::uint64_t) const override { unused(); }
    ArgumentsBlockRangeView getFunctionArgumentsBlocks(std::uint64_t) const override { unused(); }
    NodeRangeView getFunctionMembers(std::uint64_t) const override { unused(); }
    IdentifierRangeView getGlobalIdentifiers(std::uint64_t) const override { unused(); }
    NodeView getIdentifierRangeElement(std::uint64_t, std::uint64_t, std::uint64_t) const override {
        unused();
    }
    std::uint64_t getIdentifierRangeSize(std::uint64_t, std::uint64_t) const override { unused(); }
    std::u16string_view getIdentifierName(std::uint64_t) const override { unused(); }
    SymbolView getIdentifierSymbol(std::uint64_t) const override { unused(); }
    NodeView getIfCondition(std::uint64_t) const override { unused(); }
    StatementRangeView getIfBody(std::uint64_t) const override { unused(); }
    ElseIfClauseRangeView getIfElseIfClauses(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getIfElseClause(std::uint64_t) const override { unused(); }
    NodeView getImplicitCommandTarget(std::uint64_t) const override { unused(); }
    CommandWordRangeView getImplicitCommandWords(std::uint64_t) const override { unused(); }
    NodeView getInputParameterRangeElement(std::uint64_t, std::uint64_t,
                                           std::uint64_t) const override {
        unused();
    }
    std::uint64_t getInputParameterRangeSize(std::uint64_t, std::uint64_t) const override {
        unused();
    }
    NodeKind getInputParameterKind(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getInputParameterIdentifier(std::uint64_t) const override {
        unused();
    }
    boost::optional<NodeView> getInputParameterIgnored(std::uint64_t) const override { unused(); }
    RowRangeView getMatrixRows(std::uint64_t) const override { unused(); }
    NodeView getMethodPart(std::uint64_t) const override { unused(); }
    ArgumentsBlockRangeView getMethodArgumentsBlocks(std::uint64_t) const override { unused(); }
    NodeRangeView getMethodMembers(std::uint64_t) const override { unused(); }
    AttributeRangeView getMethodsBlockAttributes(std::uint64_t) const override { unused(); }
    MethodRangeView getMethodsBlockMethods(std::uint64_t) const override { unused(); }
    IdentifierRangeView getMethodOutputs(std::uint64_t) const override { unused(); }
    NodeView getMethodName(std::uint64_t) const override { unused(); }
    InputParameterRangeView getMethodInputs(std::uint64_t) const override { unused(); }
    NodeView getMethodRangeElement(std::uint64_t, std::uint64_t, std::uint64_t) const override {
        unused();
    }
    std::uint64_t getMethodRangeSize(std::uint64_t, std::uint64_t) const override { unused(); }
    ExpressionRangeView getMultiAssignmentTargets(std::uint64_t) const override { unused(); }
    NodeView getMultiAssignmentRhs(std::uint64_t) const override { unused(); }
    NodeView getNamedArgumentName(std::uint64_t) const override { unused(); }
    NodeView getNamedArgumentValue(std::uint64_t) const override { unused(); }
    std::uint64_t getNamedArgumentExtra(std::uint64_t) const override { unused(); }
    NodeKind getNodeKind(std::uint64_t) const override { unused(); }
    std::uint64_t getNodeExtra(std::uint64_t) const override { unused(); }
    NodeView getNodeRangeElement(std::uint64_t, std::uint64_t, std::uint64_t) const override {
        unused();
    }
    std::uint64_t getNodeRangeSize(std::uint64_t, std::uint64_t) const override { unused(); }
    std::uint64_t getNumberOperation1(std::uint64_t) const override { unused(); }
    std::uint64_t getNumberOperation2(std::uint64_t) const override { unused(); }
    std::uint64_t getNumberOperation3(std::uint64_t) const override { unused(); }
    std::uint64_t getNumberOperation4(std::uint64_t) const override { unused(); }
    std::uint64_t getNumberOperation5(std::uint64_t) const override { unused(); }
    std::uint64_t getNumberOperation6(std::uint64_t) const override { unused(); }
    StatementRangeView getOtherwiseBody(std::uint64_t) const override { unused(); }
    NodeView getParenBase(std::uint64_t) const override { unused(); }
    ExpressionRangeView getParenArguments(std::uint64_t) const override { unused(); }
    NodeView getParenthesizedInner(std::uint64_t) const override { unused(); }
    ExpressionRangeView getParforOptions(std::uint64_t) const override { unused(); }
    NodeView getParforVariable(std::uint64_t) const override { unused(); }
    NodeView getParforExpression(std::uint64_t) const override { unused(); }
    StatementRangeView getParforBody(std::uint64_t) const override { unused(); }
    IdentifierRangeView getPersistentIdentifiers(std::uint64_t) const override { unused(); }
    NodeView getPrintedStatement(std::uint64_t) const override { unused(); }
    NodeRangeView getProgramNodes(std::uint64_t) const override { unused(); }
    NodeView getPropertyDefinitionRangeElement(std::uint64_t, std::uint64_t,
                                               std::uint64_t) const override {
        unused();
    }
    std::uint64_t getPropertyDefinitionRangeSize(std::uint64_t, std::uint64_t) const override {
        unused();
    }
    NodeView getPropertyName(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getPropertyPart1(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getPropertyPart2(std::uint64_t) const override { unused(); }
    AttributeRangeView getPropertiesBlockAttributes(std::uint64_t) const override { unused(); }
    PropertyDefinitionRangeView getPropertiesBlockProperties(std::uint64_t) const override {
        unused();
    }
    NodeView getRowRangeElement(std::uint64_t, std::uint64_t, std::uint64_t) const override {
        unused();
    }
    std::uint64_t getRowRangeSize(std::uint64_t, std::uint64_t) const override { unused(); }
    ExpressionRangeView getRowExpressions(std::uint64_t) const override { unused(); }
    ExpressionRangeView getSpmdOptions(std::uint64_t) const override { unused(); }
    StatementRangeView getSpmdBody(std::uint64_t) const override { unused(); }
    NodeView getStatementRangeElement(std::uint64_t, std::uint64_t, std::uint64_t) const override {
        unused();
    }
    std::uint64_t getStatementRangeSize(std::uint64_t, std::uint64_t) const override { unused(); }
    std::uint64_t getStringLiteralText(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getStringLiteralPart(std::uint64_t) const override { unused(); }
    NodeView getSwitchSubject(std::uint64_t) const override { unused(); }
    CaseClauseRangeView getSwitchCases(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getSwitchOtherwise(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getTryCatch(std::uint64_t) const override { unused(); }
    StatementRangeView getTryBody(std::uint64_t) const override { unused(); }
    UnaryOperator getUnaryOperator(std::uint64_t) const override { unused(); }
    NodeView getUnaryOperand(std::uint64_t) const override { unused(); }
    ExpressionRangeView getValidationFirstExpressions(std::uint64_t) const override { unused(); }
    boost::optional<NodeView> getValidationPart(std::uint64_t) const override { unused(); }
    ExpressionRangeView getValidationSecondExpressions(std::uint64_t) const override { unused(); }
    NodeView getWhileCondition(std::uint64_t) const override { unused(); }
    StatementRangeView getWhileBody(std::uint64_t) const override { unused(); }

private:
    [[noreturn]] static void unused() { throw std::logic_error("no such node in this tree"); }
};

} // namespace zt::orvex::benchmarks
