#pragma once

#include "testing/FakeAst.h"

#include <boost/none.hpp>
#include <boost/optional.hpp>

#include <initializer_list>
#include <string_view>
#include <vector>

namespace zt::orvex::testing {

using Nodes = std::vector<NodeView>;
using MaybeNode = boost::optional<NodeView>;

/// Builds trees as expressions: a function for each kind, with the parts as arguments.
///
///   TreeBuilder t;
///   const auto body = t.assign(t.id("x"), t.add(t.id("a"), t.id("b")));
///   const auto loop = t.parforLoop(t.id("i"), t.id("n"), {body, t.breakStatement()});
///   computeLiveAsTemporaryVariables(loop, ...);
///
/// A test fixture that derives from it writes `assign(id("x"), add(id("a"), id("b")))`:
///
///   class LiveVariables : public ::testing::Test, protected TreeBuilder {};
///
/// Arguments are in the order of source text where there is one. A range is a braced list; an
/// absent optional child is `{}` or left out. The functions return typed views, which convert to
/// NodeView. The compiler chooses the order in which the arguments of a call are evaluated, and so
/// the handles of nodes: compare labels, not handles.
class TreeBuilder {
public:
    FakeAst ast;

    /// The symbol of an identifier's name: a variable unless `ast.setIsVariable` says otherwise.
    SymbolView symbol(std::string_view name);

    /// A node of a kind given by number, without parts: for kinds that aren't in the table.
    NodeView unknown(int kind);

    /// The statements as a range, for computations that take one.
    StatementRangeView block(const Nodes& statements);

    // Expressions
    AnonymousFunctionView anonymousFunction(const Nodes& parameters, NodeView body);
    AnyExpressionView anyExpression();
    BinaryOperationView binary(BinaryOperator op, NodeView left, NodeView right);
    BinaryOperationView add(NodeView left, NodeView right);
    BinaryOperationView shortCircuitAnd(NodeView left, NodeView right);
    BinaryOperationView shortCircuitOr(NodeView left, NodeView right);
    BinaryOperationView elementAnd(NodeView left, NodeView right);
    BinaryOperationView elementOr(NodeView left, NodeView right);
    BraceOperationView brace(NodeView base, const Nodes& arguments);
    CellArrayView cellArray(const Nodes& rows);
    CharacterLiteralView characterLiteral(MaybeNode part = {});
    ColonView colon();
    ColonOperationView colonOperation(NodeView start, MaybeNode step, NodeView stop);
    DiscardedExpressionView discardedExpression();
    DotOperationView dot(NodeView base, NodeView field);
    DynamicFieldOperationView dynamicField(NodeView base, NodeView expression);
    EndView end();
    IdentifierView id(std::string_view asciiName);
    IdentifierView id(std::u16string_view name);
    IgnoredArgumentView ignoredArgument();
    MatrixView matrix(const Nodes& rows);
    NamedArgumentView namedArgument(NodeView name, NodeView value);
    NumberLiteralView number();
    ParenOperationView paren(NodeView base, const Nodes& arguments);
    ParenthesizedExpressionView parenthesized(NodeView inner);
    RowView row(const Nodes& expressions);
    StringLiteralView stringLiteral(MaybeNode part = {});
    UnaryOperationView unary(UnaryOperator op, NodeView operand);
    UnaryOperationView minus(NodeView operand);

