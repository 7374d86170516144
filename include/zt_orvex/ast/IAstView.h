#pragma once

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/support/Export.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <string_view>

namespace zt::orvex {

class ArgumentsBlockRangeView;
class ArgumentDeclarationRangeView;
class AttributeRangeView;
class CaseClauseRangeView;
class CommandWordRangeView;
class ElseIfClauseRangeView;
class EnumerationMemberRangeView;
class EventDefinitionRangeView;
class ExpressionRangeView;
class IdentifierRangeView;
class InputParameterRangeView;
class MethodRangeView;
class NodeRangeView;
class PropertyDefinitionRangeView;
class RowRangeView;
class StatementRangeView;

/// The one door through which the library sees a program.
///
/// The owner of a tree derives from this class; the library never does, and reaches every node,
/// range and symbol through a pointer to it. How the tree is stored is the owner's affair. Derive
/// from `BasicAstView` instead to override only what the tree has.
///
/// Handles. A node, a symbol and a range are named by opaque 64-bit words (a range by two) that the
/// library hands back and never looks into. They, and the answers to all questions, must stay the
/// same for as long as the library works on the tree: handles are kept in sets and maps, the size
/// of a range is asked anew before each element, and an optional child is asked for once to see
/// whether it is there and again to use it.
///
/// Calls. An operation on a node is asked only of nodes of the kind that it stands under, so an
/// implementation need not check. Everything is called on the thread that called the library, with
/// no lock. An exception that leaves an operation passes unchanged through the library to its
/// caller.
///
/// Answers. Each operation says what it must return: a class of nodes (a statement, an expression)
/// or a kind, as listed in NodeKinds.def, and when the answer may be none, which is an empty
/// `boost::optional`. *Only walked* means that a walk visits the node and nothing else looks at it,
/// so that any kind will do. A range accessor returns a range view (RangeViews.h), whose words are
/// the implementation's own; any range may be empty. The index of an element operation counts from
/// 0 and is below the range's size.
///
/// Order. The order of the declarations is part of the binary interface. Operations under
/// "Reserved" keep a place and the library doesn't call them: give them any answer.
class ZT_ORVEX_EXPORT IAstView {
public:
    virtual ~IAstView();

    // Symbols
    /// Whether the symbol is a variable: reads of others don't count. Asked on the pointer that the
    /// `SymbolView` carries.
    virtual bool isVariableSymbol(std::uint64_t symbol) const = 0;

    // The tree as a whole
    /// The pseudo node that marks the beginning of an analysed range of statements. Asked on the
    /// pointer of the range, passed to no other operation and only compared by handle: the handles
    /// of the two pseudo nodes must differ from each other and from those of all real nodes.
    virtual NodeView getEntryNode() const = 0;
    /// The pseudo node that marks its end, as `getEntryNode`.
    virtual NodeView getExitNode() const = 0;

    // Reserved
    /// Keeps a place and is never called: give it any answer.
    virtual std::uint64_t reservedOperation4() const = 0;
    virtual std::uint64_t reservedOperation5() const = 0;

    // AnonymousFunction
    /// The parameters: a range of `InputParameter`.
    virtual InputParameterRangeView getAnonymousFunctionParameters(std::uint64_t node) const = 0;
    /// The body: an expression.
    virtual NodeView getAnonymousFunctionBody(std::uint64_t node) const = 0;

