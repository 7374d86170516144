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
/// range and symbol through a pointer to it. How the tree is stored is the owner's affair.
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
/// Order. The order of the declarations is part of the binary interface. Operations under
/// "Not settled" keep a place and are called by nobody here: give them any answer.
///
/// A range accessor gives a range view (RangeViews.h), whose words are the implementation's own;
/// its element operation takes a zero-based index below the range's size. An optional child is an
/// empty `boost::optional` where the part is absent.
class ZT_ORVEX_EXPORT IAstView {
public:
    virtual ~IAstView();

    // Symbols
    /// Whether reads of this symbol count. Asked on the pointer that the `SymbolView` carries.
    virtual bool isVariableSymbol(std::uint64_t symbol) const = 0;

    // The view as a whole
    /// The pseudo nodes that mark the beginning and the end of an analysed statement range. Asked
    /// on the pointer of the range, passed to no other operation and only compared by handle: their
    /// handles must differ from each other and from those of all real nodes.
    virtual NodeView getEntryNode() const = 0;
    virtual NodeView getExitNode() const = 0;

    // Not settled
    virtual std::uint64_t reservedOperation4() const = 0;
    virtual std::uint64_t reservedOperation5() const = 0;

    // AnonymousFunction
    virtual InputParameterRangeView getAnonymousFunctionParameters(std::uint64_t node) const = 0;
    virtual NodeView getAnonymousFunctionBody(std::uint64_t node) const = 0;

    // Range of ArgumentsBlock
    virtual NodeView getArgumentsBlockRangeElement(std::uint64_t index, std::uint64_t first,
                                                   std::uint64_t second) const = 0;
    virtual std::uint64_t getArgumentsBlockRangeSize(std::uint64_t first,
                                                     std::uint64_t second) const = 0;

    // ArgumentsBlock
    virtual AttributeRangeView getArgumentsBlockAttributes(std::uint64_t node) const = 0;
    virtual ArgumentDeclarationRangeView
    getArgumentsBlockDeclarations(std::uint64_t node) const = 0;

    // Range of ArgumentDeclaration
    virtual NodeView getArgumentDeclarationRangeElement(std::uint64_t index, std::uint64_t first,
                                                        std::uint64_t second) const = 0;
    virtual std::uint64_t getArgumentDeclarationRangeSize(std::uint64_t first,
                                                          std::uint64_t second) const = 0;

