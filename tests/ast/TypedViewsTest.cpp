#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/TypedViews.h>

#include <gtest/gtest.h>

namespace zt::orvex {
namespace {

using testing::Call;
using testing::FakeAst;
using testing::Operation;
using testing::Part;

/// A node of `kind` whose accessor of that name, if it gives children, has one.
NodeView makeNode(FakeAst& ast, NodeKind kind, Operation accessor) {
    const NodeView child = ast.addIdentifier(u"child");
    if (kind == NodeKind::Identifier) return child;
    return ast.add(kind, {Part(accessor, child)});
}

/// Expects that `accessor` of a typed view asks the operation, of the view's handle, and that
/// alone.
template <typename View, typename Accessor>
void expectForward(Operation operation, const Accessor& accessor) {
    SCOPED_TRACE(testing::nameOf(operation));
    FakeAst ast;
    const View view(makeNode(ast, View::KIND, operation));
    ast.startRecording();
    accessor(view);
    ASSERT_EQ(ast.calls().size(), 1U);
    EXPECT_EQ(ast.calls()[0].operation, operation);
    EXPECT_EQ(ast.calls()[0].arguments[0], view.node);
}

#define ZT_ORVEX_FORWARDS(Kind, accessor)                                                          \
    expectForward<Kind##View>(Operation::accessor,                                                 \
                              [](const Kind##View& view) { (void)view.accessor(); })

TEST(TypedViews, EachAccessorAsksTheOperationOfItsName) {
    ZT_ORVEX_FORWARDS(AnonymousFunction, getAnonymousFunctionParameters);
    ZT_ORVEX_FORWARDS(AnonymousFunction, getAnonymousFunctionBody);
    ZT_ORVEX_FORWARDS(ArgumentsBlock, getArgumentsBlockAttributes);
    ZT_ORVEX_FORWARDS(ArgumentsBlock, getArgumentsBlockDeclarations);
    ZT_ORVEX_FORWARDS(ArgumentDeclaration, getArgumentDeclarationName);
    ZT_ORVEX_FORWARDS(ArgumentDeclaration, getArgumentDeclarationPart1);
    ZT_ORVEX_FORWARDS(ArgumentDeclaration, getArgumentDeclarationPart2);
    ZT_ORVEX_FORWARDS(ArgumentDeclaration, getArgumentDeclarationPart3);
    ZT_ORVEX_FORWARDS(ArgumentDeclaration, getArgumentDeclarationPart4);
    ZT_ORVEX_FORWARDS(AssignmentStatement, getAssignmentLhs);
    ZT_ORVEX_FORWARDS(AssignmentStatement, getAssignmentRhs);
    ZT_ORVEX_FORWARDS(Attribute, getAttributeName);
    ZT_ORVEX_FORWARDS(Attribute, getAttributeValue);
    ZT_ORVEX_FORWARDS(BareIdentifierStatement, getBareIdentifier);
    ZT_ORVEX_FORWARDS(BinaryOperation, getBinaryOperator);
    ZT_ORVEX_FORWARDS(BinaryOperation, getBinaryLhs);
    ZT_ORVEX_FORWARDS(BinaryOperation, getBinaryRhs);
    ZT_ORVEX_FORWARDS(BraceOperation, getBraceBase);
    ZT_ORVEX_FORWARDS(BraceOperation, getBraceArguments);
    ZT_ORVEX_FORWARDS(CaseClause, getCaseBody);
    ZT_ORVEX_FORWARDS(CaseClause, getCaseExpression);
    ZT_ORVEX_FORWARDS(CatchClause, getCatchIdentifier);
    ZT_ORVEX_FORWARDS(CatchClause, getCatchBody);
    ZT_ORVEX_FORWARDS(CharacterLiteral, getCharacterLiteralPart);
    ZT_ORVEX_FORWARDS(CellArray, getCellArrayRows);
    ZT_ORVEX_FORWARDS(ClassDefinition, getClassAttributes);
    ZT_ORVEX_FORWARDS(ClassDefinition, getClassName);
    ZT_ORVEX_FORWARDS(ClassDefinition, getClassSuperclasses);
    ZT_ORVEX_FORWARDS(ClassDefinition, getClassMembers);
    ZT_ORVEX_FORWARDS(ColonOperation, getColonStart);
    ZT_ORVEX_FORWARDS(ColonOperation, getColonStep);
    ZT_ORVEX_FORWARDS(ColonOperation, getColonStop);
    ZT_ORVEX_FORWARDS(CommandStatement, getCommandTarget);
    ZT_ORVEX_FORWARDS(CommandStatement, getCommandCallee);
    ZT_ORVEX_FORWARDS(CommandStatement, getCommandWords);
    ZT_ORVEX_FORWARDS(DotOperation, getDotBase);
    ZT_ORVEX_FORWARDS(DotOperation, getDotField);
    ZT_ORVEX_FORWARDS(DynamicFieldOperation, getDynamicFieldBase);
    ZT_ORVEX_FORWARDS(DynamicFieldOperation, getDynamicFieldExpression);
    ZT_ORVEX_FORWARDS(ElseClause, getElseBody);
    ZT_ORVEX_FORWARDS(ElseIfClause, getElseIfBody);
    ZT_ORVEX_FORWARDS(ElseIfClause, getElseIfCondition);
    ZT_ORVEX_FORWARDS(EnumerationBlock, getEnumerationBlockAttributes);
    ZT_ORVEX_FORWARDS(EnumerationBlock, getEnumerationBlockMembers);
    ZT_ORVEX_FORWARDS(EnumerationMember, getEnumerationMemberName);
    ZT_ORVEX_FORWARDS(EnumerationMember, getEnumerationMemberArguments);
    ZT_ORVEX_FORWARDS(ExpressionStatement, getExpressionStatementTarget);
    ZT_ORVEX_FORWARDS(ExpressionStatement, getExpressionStatementExpression);
    ZT_ORVEX_FORWARDS(EventsBlock, getEventsBlockAttributes);
    ZT_ORVEX_FORWARDS(EventsBlock, getEventsBlockEvents);
    ZT_ORVEX_FORWARDS(EventDefinition, getEventName);
    ZT_ORVEX_FORWARDS(EventDefinition, getEventPart);
    ZT_ORVEX_FORWARDS(ForStatement, getForVariable);
    ZT_ORVEX_FORWARDS(ForStatement, getForExpression);
    ZT_ORVEX_FORWARDS(ForStatement, getForBody);
    ZT_ORVEX_FORWARDS(FunctionDefinition, getFunctionOutputs);
    ZT_ORVEX_FORWARDS(FunctionDefinition, getFunctionName);
    ZT_ORVEX_FORWARDS(FunctionDefinition, getFunctionInputs);
    ZT_ORVEX_FORWARDS(FunctionDefinition, getFunctionPart);
    ZT_ORVEX_FORWARDS(FunctionDefinition, getFunctionArgumentsBlocks);
    ZT_ORVEX_FORWARDS(FunctionDefinition, getFunctionMembers);
    ZT_ORVEX_FORWARDS(GlobalDeclaration, getGlobalIdentifiers);
    ZT_ORVEX_FORWARDS(Identifier, getIdentifierName);
    ZT_ORVEX_FORWARDS(Identifier, getIdentifierSymbol);
    ZT_ORVEX_FORWARDS(IfStatement, getIfCondition);
    ZT_ORVEX_FORWARDS(IfStatement, getIfBody);
    ZT_ORVEX_FORWARDS(IfStatement, getIfElseIfClauses);
    ZT_ORVEX_FORWARDS(IfStatement, getIfElseClause);
    ZT_ORVEX_FORWARDS(ImplicitCommandStatement, getImplicitCommandTarget);
    ZT_ORVEX_FORWARDS(ImplicitCommandStatement, getImplicitCommandWords);
    ZT_ORVEX_FORWARDS(InputParameter, getInputParameterKind);
    ZT_ORVEX_FORWARDS(InputParameter, getInputParameterIdentifier);
    ZT_ORVEX_FORWARDS(InputParameter, getInputParameterIgnored);
    ZT_ORVEX_FORWARDS(Matrix, getMatrixRows);
    ZT_ORVEX_FORWARDS(MethodDefinition, getMethodPart);
    ZT_ORVEX_FORWARDS(MethodDefinition, getMethodArgumentsBlocks);
    ZT_ORVEX_FORWARDS(MethodDefinition, getMethodMembers);
    ZT_ORVEX_FORWARDS(MethodsBlock, getMethodsBlockAttributes);
    ZT_ORVEX_FORWARDS(MethodsBlock, getMethodsBlockMethods);
    ZT_ORVEX_FORWARDS(MethodDeclaration, getMethodOutputs);
    ZT_ORVEX_FORWARDS(MethodDefinition, getMethodOutputs);
    ZT_ORVEX_FORWARDS(MethodDeclaration, getMethodName);
    ZT_ORVEX_FORWARDS(MethodDefinition, getMethodName);
    ZT_ORVEX_FORWARDS(MethodDeclaration, getMethodInputs);
    ZT_ORVEX_FORWARDS(MethodDefinition, getMethodInputs);
    ZT_ORVEX_FORWARDS(MultiAssignmentStatement, getMultiAssignmentTargets);
    ZT_ORVEX_FORWARDS(MultiAssignmentStatement, getMultiAssignmentRhs);
    ZT_ORVEX_FORWARDS(NamedArgument, getNamedArgumentName);
    ZT_ORVEX_FORWARDS(NamedArgument, getNamedArgumentValue);
    ZT_ORVEX_FORWARDS(OtherwiseClause, getOtherwiseBody);
    ZT_ORVEX_FORWARDS(ParenOperation, getParenBase);
    ZT_ORVEX_FORWARDS(ParenOperation, getParenArguments);
    ZT_ORVEX_FORWARDS(ParenthesizedExpression, getParenthesizedInner);
    ZT_ORVEX_FORWARDS(ParforStatement, getParforOptions);
    ZT_ORVEX_FORWARDS(ParforStatement, getParforVariable);
    ZT_ORVEX_FORWARDS(ParforStatement, getParforExpression);
    ZT_ORVEX_FORWARDS(ParforStatement, getParforBody);
    ZT_ORVEX_FORWARDS(PersistentDeclaration, getPersistentIdentifiers);
    ZT_ORVEX_FORWARDS(PrintStatement, getPrintedStatement);
    ZT_ORVEX_FORWARDS(Program, getProgramNodes);
    ZT_ORVEX_FORWARDS(PropertyDefinition, getPropertyName);
    ZT_ORVEX_FORWARDS(PropertyDefinition, getPropertyPart1);
    ZT_ORVEX_FORWARDS(PropertyDefinition, getPropertyPart2);
    ZT_ORVEX_FORWARDS(PropertiesBlock, getPropertiesBlockAttributes);
    ZT_ORVEX_FORWARDS(PropertiesBlock, getPropertiesBlockProperties);
    ZT_ORVEX_FORWARDS(Row, getRowExpressions);
    ZT_ORVEX_FORWARDS(SpmdStatement, getSpmdOptions);
    ZT_ORVEX_FORWARDS(SpmdStatement, getSpmdBody);
    ZT_ORVEX_FORWARDS(StringLiteral, getStringLiteralPart);
    ZT_ORVEX_FORWARDS(SwitchStatement, getSwitchSubject);
    ZT_ORVEX_FORWARDS(SwitchStatement, getSwitchCases);
    ZT_ORVEX_FORWARDS(SwitchStatement, getSwitchOtherwise);
    ZT_ORVEX_FORWARDS(TryStatement, getTryCatch);
    ZT_ORVEX_FORWARDS(TryStatement, getTryBody);
    ZT_ORVEX_FORWARDS(UnaryOperation, getUnaryOperator);
    ZT_ORVEX_FORWARDS(UnaryOperation, getUnaryOperand);
    ZT_ORVEX_FORWARDS(ValidationSpecification, getValidationFirstExpressions);
    ZT_ORVEX_FORWARDS(ValidationSpecification, getValidationPart);
    ZT_ORVEX_FORWARDS(ValidationSpecification, getValidationSecondExpressions);
    ZT_ORVEX_FORWARDS(WhileStatement, getWhileCondition);
    ZT_ORVEX_FORWARDS(WhileStatement, getWhileBody);
}

#undef ZT_ORVEX_FORWARDS

template <typename Range>
void expectForwards(Operation element, Operation size) {
    SCOPED_TRACE(testing::nameOf(element));
    // A view that only takes down what it is asked: these words mean nothing to a FakeAst.
    FakeAst ast;
    std::vector<Call> calls;
    ast.onCall = [&](const Call& call) { calls.push_back(call); };
    const Range range{11, 22, &ast};
    EXPECT_THROW(range[33], std::logic_error);
    EXPECT_THROW(range.size(), std::logic_error);
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].operation, element);
    EXPECT_EQ(calls[0].arguments[0], 33U);
    EXPECT_EQ(calls[0].arguments[1], 11U);
    EXPECT_EQ(calls[0].arguments[2], 22U);
    EXPECT_EQ(calls[1].operation, size);
    EXPECT_EQ(calls[1].arguments[0], 11U);
    EXPECT_EQ(calls[1].arguments[1], 22U);
}

TEST(RangeViews, EachAsksThePairOfOperationsOfItsFamily) {
    expectForwards<ArgumentsBlockRangeView>(Operation::getArgumentsBlockRangeElement,
                                            Operation::getArgumentsBlockRangeSize);
    expectForwards<ArgumentDeclarationRangeView>(Operation::getArgumentDeclarationRangeElement,
                                                 Operation::getArgumentDeclarationRangeSize);
    expectForwards<AttributeRangeView>(Operation::getAttributeRangeElement,
                                       Operation::getAttributeRangeSize);
    expectForwards<CaseClauseRangeView>(Operation::getCaseClauseRangeElement,
                                        Operation::getCaseClauseRangeSize);
    expectForwards<CommandWordRangeView>(Operation::getCommandWordRangeElement,
                                         Operation::getCommandWordRangeSize);
    expectForwards<ElseIfClauseRangeView>(Operation::getElseIfClauseRangeElement,
                                          Operation::getElseIfClauseRangeSize);
    expectForwards<EnumerationMemberRangeView>(Operation::getEnumerationMemberRangeElement,
                                               Operation::getEnumerationMemberRangeSize);
    expectForwards<EventDefinitionRangeView>(Operation::getEventDefinitionRangeElement,
                                             Operation::getEventDefinitionRangeSize);
    expectForwards<ExpressionRangeView>(Operation::getExpressionRangeElement,
                                        Operation::getExpressionRangeSize);
    expectForwards<IdentifierRangeView>(Operation::getIdentifierRangeElement,
                                        Operation::getIdentifierRangeSize);
    expectForwards<InputParameterRangeView>(Operation::getInputParameterRangeElement,
                                            Operation::getInputParameterRangeSize);
    expectForwards<MethodRangeView>(Operation::getMethodRangeElement,
                                    Operation::getMethodRangeSize);
    expectForwards<NodeRangeView>(Operation::getNodeRangeElement, Operation::getNodeRangeSize);
    expectForwards<PropertyDefinitionRangeView>(Operation::getPropertyDefinitionRangeElement,
                                                Operation::getPropertyDefinitionRangeSize);
    expectForwards<RowRangeView>(Operation::getRowRangeElement, Operation::getRowRangeSize);
    expectForwards<StatementRangeView>(Operation::getStatementRangeElement,
                                       Operation::getStatementRangeSize);
}

} // namespace
} // namespace zt::orvex
