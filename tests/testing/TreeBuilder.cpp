#include "testing/TreeBuilder.h"

#include "testing/Widen.h"

#include <stdexcept>
#include <string>

namespace zt::orvex::testing {

namespace {

using Op = Operation;

} // namespace

SymbolView TreeBuilder::symbol(std::string_view name) { return ast.symbol(widen(name)); }

NodeView TreeBuilder::unknown(int kind) { return ast.add(static_cast<NodeKind>(kind), {}); }

StatementRangeView TreeBuilder::block(const Nodes& statements) {
    return elseClause(statements).getElseBody();
}

// Expressions

AnonymousFunctionView TreeBuilder::anonymousFunction(const Nodes& parameters, NodeView body) {
    return make<AnonymousFunctionView>(
        {{Op::getAnonymousFunctionParameters, parameters}, {Op::getAnonymousFunctionBody, body}});
}

AnyExpressionView TreeBuilder::anyExpression() { return make<AnyExpressionView>(); }

BinaryOperationView TreeBuilder::binary(BinaryOperator op, NodeView left, NodeView right) {
    return make<BinaryOperationView>({{Op::getBinaryLhs, left}, {Op::getBinaryRhs, right}},
                                     static_cast<std::uint32_t>(op));
}

BinaryOperationView TreeBuilder::add(NodeView left, NodeView right) {
    return binary(BinaryOperator::Add, left, right);
}

BinaryOperationView TreeBuilder::shortCircuitAnd(NodeView left, NodeView right) {
    return binary(BinaryOperator::ShortCircuitAnd, left, right);
}

BinaryOperationView TreeBuilder::shortCircuitOr(NodeView left, NodeView right) {
    return binary(BinaryOperator::ShortCircuitOr, left, right);
}

BinaryOperationView TreeBuilder::elementAnd(NodeView left, NodeView right) {
    return binary(BinaryOperator::ElementAnd, left, right);
}

BinaryOperationView TreeBuilder::elementOr(NodeView left, NodeView right) {
    return binary(BinaryOperator::ElementOr, left, right);
}

BraceOperationView TreeBuilder::brace(NodeView base, const Nodes& arguments) {
    return make<BraceOperationView>({{Op::getBraceBase, base}, {Op::getBraceArguments, arguments}});
}

CellArrayView TreeBuilder::cellArray(const Nodes& rows) {
    return make<CellArrayView>({{Op::getCellArrayRows, rows}});
}

CharacterLiteralView TreeBuilder::characterLiteral(MaybeNode part) {
    return make<CharacterLiteralView>({{Op::getCharacterLiteralPart, part}});
}

ColonView TreeBuilder::colon() { return make<ColonView>(); }

ColonOperationView TreeBuilder::colonOperation(NodeView start, MaybeNode step, NodeView stop) {
    return make<ColonOperationView>(
        {{Op::getColonStart, start}, {Op::getColonStep, step}, {Op::getColonStop, stop}});
}

DiscardedExpressionView TreeBuilder::discardedExpression() {
    return make<DiscardedExpressionView>();
}

DotOperationView TreeBuilder::dot(NodeView base, NodeView field) {
    return make<DotOperationView>({{Op::getDotBase, base}, {Op::getDotField, field}});
}

DynamicFieldOperationView TreeBuilder::dynamicField(NodeView base, NodeView expression) {
    return make<DynamicFieldOperationView>(
        {{Op::getDynamicFieldBase, base}, {Op::getDynamicFieldExpression, expression}});
}

EndView TreeBuilder::end() { return make<EndView>(); }

IdentifierView TreeBuilder::id(std::string_view asciiName) { return id(widen(asciiName)); }

IdentifierView TreeBuilder::id(std::u16string_view name) {
    return IdentifierView(ast.addIdentifier(name));
}

IgnoredArgumentView TreeBuilder::ignoredArgument() { return make<IgnoredArgumentView>(); }

MatrixView TreeBuilder::matrix(const Nodes& rows) {
    return make<MatrixView>({{Op::getMatrixRows, rows}});
}

NamedArgumentView TreeBuilder::namedArgument(NodeView name, NodeView value) {
    return make<NamedArgumentView>(
        {{Op::getNamedArgumentName, name}, {Op::getNamedArgumentValue, value}});
}

NumberLiteralView TreeBuilder::number() { return make<NumberLiteralView>(); }

ParenOperationView TreeBuilder::paren(NodeView base, const Nodes& arguments) {
    return make<ParenOperationView>({{Op::getParenBase, base}, {Op::getParenArguments, arguments}});
}

ParenthesizedExpressionView TreeBuilder::parenthesized(NodeView inner) {
    return make<ParenthesizedExpressionView>({{Op::getParenthesizedInner, inner}});
}

RowView TreeBuilder::row(const Nodes& expressions) {
    return make<RowView>({{Op::getRowExpressions, expressions}});
}

StringLiteralView TreeBuilder::stringLiteral(MaybeNode part) {
    return make<StringLiteralView>({{Op::getStringLiteralPart, part}});
}

UnaryOperationView TreeBuilder::unary(UnaryOperator op, NodeView operand) {
    return make<UnaryOperationView>({{Op::getUnaryOperand, operand}},
                                    static_cast<std::uint32_t>(op));
}

UnaryOperationView TreeBuilder::minus(NodeView operand) {
    return unary(UnaryOperator::UnaryMinus, operand);
}

// Statements and their clauses

AssignmentStatementView TreeBuilder::assign(NodeView left, NodeView right) {
    return make<AssignmentStatementView>(
        {{Op::getAssignmentLhs, left}, {Op::getAssignmentRhs, right}});
}

BareIdentifierStatementView TreeBuilder::bareIdentifier(NodeView child) {
    return make<BareIdentifierStatementView>({{Op::getBareIdentifier, child}});
}

BreakStatementView TreeBuilder::breakStatement() { return make<BreakStatementView>(); }

CaseClauseView TreeBuilder::caseClause(NodeView expression, const Nodes& body) {
    return make<CaseClauseView>({{Op::getCaseExpression, expression}, {Op::getCaseBody, body}});
}

CatchClauseView TreeBuilder::catchClause(MaybeNode identifier, const Nodes& body) {
    return make<CatchClauseView>({{Op::getCatchIdentifier, identifier}, {Op::getCatchBody, body}});
}

CommandStatementView TreeBuilder::command(NodeView target, NodeView callee, const Nodes& words) {
    return make<CommandStatementView>({{Op::getCommandTarget, target},
                                       {Op::getCommandCallee, callee},
                                       {Op::getCommandWords, words}});
}

ContinueStatementView TreeBuilder::continueStatement() { return make<ContinueStatementView>(); }

DiscardedStatementView TreeBuilder::discardedStatement() { return make<DiscardedStatementView>(); }

ElseClauseView TreeBuilder::elseClause(const Nodes& body) {
    return make<ElseClauseView>({{Op::getElseBody, body}});
}

ElseIfClauseView TreeBuilder::elseIfClause(NodeView condition, const Nodes& body) {
    return make<ElseIfClauseView>({{Op::getElseIfCondition, condition}, {Op::getElseIfBody, body}});
}

EmptyStatementView TreeBuilder::emptyStatement() { return make<EmptyStatementView>(); }

ExpressionStatementView TreeBuilder::expressionStatement(NodeView target, NodeView expression) {
    return make<ExpressionStatementView>({{Op::getExpressionStatementTarget, target},
                                          {Op::getExpressionStatementExpression, expression}});
}

ForStatementView TreeBuilder::forLoop(NodeView variable, NodeView expression, const Nodes& body) {
    return make<ForStatementView>({{Op::getForVariable, variable},
                                   {Op::getForExpression, expression},
                                   {Op::getForBody, body}});
}

GlobalDeclarationView TreeBuilder::global(const Nodes& identifiers) {
    return make<GlobalDeclarationView>({{Op::getGlobalIdentifiers, identifiers}});
}

IfStatementView TreeBuilder::ifStatement(NodeView condition, const Nodes& body,
                                         const Nodes& elseIfClauses, MaybeNode elseClause) {
    return make<IfStatementView>({{Op::getIfCondition, condition},
                                  {Op::getIfBody, body},
                                  {Op::getIfElseIfClauses, elseIfClauses},
                                  {Op::getIfElseClause, elseClause}});
}

ImplicitCommandStatementView TreeBuilder::implicitCommand(NodeView target, const Nodes& words) {
    return make<ImplicitCommandStatementView>(
        {{Op::getImplicitCommandTarget, target}, {Op::getImplicitCommandWords, words}});
}

MultiAssignmentStatementView TreeBuilder::multiAssign(const Nodes& targets, NodeView right) {
    return make<MultiAssignmentStatementView>(
        {{Op::getMultiAssignmentTargets, targets}, {Op::getMultiAssignmentRhs, right}});
}

OtherwiseClauseView TreeBuilder::otherwiseClause(const Nodes& body) {
    return make<OtherwiseClauseView>({{Op::getOtherwiseBody, body}});
}

ParforStatementView TreeBuilder::parforLoop(NodeView variable, NodeView expression,
                                            const Nodes& body, const Nodes& options) {
    return make<ParforStatementView>({{Op::getParforVariable, variable},
                                      {Op::getParforExpression, expression},
                                      {Op::getParforOptions, options},
                                      {Op::getParforBody, body}});
}

PersistentDeclarationView TreeBuilder::persistent(const Nodes& identifiers) {
    return make<PersistentDeclarationView>({{Op::getPersistentIdentifiers, identifiers}});
}

PrintStatementView TreeBuilder::print(NodeView statement) {
    return make<PrintStatementView>({{Op::getPrintedStatement, statement}});
}

ReturnStatementView TreeBuilder::returnStatement() { return make<ReturnStatementView>(); }

SpmdStatementView TreeBuilder::spmd(const Nodes& body, const Nodes& options) {
    return make<SpmdStatementView>({{Op::getSpmdOptions, options}, {Op::getSpmdBody, body}});
}

SwitchStatementView TreeBuilder::switchStatement(NodeView subject, const Nodes& cases,
                                                 MaybeNode otherwise) {
    return make<SwitchStatementView>({{Op::getSwitchSubject, subject},
                                      {Op::getSwitchCases, cases},
                                      {Op::getSwitchOtherwise, otherwise}});
}

TryStatementView TreeBuilder::tryStatement(const Nodes& body, MaybeNode catchClause) {
    return make<TryStatementView>({{Op::getTryBody, body}, {Op::getTryCatch, catchClause}});
}

WhileStatementView TreeBuilder::whileLoop(NodeView condition, const Nodes& body) {
    return make<WhileStatementView>({{Op::getWhileCondition, condition}, {Op::getWhileBody, body}});
}

// Definitions

ArgumentDeclarationView TreeBuilder::argumentDeclaration(NodeView name, MaybeNode part1,
                                                         MaybeNode part2, MaybeNode part3,
                                                         MaybeNode part4) {
    return make<ArgumentDeclarationView>({{Op::getArgumentDeclarationName, name},
                                          {Op::getArgumentDeclarationPart1, part1},
                                          {Op::getArgumentDeclarationPart2, part2},
                                          {Op::getArgumentDeclarationPart3, part3},
                                          {Op::getArgumentDeclarationPart4, part4}});
}

ArgumentsBlockView TreeBuilder::argumentsBlock(const Nodes& attributes, const Nodes& declarations) {
    return make<ArgumentsBlockView>({{Op::getArgumentsBlockAttributes, attributes},
                                     {Op::getArgumentsBlockDeclarations, declarations}});
}

AttributeView TreeBuilder::attribute(NodeView name, MaybeNode value) {
    return make<AttributeView>({{Op::getAttributeName, name}, {Op::getAttributeValue, value}});
}

ClassDefinitionView TreeBuilder::classDefinition(const Nodes& attributes, NodeView name,
                                                 const Nodes& superclasses, const Nodes& members) {
    return make<ClassDefinitionView>({{Op::getClassAttributes, attributes},
                                      {Op::getClassName, name},
                                      {Op::getClassSuperclasses, superclasses},
                                      {Op::getClassMembers, members}});
}

EnumerationBlockView TreeBuilder::enumerationBlock(const Nodes& attributes, const Nodes& members) {
    return make<EnumerationBlockView>({{Op::getEnumerationBlockAttributes, attributes},
                                       {Op::getEnumerationBlockMembers, members}});
}

EnumerationMemberView TreeBuilder::enumerationMember(NodeView name, const Nodes& arguments) {
    return make<EnumerationMemberView>(
        {{Op::getEnumerationMemberName, name}, {Op::getEnumerationMemberArguments, arguments}});
}

EventDefinitionView TreeBuilder::eventDefinition(NodeView name, MaybeNode part) {
    return make<EventDefinitionView>({{Op::getEventName, name}, {Op::getEventPart, part}});
}

EventsBlockView TreeBuilder::eventsBlock(const Nodes& attributes, const Nodes& events) {
    return make<EventsBlockView>(
        {{Op::getEventsBlockAttributes, attributes}, {Op::getEventsBlockEvents, events}});
}

FillerNodeView TreeBuilder::filler() { return make<FillerNodeView>(); }

FunctionDefinitionView TreeBuilder::functionDefinition(const Nodes& outputs, NodeView name,
                                                       const Nodes& inputs, NodeView part,
                                                       const Nodes& argumentsBlocks,
                                                       const Nodes& members) {
    return make<FunctionDefinitionView>({{Op::getFunctionOutputs, outputs},
                                         {Op::getFunctionName, name},
                                         {Op::getFunctionInputs, inputs},
                                         {Op::getFunctionPart, part},
                                         {Op::getFunctionArgumentsBlocks, argumentsBlocks},
                                         {Op::getFunctionMembers, members}});
}

InputParameterView TreeBuilder::inputParameter(NodeView held) {
    const NodeKind kind = held.getKind();
    const MaybeNode child = held;
    const auto datum = static_cast<std::uint32_t>(kind);
    if (kind == NodeKind::Identifier) {
        return make<InputParameterView>({{Op::getInputParameterIdentifier, child}}, datum);
    }
    if (kind != NodeKind::IgnoredArgument) throw std::logic_error("no parameter holds this kind");
    return make<InputParameterView>({{Op::getInputParameterIgnored, child}}, datum);
}

InputParameterView TreeBuilder::inputParameterThatSays(NodeKind kind, MaybeNode identifier,
                                                       MaybeNode ignored) {
    return make<InputParameterView>(
        {{Op::getInputParameterIdentifier, identifier}, {Op::getInputParameterIgnored, ignored}},
        static_cast<std::uint32_t>(kind));
}

MethodDeclarationView TreeBuilder::methodDeclaration(const Nodes& outputs, NodeView name,
                                                     const Nodes& inputs) {
    return make<MethodDeclarationView>({{Op::getMethodOutputs, outputs},
                                        {Op::getMethodName, name},
                                        {Op::getMethodInputs, inputs}});
}

MethodDefinitionView TreeBuilder::methodDefinition(const Nodes& outputs, NodeView name,
                                                   const Nodes& inputs, NodeView part,
                                                   const Nodes& argumentsBlocks,
                                                   const Nodes& members) {
    return make<MethodDefinitionView>({{Op::getMethodOutputs, outputs},
                                       {Op::getMethodName, name},
                                       {Op::getMethodInputs, inputs},
                                       {Op::getMethodPart, part},
                                       {Op::getMethodArgumentsBlocks, argumentsBlocks},
                                       {Op::getMethodMembers, members}});
}

MethodsBlockView TreeBuilder::methodsBlock(const Nodes& attributes, const Nodes& methods) {
    return make<MethodsBlockView>(
        {{Op::getMethodsBlockAttributes, attributes}, {Op::getMethodsBlockMethods, methods}});
}

ProgramView TreeBuilder::program(const Nodes& nodes) {
    return make<ProgramView>({{Op::getProgramNodes, nodes}});
}

PropertiesBlockView TreeBuilder::propertiesBlock(const Nodes& attributes, const Nodes& properties) {
    return make<PropertiesBlockView>({{Op::getPropertiesBlockAttributes, attributes},
                                      {Op::getPropertiesBlockProperties, properties}});
}

PropertyDefinitionView TreeBuilder::propertyDefinition(NodeView name, MaybeNode part1,
                                                       MaybeNode part2) {
    return make<PropertyDefinitionView>({{Op::getPropertyName, name},
                                         {Op::getPropertyPart1, part1},
                                         {Op::getPropertyPart2, part2}});
}

ValidationSpecificationView TreeBuilder::validationSpecification(const Nodes& first, MaybeNode part,
                                                                 const Nodes& second) {
    return make<ValidationSpecificationView>({{Op::getValidationFirstExpressions, first},
                                              {Op::getValidationPart, part},
                                              {Op::getValidationSecondExpressions, second}});
}

} // namespace zt::orvex::testing