    // ArgumentDeclaration
    virtual NodeView getArgumentDeclarationName(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getArgumentDeclarationPart1(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getArgumentDeclarationPart2(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getArgumentDeclarationPart3(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getArgumentDeclarationPart4(std::uint64_t node) const = 0;

    // AssignmentStatement
    virtual NodeView getAssignmentLhs(std::uint64_t node) const = 0;
    virtual NodeView getAssignmentRhs(std::uint64_t node) const = 0;

    // Range of Attribute
    virtual NodeView getAttributeRangeElement(std::uint64_t index, std::uint64_t first,
                                              std::uint64_t second) const = 0;
    virtual std::uint64_t getAttributeRangeSize(std::uint64_t first,
                                                std::uint64_t second) const = 0;

    // Attribute
    virtual NodeView getAttributeName(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getAttributeValue(std::uint64_t node) const = 0;

    // Not settled
    virtual std::uint64_t getAttributeExtra(std::uint64_t node) const = 0;

    // BareIdentifierStatement
    virtual NodeView getBareIdentifier(std::uint64_t node) const = 0;

    // Not settled
    virtual std::uint64_t getBareStatementExtra(std::uint64_t node) const = 0;

    // BinaryOperation
    virtual BinaryOperator getBinaryOperator(std::uint64_t node) const = 0;
    virtual NodeView getBinaryLhs(std::uint64_t node) const = 0;
    virtual NodeView getBinaryRhs(std::uint64_t node) const = 0;

    // BraceOperation
    virtual NodeView getBraceBase(std::uint64_t node) const = 0;
    virtual ExpressionRangeView getBraceArguments(std::uint64_t node) const = 0;

    // Range of CaseClause
    virtual NodeView getCaseClauseRangeElement(std::uint64_t index, std::uint64_t first,
                                               std::uint64_t second) const = 0;
    virtual std::uint64_t getCaseClauseRangeSize(std::uint64_t first,
                                                 std::uint64_t second) const = 0;

    // CaseClause
    virtual StatementRangeView getCaseBody(std::uint64_t node) const = 0;
    virtual NodeView getCaseExpression(std::uint64_t node) const = 0;

    // CatchClause
    virtual boost::optional<NodeView> getCatchIdentifier(std::uint64_t node) const = 0;
    virtual StatementRangeView getCatchBody(std::uint64_t node) const = 0;

    // Range of command words
    virtual NodeView getCommandWordRangeElement(std::uint64_t index, std::uint64_t first,
                                                std::uint64_t second) const = 0;
    virtual std::uint64_t getCommandWordRangeSize(std::uint64_t first,
                                                  std::uint64_t second) const = 0;

    // Not settled
    virtual std::uint64_t getCharacterLiteralText(std::uint64_t node) const = 0;

    // CharacterLiteral
    virtual boost::optional<NodeView> getCharacterLiteralPart(std::uint64_t node) const = 0;

    // CellArray
    virtual RowRangeView getCellArrayRows(std::uint64_t node) const = 0;

    // ClassDefinition
    virtual AttributeRangeView getClassAttributes(std::uint64_t node) const = 0;
    virtual NodeView getClassName(std::uint64_t node) const = 0;
    virtual IdentifierRangeView getClassSuperclasses(std::uint64_t node) const = 0;
    virtual NodeRangeView getClassMembers(std::uint64_t node) const = 0;

    // ColonOperation
    virtual NodeView getColonStart(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getColonStep(std::uint64_t node) const = 0;
    virtual NodeView getColonStop(std::uint64_t node) const = 0;

    // CommandStatement
    virtual NodeView getCommandTarget(std::uint64_t node) const = 0;
    virtual NodeView getCommandCallee(std::uint64_t node) const = 0;
    virtual CommandWordRangeView getCommandWords(std::uint64_t node) const = 0;

    // DotOperation
    virtual NodeView getDotBase(std::uint64_t node) const = 0;
    virtual NodeView getDotField(std::uint64_t node) const = 0;

    // DynamicFieldOperation
    virtual NodeView getDynamicFieldBase(std::uint64_t node) const = 0;
    virtual NodeView getDynamicFieldExpression(std::uint64_t node) const = 0;

    // ElseClause
    virtual StatementRangeView getElseBody(std::uint64_t node) const = 0;

    // Range of ElseIfClause
    virtual NodeView getElseIfClauseRangeElement(std::uint64_t index, std::uint64_t first,
                                                 std::uint64_t second) const = 0;
    virtual std::uint64_t getElseIfClauseRangeSize(std::uint64_t first,
                                                   std::uint64_t second) const = 0;

    // ElseIfClause
    virtual StatementRangeView getElseIfBody(std::uint64_t node) const = 0;
    virtual NodeView getElseIfCondition(std::uint64_t node) const = 0;

    // EnumerationBlock
    virtual AttributeRangeView getEnumerationBlockAttributes(std::uint64_t node) const = 0;
    virtual EnumerationMemberRangeView getEnumerationBlockMembers(std::uint64_t node) const = 0;

    // Range of EnumerationMember
    virtual NodeView getEnumerationMemberRangeElement(std::uint64_t index, std::uint64_t first,
                                                      std::uint64_t second) const = 0;
    virtual std::uint64_t getEnumerationMemberRangeSize(std::uint64_t first,
                                                        std::uint64_t second) const = 0;

    // EnumerationMember
    virtual NodeView getEnumerationMemberName(std::uint64_t node) const = 0;
    virtual ExpressionRangeView getEnumerationMemberArguments(std::uint64_t node) const = 0;

    // Range of expressions
    virtual NodeView getExpressionRangeElement(std::uint64_t index, std::uint64_t first,
                                               std::uint64_t second) const = 0;
    virtual std::uint64_t getExpressionRangeSize(std::uint64_t first,
                                                 std::uint64_t second) const = 0;

    // ExpressionStatement
    virtual NodeView getExpressionStatementTarget(std::uint64_t node) const = 0;
    virtual NodeView getExpressionStatementExpression(std::uint64_t node) const = 0;

    // Range of EventDefinition
    virtual NodeView getEventDefinitionRangeElement(std::uint64_t index, std::uint64_t first,
                                                    std::uint64_t second) const = 0;
    virtual std::uint64_t getEventDefinitionRangeSize(std::uint64_t first,
                                                      std::uint64_t second) const = 0;

    // EventsBlock
    virtual AttributeRangeView getEventsBlockAttributes(std::uint64_t node) const = 0;
    virtual EventDefinitionRangeView getEventsBlockEvents(std::uint64_t node) const = 0;

    // EventDefinition
    virtual NodeView getEventName(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getEventPart(std::uint64_t node) const = 0;

    // Not settled
    virtual std::uint64_t getFillerExtra(std::uint64_t node) const = 0;

    // ForStatement
    virtual NodeView getForVariable(std::uint64_t node) const = 0;
    virtual NodeView getForExpression(std::uint64_t node) const = 0;
    virtual StatementRangeView getForBody(std::uint64_t node) const = 0;

    // FunctionDefinition
    virtual IdentifierRangeView getFunctionOutputs(std::uint64_t node) const = 0;
    virtual NodeView getFunctionName(std::uint64_t node) const = 0;
    virtual InputParameterRangeView getFunctionInputs(std::uint64_t node) const = 0;
    virtual NodeView getFunctionPart(std::uint64_t node) const = 0;
    virtual ArgumentsBlockRangeView getFunctionArgumentsBlocks(std::uint64_t node) const = 0;
    virtual NodeRangeView getFunctionMembers(std::uint64_t node) const = 0;

    // GlobalDeclaration
    virtual IdentifierRangeView getGlobalIdentifiers(std::uint64_t node) const = 0;

    // Range of Identifier
    virtual NodeView getIdentifierRangeElement(std::uint64_t index, std::uint64_t first,
                                               std::uint64_t second) const = 0;
    virtual std::uint64_t getIdentifierRangeSize(std::uint64_t first,
                                                 std::uint64_t second) const = 0;

    // Identifier
    /// The spelling, in UTF-16; must stay valid as long as the tree.
    virtual std::u16string_view getIdentifierName(std::uint64_t node) const = 0;
    virtual SymbolView getIdentifierSymbol(std::uint64_t node) const = 0;

    // IfStatement
    virtual NodeView getIfCondition(std::uint64_t node) const = 0;
    virtual StatementRangeView getIfBody(std::uint64_t node) const = 0;
    virtual ElseIfClauseRangeView getIfElseIfClauses(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getIfElseClause(std::uint64_t node) const = 0;

    // ImplicitCommandStatement
    virtual NodeView getImplicitCommandTarget(std::uint64_t node) const = 0;
    virtual CommandWordRangeView getImplicitCommandWords(std::uint64_t node) const = 0;

    // Range of InputParameter
    virtual NodeView getInputParameterRangeElement(std::uint64_t index, std::uint64_t first,
                                                   std::uint64_t second) const = 0;
    virtual std::uint64_t getInputParameterRangeSize(std::uint64_t first,
                                                     std::uint64_t second) const = 0;

    // InputParameter
    /// The kind of the node that the parameter holds: `Identifier` or `IgnoredArgument`. Walkers
    /// ask only the matching accessor of the two below, and visit no child at any other answer.
    virtual NodeKind getInputParameterKind(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getInputParameterIdentifier(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getInputParameterIgnored(std::uint64_t node) const = 0;

    // Matrix
    virtual RowRangeView getMatrixRows(std::uint64_t node) const = 0;

    // MethodDefinition
    virtual NodeView getMethodPart(std::uint64_t node) const = 0;
    virtual ArgumentsBlockRangeView getMethodArgumentsBlocks(std::uint64_t node) const = 0;
    virtual NodeRangeView getMethodMembers(std::uint64_t node) const = 0;

    // MethodsBlock
    virtual AttributeRangeView getMethodsBlockAttributes(std::uint64_t node) const = 0;
    virtual MethodRangeView getMethodsBlockMethods(std::uint64_t node) const = 0;

    // MethodDeclaration and MethodDefinition
    virtual IdentifierRangeView getMethodOutputs(std::uint64_t node) const = 0;
    virtual NodeView getMethodName(std::uint64_t node) const = 0;
    virtual InputParameterRangeView getMethodInputs(std::uint64_t node) const = 0;

    // Range of methods
    virtual NodeView getMethodRangeElement(std::uint64_t index, std::uint64_t first,
                                           std::uint64_t second) const = 0;
    virtual std::uint64_t getMethodRangeSize(std::uint64_t first, std::uint64_t second) const = 0;

    // MultiAssignmentStatement
    virtual ExpressionRangeView getMultiAssignmentTargets(std::uint64_t node) const = 0;
    virtual NodeView getMultiAssignmentRhs(std::uint64_t node) const = 0;

    // NamedArgument
    virtual NodeView getNamedArgumentName(std::uint64_t node) const = 0;
    virtual NodeView getNamedArgumentValue(std::uint64_t node) const = 0;

    // Not settled
    virtual std::uint64_t getNamedArgumentExtra(std::uint64_t node) const = 0;

    // Every node
    /// The kind of any node: the one operation that is valid on every node, asked first.
    virtual NodeKind getNodeKind(std::uint64_t node) const = 0;

    // Not settled
    virtual std::uint64_t getNodeExtra(std::uint64_t node) const = 0;

    // Range of nodes
    virtual NodeView getNodeRangeElement(std::uint64_t index, std::uint64_t first,
                                         std::uint64_t second) const = 0;
    virtual std::uint64_t getNodeRangeSize(std::uint64_t first, std::uint64_t second) const = 0;

    // Not settled
    virtual std::uint64_t getNumberOperation1(std::uint64_t node) const = 0;
    virtual std::uint64_t getNumberOperation2(std::uint64_t node) const = 0;
    virtual std::uint64_t getNumberOperation3(std::uint64_t node) const = 0;
    virtual std::uint64_t getNumberOperation4(std::uint64_t node) const = 0;
    virtual std::uint64_t getNumberOperation5(std::uint64_t node) const = 0;
    virtual std::uint64_t getNumberOperation6(std::uint64_t node) const = 0;

    // OtherwiseClause
    virtual StatementRangeView getOtherwiseBody(std::uint64_t node) const = 0;

    // ParenOperation
    virtual NodeView getParenBase(std::uint64_t node) const = 0;
    virtual ExpressionRangeView getParenArguments(std::uint64_t node) const = 0;

    // ParenthesizedExpression
    virtual NodeView getParenthesizedInner(std::uint64_t node) const = 0;

    // ParforStatement
    virtual ExpressionRangeView getParforOptions(std::uint64_t node) const = 0;
    virtual NodeView getParforVariable(std::uint64_t node) const = 0;
    virtual NodeView getParforExpression(std::uint64_t node) const = 0;
    virtual StatementRangeView getParforBody(std::uint64_t node) const = 0;

    // PersistentDeclaration
    virtual IdentifierRangeView getPersistentIdentifiers(std::uint64_t node) const = 0;

    // PrintStatement
    virtual NodeView getPrintedStatement(std::uint64_t node) const = 0;

    // Program
    virtual NodeRangeView getProgramNodes(std::uint64_t node) const = 0;

    // Range of PropertyDefinition
    virtual NodeView getPropertyDefinitionRangeElement(std::uint64_t index, std::uint64_t first,
                                                       std::uint64_t second) const = 0;
    virtual std::uint64_t getPropertyDefinitionRangeSize(std::uint64_t first,
                                                         std::uint64_t second) const = 0;

    // PropertyDefinition
    virtual NodeView getPropertyName(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getPropertyPart1(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getPropertyPart2(std::uint64_t node) const = 0;

    // PropertiesBlock
    virtual AttributeRangeView getPropertiesBlockAttributes(std::uint64_t node) const = 0;
    virtual PropertyDefinitionRangeView getPropertiesBlockProperties(std::uint64_t node) const = 0;

    // Range of Row
    virtual NodeView getRowRangeElement(std::uint64_t index, std::uint64_t first,
                                        std::uint64_t second) const = 0;
    virtual std::uint64_t getRowRangeSize(std::uint64_t first, std::uint64_t second) const = 0;

    // Row
    virtual ExpressionRangeView getRowExpressions(std::uint64_t node) const = 0;

    // SpmdStatement
    virtual ExpressionRangeView getSpmdOptions(std::uint64_t node) const = 0;
    virtual StatementRangeView getSpmdBody(std::uint64_t node) const = 0;

    // Range of statements
    virtual NodeView getStatementRangeElement(std::uint64_t index, std::uint64_t first,
                                              std::uint64_t second) const = 0;
    virtual std::uint64_t getStatementRangeSize(std::uint64_t first,
                                                std::uint64_t second) const = 0;

    // Not settled
    virtual std::uint64_t getStringLiteralText(std::uint64_t node) const = 0;

    // StringLiteral
    virtual boost::optional<NodeView> getStringLiteralPart(std::uint64_t node) const = 0;

    // SwitchStatement
    virtual NodeView getSwitchSubject(std::uint64_t node) const = 0;
    virtual CaseClauseRangeView getSwitchCases(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getSwitchOtherwise(std::uint64_t node) const = 0;

    // TryStatement
    virtual boost::optional<NodeView> getTryCatch(std::uint64_t node) const = 0;
    virtual StatementRangeView getTryBody(std::uint64_t node) const = 0;

    // UnaryOperation
    virtual UnaryOperator getUnaryOperator(std::uint64_t node) const = 0;
    virtual NodeView getUnaryOperand(std::uint64_t node) const = 0;

    // ValidationSpecification
    virtual ExpressionRangeView getValidationFirstExpressions(std::uint64_t node) const = 0;
    virtual boost::optional<NodeView> getValidationPart(std::uint64_t node) const = 0;
    virtual ExpressionRangeView getValidationSecondExpressions(std::uint64_t node) const = 0;

    // WhileStatement
    virtual NodeView getWhileCondition(std::uint64_t node) const = 0;
    virtual StatementRangeView getWhileBody(std::uint64_t node) const = 0;

    IAstView();
    IAstView(const IAstView& other);
    /// Copies nothing: there is nothing to copy.
    IAstView& operator=(const IAstView& other);
};

inline NodeKind NodeView::getKind() const { return view->getNodeKind(node); }

} // namespace zt::orvex