    // Statements and their clauses
    AssignmentStatementView assign(NodeView left, NodeView right);
    BareIdentifierStatementView bareIdentifier(NodeView child);
    BreakStatementView breakStatement();
    CaseClauseView caseClause(NodeView expression, const Nodes& body);
    CatchClauseView catchClause(MaybeNode identifier, const Nodes& body);
    CommandStatementView command(NodeView target, NodeView callee, const Nodes& words);
    ContinueStatementView continueStatement();
    DiscardedStatementView discardedStatement();
    ElseClauseView elseClause(const Nodes& body);
    ElseIfClauseView elseIfClause(NodeView condition, const Nodes& body);
    EmptyStatementView emptyStatement();
    ExpressionStatementView expressionStatement(NodeView target, NodeView expression);
    ForStatementView forLoop(NodeView variable, NodeView expression, const Nodes& body);
    GlobalDeclarationView global(const Nodes& identifiers);
    IfStatementView ifStatement(NodeView condition, const Nodes& body,
                                const Nodes& elseIfClauses = {}, MaybeNode elseClause = {});
    ImplicitCommandStatementView implicitCommand(NodeView target, const Nodes& words);
    MultiAssignmentStatementView multiAssign(const Nodes& targets, NodeView right);
    OtherwiseClauseView otherwiseClause(const Nodes& body);
    ParforStatementView parforLoop(NodeView variable, NodeView expression, const Nodes& body,
                                   const Nodes& options = {});
    PersistentDeclarationView persistent(const Nodes& identifiers);
    PrintStatementView print(NodeView statement);
    ReturnStatementView returnStatement();
    SpmdStatementView spmd(const Nodes& body, const Nodes& options = {});
    SwitchStatementView switchStatement(NodeView subject, const Nodes& cases,
                                        MaybeNode otherwise = {});
    TryStatementView tryStatement(const Nodes& body, MaybeNode catchClause = {});
    WhileStatementView whileLoop(NodeView condition, const Nodes& body);

    // Definitions
    ArgumentDeclarationView argumentDeclaration(NodeView name, MaybeNode part1 = {},
                                                MaybeNode part2 = {}, MaybeNode part3 = {},
                                                MaybeNode part4 = {});
    ArgumentsBlockView argumentsBlock(const Nodes& attributes, const Nodes& declarations);
    AttributeView attribute(NodeView name, MaybeNode value = {});
    ClassDefinitionView classDefinition(const Nodes& attributes, NodeView name,
                                        const Nodes& superclasses, const Nodes& members);
    EnumerationBlockView enumerationBlock(const Nodes& attributes, const Nodes& members);
    EnumerationMemberView enumerationMember(NodeView name, const Nodes& arguments);
    EventDefinitionView eventDefinition(NodeView name, MaybeNode part = {});
    EventsBlockView eventsBlock(const Nodes& attributes, const Nodes& events);
    FillerNodeView filler();
    FunctionDefinitionView functionDefinition(const Nodes& outputs, NodeView name,
                                              const Nodes& inputs, NodeView part,
                                              const Nodes& argumentsBlocks, const Nodes& members);
    /// Holds an Identifier or an IgnoredArgument, and has only the accessor that matches.
    InputParameterView inputParameter(NodeView held);
    /// Claims to hold a node of `kind`, independently of what its two accessors return.
    InputParameterView inputParameterThatSays(NodeKind kind, MaybeNode identifier,
                                              MaybeNode ignored);
    MethodDeclarationView methodDeclaration(const Nodes& outputs, NodeView name,
                                            const Nodes& inputs);
    MethodDefinitionView methodDefinition(const Nodes& outputs, NodeView name, const Nodes& inputs,
                                          NodeView part, const Nodes& argumentsBlocks,
                                          const Nodes& members);
    MethodsBlockView methodsBlock(const Nodes& attributes, const Nodes& methods);
    ProgramView program(const Nodes& nodes);
    PropertiesBlockView propertiesBlock(const Nodes& attributes, const Nodes& properties);
    PropertyDefinitionView propertyDefinition(NodeView name, MaybeNode part1 = {},
                                              MaybeNode part2 = {});
    ValidationSpecificationView validationSpecification(const Nodes& first, MaybeNode part,
                                                        const Nodes& second);

    // Any kind
    /// A node with the parts given: `make<ElseClauseView>({{Operation::getElseBody, body}})`. For a
    /// kind that only few tests need; the functions above are made of it.
    template <typename View>
    View make(std::initializer_list<Part> parts = {}, std::uint32_t datum = 0) {
        return View(ast.add(View::KIND, parts, datum));
    }
};

} // namespace zt::orvex::testing