    // Range of ArgumentsBlock
    /// An `ArgumentsBlock`: element `index`.
    virtual NodeView getArgumentsBlockRangeElement(std::uint64_t index, std::uint64_t first,
                                                   std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getArgumentsBlockRangeSize(std::uint64_t first,
                                                     std::uint64_t second) const = 0;

    // ArgumentsBlock
    /// The attributes after the keyword: a range of `Attribute`.
    virtual AttributeRangeView getArgumentsBlockAttributes(std::uint64_t node) const = 0;
    /// The lines of the block: a range of `ArgumentDeclaration`.
    virtual ArgumentDeclarationRangeView
    getArgumentsBlockDeclarations(std::uint64_t node) const = 0;

    // Range of ArgumentDeclaration
    /// An `ArgumentDeclaration`: element `index`.
    virtual NodeView getArgumentDeclarationRangeElement(std::uint64_t index, std::uint64_t first,
                                                        std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getArgumentDeclarationRangeSize(std::uint64_t first,
                                                          std::uint64_t second) const = 0;

    // ArgumentDeclaration
    /// The declared name, only walked: any node, as a rule an `Identifier`.
    virtual NodeView getArgumentDeclarationName(std::uint64_t node) const = 0;
    /// Only walked: any node, or none.
    virtual boost::optional<NodeView> getArgumentDeclarationPart1(std::uint64_t node) const = 0;
    /// Only walked: any node, or none.
    virtual boost::optional<NodeView> getArgumentDeclarationPart2(std::uint64_t node) const = 0;
    /// Only walked: any node, or none.
    virtual boost::optional<NodeView> getArgumentDeclarationPart3(std::uint64_t node) const = 0;
    /// Only walked: any node, or none.
    virtual boost::optional<NodeView> getArgumentDeclarationPart4(std::uint64_t node) const = 0;

    // AssignmentStatement
    /// What is written: an expression.
    virtual NodeView getAssignmentLhs(std::uint64_t node) const = 0;
    /// What is read: an expression.
    virtual NodeView getAssignmentRhs(std::uint64_t node) const = 0;

    // Range of Attribute
    /// An `Attribute`: element `index`.
    virtual NodeView getAttributeRangeElement(std::uint64_t index, std::uint64_t first,
                                              std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getAttributeRangeSize(std::uint64_t first,
                                                std::uint64_t second) const = 0;

    // Attribute
    /// The name, only walked: any node, as a rule an `Identifier`.
    virtual NodeView getAttributeName(std::uint64_t node) const = 0;
    /// The value, only walked: any node, or none where the attribute is a name alone.
    virtual boost::optional<NodeView> getAttributeValue(std::uint64_t node) const = 0;

    // Reserved
    /// Keeps a place and is never called: give it any answer.
    virtual std::uint64_t getAttributeExtra(std::uint64_t node) const = 0;

    // BareIdentifierStatement
    /// The name, which counts as written: an expression, as a rule an `Identifier`.
    virtual NodeView getBareIdentifier(std::uint64_t node) const = 0;

    // Reserved
    /// Keeps a place and is never called: give it any answer.
    virtual std::uint64_t getBareStatementExtra(std::uint64_t node) const = 0;

    // BinaryOperation
    /// The operator.
    virtual BinaryOperator getBinaryOperator(std::uint64_t node) const = 0;
    /// The left operand: an expression.
    virtual NodeView getBinaryLhs(std::uint64_t node) const = 0;
    /// The right operand: an expression.
    virtual NodeView getBinaryRhs(std::uint64_t node) const = 0;

    // BraceOperation
    /// What stands before the braces: an expression.
    virtual NodeView getBraceBase(std::uint64_t node) const = 0;
    /// What stands between the braces: a range of expressions.
    virtual ExpressionRangeView getBraceArguments(std::uint64_t node) const = 0;

    // Range of CaseClause
    /// A `CaseClause`: element `index`.
    virtual NodeView getCaseClauseRangeElement(std::uint64_t index, std::uint64_t first,
                                               std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getCaseClauseRangeSize(std::uint64_t first,
                                                 std::uint64_t second) const = 0;

    // CaseClause
    /// The statements of the clause.
    virtual StatementRangeView getCaseBody(std::uint64_t node) const = 0;
    /// What the subject is compared with: an expression.
    virtual NodeView getCaseExpression(std::uint64_t node) const = 0;

    // CatchClause
    /// The variable that receives the error: an `Identifier`, or none where the clause names none.
    virtual boost::optional<NodeView> getCatchIdentifier(std::uint64_t node) const = 0;
    /// The statements of the clause.
    virtual StatementRangeView getCatchBody(std::uint64_t node) const = 0;

    // Range of command words
    /// A `CharacterLiteral`: element `index`.
    virtual NodeView getCommandWordRangeElement(std::uint64_t index, std::uint64_t first,
                                                std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getCommandWordRangeSize(std::uint64_t first,
                                                  std::uint64_t second) const = 0;

    // Reserved
    /// Keeps a place and is never called: give it any answer.
    virtual std::uint64_t getCharacterLiteralText(std::uint64_t node) const = 0;

    // CharacterLiteral
    /// Only walked: any node, or none.
    virtual boost::optional<NodeView> getCharacterLiteralPart(std::uint64_t node) const = 0;

    // CellArray
    /// The rows: a range of `Row`.
    virtual RowRangeView getCellArrayRows(std::uint64_t node) const = 0;

    // ClassDefinition
    /// The attributes after the keyword: a range of `Attribute`.
    virtual AttributeRangeView getClassAttributes(std::uint64_t node) const = 0;
    /// The name, only walked: any node, as a rule an `Identifier`.
    virtual NodeView getClassName(std::uint64_t node) const = 0;
    /// The classes that it derives from: a range of `Identifier`.
    virtual IdentifierRangeView getClassSuperclasses(std::uint64_t node) const = 0;
    /// The blocks of the class: a range of nodes of any kind.
    virtual NodeRangeView getClassMembers(std::uint64_t node) const = 0;

    // ColonOperation
    /// The first value: an expression.
    virtual NodeView getColonStart(std::uint64_t node) const = 0;
    /// The step: an expression, or none in `a:b`.
    virtual boost::optional<NodeView> getColonStep(std::uint64_t node) const = 0;
    /// The last value: an expression.
    virtual NodeView getColonStop(std::uint64_t node) const = 0;

    // CommandStatement
    /// What the command's value is written to: an expression, as a rule an `Identifier` `ans`.
    virtual NodeView getCommandTarget(std::uint64_t node) const = 0;
    /// What is called, which counts as read: an expression, as a rule an `Identifier`.
    virtual NodeView getCommandCallee(std::uint64_t node) const = 0;
    /// The words after the callee: a range of `CharacterLiteral`.
    virtual CommandWordRangeView getCommandWords(std::uint64_t node) const = 0;

    // DotOperation
    /// What stands before the dot: an expression.
    virtual NodeView getDotBase(std::uint64_t node) const = 0;
    /// The field's name, only walked: any node, as a rule an `Identifier`.
    virtual NodeView getDotField(std::uint64_t node) const = 0;

    // DynamicFieldOperation
    /// What stands before the dot: an expression.
    virtual NodeView getDynamicFieldBase(std::uint64_t node) const = 0;
    /// What the field's name is computed from: an expression.
    virtual NodeView getDynamicFieldExpression(std::uint64_t node) const = 0;

    // ElseClause
    /// The statements of the clause.
    virtual StatementRangeView getElseBody(std::uint64_t node) const = 0;

    // Range of ElseIfClause
    /// An `ElseIfClause`: element `index`.
    virtual NodeView getElseIfClauseRangeElement(std::uint64_t index, std::uint64_t first,
                                                 std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getElseIfClauseRangeSize(std::uint64_t first,
                                                   std::uint64_t second) const = 0;

    // ElseIfClause
    /// The statements of the clause.
    virtual StatementRangeView getElseIfBody(std::uint64_t node) const = 0;
    /// The condition: an expression.
    virtual NodeView getElseIfCondition(std::uint64_t node) const = 0;

    // EnumerationBlock
    /// The attributes after the keyword: a range of `Attribute`.
    virtual AttributeRangeView getEnumerationBlockAttributes(std::uint64_t node) const = 0;
    /// The members: a range of `EnumerationMember`.
    virtual EnumerationMemberRangeView getEnumerationBlockMembers(std::uint64_t node) const = 0;

    // Range of EnumerationMember
    /// An `EnumerationMember`: element `index`.
    virtual NodeView getEnumerationMemberRangeElement(std::uint64_t index, std::uint64_t first,
                                                      std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getEnumerationMemberRangeSize(std::uint64_t first,
                                                        std::uint64_t second) const = 0;

    // EnumerationMember
    /// The name, only walked: any node, as a rule an `Identifier`.
    virtual NodeView getEnumerationMemberName(std::uint64_t node) const = 0;
    /// What stands in the member's parentheses: a range of expressions.
    virtual ExpressionRangeView getEnumerationMemberArguments(std::uint64_t node) const = 0;

    // Range of expressions
    /// An expression: element `index`.
    virtual NodeView getExpressionRangeElement(std::uint64_t index, std::uint64_t first,
                                               std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getExpressionRangeSize(std::uint64_t first,
                                                 std::uint64_t second) const = 0;

    // ExpressionStatement
    /// What the value is written to: an expression, as a rule an `Identifier` `ans`.
    virtual NodeView getExpressionStatementTarget(std::uint64_t node) const = 0;
    /// What is evaluated: an expression.
    virtual NodeView getExpressionStatementExpression(std::uint64_t node) const = 0;

    // Range of EventDefinition
    /// An `EventDefinition`: element `index`.
    virtual NodeView getEventDefinitionRangeElement(std::uint64_t index, std::uint64_t first,
                                                    std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getEventDefinitionRangeSize(std::uint64_t first,
                                                      std::uint64_t second) const = 0;

    // EventsBlock
    /// The attributes after the keyword: a range of `Attribute`.
    virtual AttributeRangeView getEventsBlockAttributes(std::uint64_t node) const = 0;
    /// The events: a range of `EventDefinition`.
    virtual EventDefinitionRangeView getEventsBlockEvents(std::uint64_t node) const = 0;

    // EventDefinition
    /// The name, only walked: any node, as a rule an `Identifier`.
    virtual NodeView getEventName(std::uint64_t node) const = 0;
    /// Only walked: any node, or none.
    virtual boost::optional<NodeView> getEventPart(std::uint64_t node) const = 0;

    // Reserved
    /// Keeps a place and is never called: give it any answer.
    virtual std::uint64_t getFillerExtra(std::uint64_t node) const = 0;

    // ForStatement
    /// The loop variable: an `Identifier`. Its symbol is asked without asking for its kind first.
    virtual NodeView getForVariable(std::uint64_t node) const = 0;
    /// What the loop runs over: an expression.
    virtual NodeView getForExpression(std::uint64_t node) const = 0;
    /// The statements of the loop.
    virtual StatementRangeView getForBody(std::uint64_t node) const = 0;

    // FunctionDefinition
    /// The outputs: a range of `Identifier`.
    virtual IdentifierRangeView getFunctionOutputs(std::uint64_t node) const = 0;
    /// The name, only walked: any node, as a rule an `Identifier`.
    virtual NodeView getFunctionName(std::uint64_t node) const = 0;
    /// The inputs: a range of `InputParameter`.
    virtual InputParameterRangeView getFunctionInputs(std::uint64_t node) const = 0;
    /// Only walked, and required: any node, such as a `FillerNode`.
    virtual NodeView getFunctionPart(std::uint64_t node) const = 0;
    /// The blocks at the head of the function: a range of `ArgumentsBlock`.
    virtual ArgumentsBlockRangeView getFunctionArgumentsBlocks(std::uint64_t node) const = 0;
    /// The statements of the function: a range of nodes of any kind.
    virtual NodeRangeView getFunctionMembers(std::uint64_t node) const = 0;

    // GlobalDeclaration
    /// The declared names: a range of `Identifier`.
    virtual IdentifierRangeView getGlobalIdentifiers(std::uint64_t node) const = 0;

    // Range of Identifier
    /// An `Identifier`: element `index`.
    virtual NodeView getIdentifierRangeElement(std::uint64_t index, std::uint64_t first,
                                               std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getIdentifierRangeSize(std::uint64_t first,
                                                 std::uint64_t second) const = 0;

    // Identifier
    /// The spelling, in UTF-16; must stay valid as long as the tree. The analyses know `ans`.
    virtual std::u16string_view getIdentifierName(std::uint64_t node) const = 0;
    /// What the name means where it stands: equal names of one scope have one symbol.
    virtual SymbolView getIdentifierSymbol(std::uint64_t node) const = 0;

    // IfStatement
    /// The condition: an expression.
    virtual NodeView getIfCondition(std::uint64_t node) const = 0;
    /// The statements before the first clause.
    virtual StatementRangeView getIfBody(std::uint64_t node) const = 0;
    /// The clauses with a condition: a range of `ElseIfClause`.
    virtual ElseIfClauseRangeView getIfElseIfClauses(std::uint64_t node) const = 0;
    /// The last clause: an `ElseClause`, or none.
    virtual boost::optional<NodeView> getIfElseClause(std::uint64_t node) const = 0;

    // ImplicitCommandStatement
    /// What the command's value is written to: an expression, as a rule an `Identifier` `ans`.
    virtual NodeView getImplicitCommandTarget(std::uint64_t node) const = 0;
    /// The words of the command: a range of `CharacterLiteral`.
    virtual CommandWordRangeView getImplicitCommandWords(std::uint64_t node) const = 0;

    // Range of InputParameter
    /// An `InputParameter`: element `index`.
    virtual NodeView getInputParameterRangeElement(std::uint64_t index, std::uint64_t first,
                                                   std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getInputParameterRangeSize(std::uint64_t first,
                                                     std::uint64_t second) const = 0;

    // InputParameter
    /// The kind of the node that the parameter holds: `Identifier` or `IgnoredArgument`. A walk
    /// asks only the matching one of the two accessors below, and neither at any other answer.
    virtual NodeKind getInputParameterKind(std::uint64_t node) const = 0;
    /// The parameter's name: an `Identifier`, or none where the kind is another.
    virtual boost::optional<NodeView> getInputParameterIdentifier(std::uint64_t node) const = 0;
    /// The `~` in place of a name: an `IgnoredArgument`, or none where the kind is another.
    virtual boost::optional<NodeView> getInputParameterIgnored(std::uint64_t node) const = 0;

    // Matrix
    /// The rows: a range of `Row`.
    virtual RowRangeView getMatrixRows(std::uint64_t node) const = 0;

    // MethodDefinition
    /// Only walked, and required: any node, such as a `FillerNode`.
    virtual NodeView getMethodPart(std::uint64_t node) const = 0;
    /// The blocks at the head of the method: a range of `ArgumentsBlock`.
    virtual ArgumentsBlockRangeView getMethodArgumentsBlocks(std::uint64_t node) const = 0;
    /// The statements of the method: a range of nodes of any kind.
    virtual NodeRangeView getMethodMembers(std::uint64_t node) const = 0;

    // MethodsBlock
    /// The attributes after the keyword: a range of `Attribute`.
    virtual AttributeRangeView getMethodsBlockAttributes(std::uint64_t node) const = 0;
    /// The methods: a range of `MethodDeclaration` and `MethodDefinition`.
    virtual MethodRangeView getMethodsBlockMethods(std::uint64_t node) const = 0;

    // MethodDeclaration and MethodDefinition
    /// The outputs: a range of `Identifier`.
    virtual IdentifierRangeView getMethodOutputs(std::uint64_t node) const = 0;
    /// The name, only walked: any node, as a rule an `Identifier`.
    virtual NodeView getMethodName(std::uint64_t node) const = 0;
    /// The inputs: a range of `InputParameter`.
    virtual InputParameterRangeView getMethodInputs(std::uint64_t node) const = 0;

    // Range of methods
    /// A `MethodDeclaration` or `MethodDefinition`: element `index`.
    virtual NodeView getMethodRangeElement(std::uint64_t index, std::uint64_t first,
                                           std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getMethodRangeSize(std::uint64_t first, std::uint64_t second) const = 0;

    // MultiAssignmentStatement
    /// What is written: a range of expressions, with an `IgnoredArgument` for a `~`.
    virtual ExpressionRangeView getMultiAssignmentTargets(std::uint64_t node) const = 0;
    /// What is read: an expression.
    virtual NodeView getMultiAssignmentRhs(std::uint64_t node) const = 0;

    // NamedArgument
    /// The name, only walked: any node, as a rule an `Identifier`.
    virtual NodeView getNamedArgumentName(std::uint64_t node) const = 0;
    /// The value: an expression.
    virtual NodeView getNamedArgumentValue(std::uint64_t node) const = 0;

    // Reserved
    /// Keeps a place and is never called: give it any answer.
    virtual std::uint64_t getNamedArgumentExtra(std::uint64_t node) const = 0;

    // Any node
    /// The kind: the one operation that is valid on every node, asked first.
    virtual NodeKind getNodeKind(std::uint64_t node) const = 0;

    // Reserved
    /// Keeps a place and is never called: give it any answer.
    virtual std::uint64_t getNodeExtra(std::uint64_t node) const = 0;

    // Range of nodes
    /// A node of any kind: element `index`.
    virtual NodeView getNodeRangeElement(std::uint64_t index, std::uint64_t first,
                                         std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getNodeRangeSize(std::uint64_t first, std::uint64_t second) const = 0;

    // Reserved
    /// Keeps a place and is never called: give it any answer.
    virtual std::uint64_t getNumberOperation1(std::uint64_t node) const = 0;
    virtual std::uint64_t getNumberOperation2(std::uint64_t node) const = 0;
    virtual std::uint64_t getNumberOperation3(std::uint64_t node) const = 0;
    virtual std::uint64_t getNumberOperation4(std::uint64_t node) const = 0;
    virtual std::uint64_t getNumberOperation5(std::uint64_t node) const = 0;
    virtual std::uint64_t getNumberOperation6(std::uint64_t node) const = 0;

    // OtherwiseClause
    /// The statements of the clause.
    virtual StatementRangeView getOtherwiseBody(std::uint64_t node) const = 0;

    // ParenOperation
    /// What stands before the parentheses: an expression.
    virtual NodeView getParenBase(std::uint64_t node) const = 0;
    /// What stands between the parentheses: a range of expressions.
    virtual ExpressionRangeView getParenArguments(std::uint64_t node) const = 0;

    // ParenthesizedExpression
    /// What stands between the parentheses: an expression.
    virtual NodeView getParenthesizedInner(std::uint64_t node) const = 0;

    // ParforStatement
    /// What follows the loop expression in parentheses: a range of expressions.
    virtual ExpressionRangeView getParforOptions(std::uint64_t node) const = 0;
    /// The loop variable: an `Identifier`.
    virtual NodeView getParforVariable(std::uint64_t node) const = 0;
    /// What the loop runs over: an expression.
    virtual NodeView getParforExpression(std::uint64_t node) const = 0;
    /// The statements of the loop.
    virtual StatementRangeView getParforBody(std::uint64_t node) const = 0;

    // PersistentDeclaration
    /// The declared names: a range of `Identifier`.
    virtual IdentifierRangeView getPersistentIdentifiers(std::uint64_t node) const = 0;

    // PrintStatement
    /// The statement whose result is printed.
    virtual NodeView getPrintedStatement(std::uint64_t node) const = 0;

    // Program
    /// What the file holds: a range of nodes of any kind.
    virtual NodeRangeView getProgramNodes(std::uint64_t node) const = 0;

    // Range of PropertyDefinition
    /// A `PropertyDefinition`: element `index`.
    virtual NodeView getPropertyDefinitionRangeElement(std::uint64_t index, std::uint64_t first,
                                                       std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getPropertyDefinitionRangeSize(std::uint64_t first,
                                                         std::uint64_t second) const = 0;

    // PropertyDefinition
    /// The name, only walked: any node, as a rule an `Identifier`.
    virtual NodeView getPropertyName(std::uint64_t node) const = 0;
    /// Only walked: any node, or none.
    virtual boost::optional<NodeView> getPropertyPart1(std::uint64_t node) const = 0;
    /// Only walked: any node, or none.
    virtual boost::optional<NodeView> getPropertyPart2(std::uint64_t node) const = 0;

    // PropertiesBlock
    /// The attributes after the keyword: a range of `Attribute`.
    virtual AttributeRangeView getPropertiesBlockAttributes(std::uint64_t node) const = 0;
    /// The properties: a range of `PropertyDefinition`.
    virtual PropertyDefinitionRangeView getPropertiesBlockProperties(std::uint64_t node) const = 0;

    // Range of Row
    /// A `Row`: element `index`.
    virtual NodeView getRowRangeElement(std::uint64_t index, std::uint64_t first,
                                        std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getRowRangeSize(std::uint64_t first, std::uint64_t second) const = 0;

    // Row
    /// The elements of the row: a range of expressions.
    virtual ExpressionRangeView getRowExpressions(std::uint64_t node) const = 0;

    // SpmdStatement
    /// What follows the keyword in parentheses: a range of expressions.
    virtual ExpressionRangeView getSpmdOptions(std::uint64_t node) const = 0;
    /// The statements of the block.
    virtual StatementRangeView getSpmdBody(std::uint64_t node) const = 0;

    // Range of statements
    /// A statement: element `index`.
    virtual NodeView getStatementRangeElement(std::uint64_t index, std::uint64_t first,
                                              std::uint64_t second) const = 0;
    /// How many elements the range has.
    virtual std::uint64_t getStatementRangeSize(std::uint64_t first,
                                                std::uint64_t second) const = 0;

    // Reserved
    /// Keeps a place and is never called: give it any answer.
    virtual std::uint64_t getStringLiteralText(std::uint64_t node) const = 0;

    // StringLiteral
    /// Only walked: any node, or none.
    virtual boost::optional<NodeView> getStringLiteralPart(std::uint64_t node) const = 0;

    // SwitchStatement
    /// What is compared with the cases: an expression.
    virtual NodeView getSwitchSubject(std::uint64_t node) const = 0;
    /// The cases: a range of `CaseClause`.
    virtual CaseClauseRangeView getSwitchCases(std::uint64_t node) const = 0;
    /// The last clause: an `OtherwiseClause`, or none.
    virtual boost::optional<NodeView> getSwitchOtherwise(std::uint64_t node) const = 0;

    // TryStatement
    /// The clause that handles errors: a `CatchClause`, or none.
    virtual boost::optional<NodeView> getTryCatch(std::uint64_t node) const = 0;
    /// The statements before the clause.
    virtual StatementRangeView getTryBody(std::uint64_t node) const = 0;

    // UnaryOperation
    /// The operator. The library doesn't ask for it.
    virtual UnaryOperator getUnaryOperator(std::uint64_t node) const = 0;
    /// The operand: an expression.
    virtual NodeView getUnaryOperand(std::uint64_t node) const = 0;

    // ValidationSpecification
    /// Only walked: a range of expressions, such as the sizes.
    virtual ExpressionRangeView getValidationFirstExpressions(std::uint64_t node) const = 0;
    /// Only walked: any node, such as the type, or none.
    virtual boost::optional<NodeView> getValidationPart(std::uint64_t node) const = 0;
    /// Only walked: a range of expressions, such as the checks.
    virtual ExpressionRangeView getValidationSecondExpressions(std::uint64_t node) const = 0;

    // WhileStatement
    /// The condition: an expression.
    virtual NodeView getWhileCondition(std::uint64_t node) const = 0;
    /// The statements of the loop.
    virtual StatementRangeView getWhileBody(std::uint64_t node) const = 0;

    IAstView();
    /// @{
    /// Copies nothing: there is nothing to copy.
    IAstView(const IAstView& other);
    IAstView& operator=(const IAstView& other);
    /// @}
};

inline NodeKind NodeView::getKind() const { return view->getNodeKind(node); }

} // namespace zt::orvex
