#include "syntax/Printer.h"

#include "source/Utf8.h"

#include <zt_orvex/ast/TypedViews.h>

#include <cstddef>
#include <string_view>

namespace ostrel {

using namespace zt::orvex;

namespace {

/// Prints nodes one behind the other; a statement prints its line without the line end.
class Printer {
public:
    explicit Printer(const Tree& of) : tree(of) {}

    std::string program() {
        for (const NodeView node : ProgramView(tree.root()).getProgramNodes())
            line(node);
        return text;
    }

private:
    // Lines

    void line(NodeView statement) {
        startLine();
        if (statement.getKind() == NodeKind::PrintStatement) {
            node(PrintStatementView(statement).getPrintedStatement());
        } else {
            node(statement);
            if (isSilent(statement.getKind())) text += ';';
        }
        text += '\n';
    }

    static bool isSilent(NodeKind kind) {
        return kind == NodeKind::AssignmentStatement || kind == NodeKind::ExpressionStatement ||
               kind == NodeKind::MultiAssignmentStatement;
    }

    void startLine() { text.append(4 * indent, ' '); }

    template <typename Range>
    void lines(const Range& range) {
        ++indent;
        for (const NodeView statement : range)
            line(statement);
        --indent;
    }

    /// A block's body behind its head, whose line is still open.
    template <typename Range>
    void body(const Range& range) {
        text += '\n';
        lines(range);
    }

    void end() {
        startLine();
        text += "end";
    }

    // Pieces

    template <typename Range>
    void list(const Range& range, std::string_view separator = ", ") {
        bool isFirst = true;
        for (const NodeView element : range) {
            if (!isFirst) text += separator;
            isFirst = false;
            node(element);
        }
    }

    template <typename Range>
    void listIn(char open, const Range& range, char close) {
        text += open;
        list(range);
        text += close;
    }

    template <typename Range>
    void listInIfAny(char open, const Range& range, char close) {
        if (range.size() > 0) listIn(open, range, close);
    }

    void pair(NodeView left, std::string_view between, NodeView right) {
        node(left);
        text += between;
        node(right);
    }

    void word(std::string_view keyword, NodeView operand) {
        text += keyword;
        text += ' ';
        node(operand);
    }

    // Nodes

    void node(NodeView of) {
        switch (of.getKind()) {
        case NodeKind::ArgumentDeclaration:
            return declaration(ArgumentDeclarationView(of).getArgumentDeclarationName(),
                               ArgumentDeclarationView(of).getArgumentDeclarationPart1(),
                               ArgumentDeclarationView(of).getArgumentDeclarationPart2());
        case NodeKind::ArgumentsBlock: {
            const ArgumentsBlockView view(of);
            return block("arguments", view.getArgumentsBlockAttributes(),
                         view.getArgumentsBlockDeclarations());
        }
        case NodeKind::Attribute:
            return attribute(AttributeView(of));
        case NodeKind::ClassDefinition:
            return classDefinition(ClassDefinitionView(of));
        case NodeKind::EnumerationBlock: {
            const EnumerationBlockView view(of);
            return block("enumeration", view.getEnumerationBlockAttributes(),
                         view.getEnumerationBlockMembers());
        }
        case NodeKind::EnumerationMember: {
            const EnumerationMemberView view(of);
            node(view.getEnumerationMemberName());
            return listInIfAny('(', view.getEnumerationMemberArguments(), ')');
        }
        case NodeKind::EventDefinition:
            return node(EventDefinitionView(of).getEventName());
        case NodeKind::EventsBlock: {
            const EventsBlockView view(of);
            return block("events", view.getEventsBlockAttributes(), view.getEventsBlockEvents());
        }
        case NodeKind::FunctionDefinition: {
            const FunctionDefinitionView view(of);
            return function(view.getFunctionOutputs(), view.getFunctionName(),
                            view.getFunctionInputs(), view.getFunctionArgumentsBlocks(),
                            view.getFunctionMembers());
        }
        case NodeKind::MethodDeclaration: {
            const MethodDeclarationView view(of);
            return signature(view.getMethodOutputs(), view.getMethodName(), view.getMethodInputs());
        }
        case NodeKind::MethodDefinition: {
            const MethodDefinitionView view(of);
            return function(view.getMethodOutputs(), view.getMethodName(), view.getMethodInputs(),
                            view.getMethodArgumentsBlocks(), view.getMethodMembers());
        }
        case NodeKind::MethodsBlock: {
            const MethodsBlockView view(of);
            return block("methods", view.getMethodsBlockAttributes(),
                         view.getMethodsBlockMethods());
        }
        case NodeKind::PropertiesBlock: {
            const PropertiesBlockView view(of);
            return block("properties", view.getPropertiesBlockAttributes(),
                         view.getPropertiesBlockProperties());
        }
        case NodeKind::PropertyDefinition:
            return declaration(PropertyDefinitionView(of).getPropertyName(),
                               PropertyDefinitionView(of).getPropertyPart1(),
                               PropertyDefinitionView(of).getPropertyPart2());
        case NodeKind::ValidationSpecification:
            return validation(ValidationSpecificationView(of));
        default:
            return statement(of);
        }
    }

    void statement(NodeView of) {
        switch (of.getKind()) {
        case NodeKind::AssignmentStatement:
            return pair(AssignmentStatementView(of).getAssignmentLhs(), " = ",
                        AssignmentStatementView(of).getAssignmentRhs());
        case NodeKind::BareIdentifierStatement:
            return node(BareIdentifierStatementView(of).getBareIdentifier());
        case NodeKind::BreakStatement:
            text += "break";
            return;
        case NodeKind::CaseClause:
            startLine();
            word("case", CaseClauseView(of).getCaseExpression());
            return body(CaseClauseView(of).getCaseBody());
        case NodeKind::CatchClause:
            return catchClause(CatchClauseView(of));
        case NodeKind::CommandStatement:
            node(CommandStatementView(of).getCommandCallee());
            return words(CommandStatementView(of).getCommandWords());
        case NodeKind::ContinueStatement:
            text += "continue";
            return;
        case NodeKind::DiscardedStatement:
            text += ')';
            return;
        case NodeKind::ElseClause:
            startLine();
            text += "else";
            return body(ElseClauseView(of).getElseBody());
        case NodeKind::ElseIfClause:
            startLine();
            word("elseif", ElseIfClauseView(of).getElseIfCondition());
            return body(ElseIfClauseView(of).getElseIfBody());
        case NodeKind::EmptyStatement:
            text += ';';
            return;
        case NodeKind::ExpressionStatement:
            return node(ExpressionStatementView(of).getExpressionStatementExpression());
        case NodeKind::ForStatement:
            return forStatement(ForStatementView(of));
        case NodeKind::GlobalDeclaration:
            text += "global ";
            return list(GlobalDeclarationView(of).getGlobalIdentifiers(), " ");
        case NodeKind::IfStatement:
            return ifStatement(IfStatementView(of));
        case NodeKind::ImplicitCommandStatement:
            text += '!';
            return words(ImplicitCommandStatementView(of).getImplicitCommandWords());
        case NodeKind::MultiAssignmentStatement:
            listIn('[', MultiAssignmentStatementView(of).getMultiAssignmentTargets(), ']');
            return word(" =", MultiAssignmentStatementView(of).getMultiAssignmentRhs());
        case NodeKind::OtherwiseClause:
            startLine();
            text += "otherwise";
            return body(OtherwiseClauseView(of).getOtherwiseBody());
        case NodeKind::ParforStatement:
            return parforStatement(ParforStatementView(of));
        case NodeKind::PersistentDeclaration:
            text += "persistent ";
            return list(PersistentDeclarationView(of).getPersistentIdentifiers(), " ");
        case NodeKind::ReturnStatement:
            text += "return";
            return;
        case NodeKind::SpmdStatement:
            return spmdStatement(SpmdStatementView(of));
        case NodeKind::SwitchStatement:
            return switchStatement(SwitchStatementView(of));
        case NodeKind::TryStatement:
            return tryStatement(TryStatementView(of));
        case NodeKind::WhileStatement:
            word("while", WhileStatementView(of).getWhileCondition());
            body(WhileStatementView(of).getWhileBody());
            return end();
        default:
            return expression(of);
        }
    }

    void expression(NodeView of) {
        switch (of.getKind()) {
        case NodeKind::AnonymousFunction:
            text += '@';
            listIn('(', AnonymousFunctionView(of).getAnonymousFunctionParameters(), ')');
            return word("", AnonymousFunctionView(of).getAnonymousFunctionBody());
        case NodeKind::BinaryOperation:
            return binary(BinaryOperationView(of));
        case NodeKind::BraceOperation:
            node(BraceOperationView(of).getBraceBase());
            return listIn('{', BraceOperationView(of).getBraceArguments(), '}');
        case NodeKind::CellArray:
            text += '{';
            list(CellArrayView(of).getCellArrayRows(), "; ");
            text += '}';
            return;
        case NodeKind::Colon:
            text += ':';
            return;
        case NodeKind::ColonOperation:
            return colon(ColonOperationView(of));
        case NodeKind::DiscardedExpression:
            text += "0x"; // A number that is none, which is discarded by itself.
            return;
        case NodeKind::DotOperation:
            return pair(DotOperationView(of).getDotBase(), ".", DotOperationView(of).getDotField());
        case NodeKind::DynamicFieldOperation:
            pair(DynamicFieldOperationView(of).getDynamicFieldBase(), ".(",
                 DynamicFieldOperationView(of).getDynamicFieldExpression());
            text += ')';
            return;
        case NodeKind::End:
            text += "end";
            return;
        case NodeKind::Identifier:
            text += toUtf8(IdentifierView(of).getIdentifierName());
            return;
        case NodeKind::IgnoredArgument:
            text += '~';
            return;
        case NodeKind::InputParameter:
            return parameter(InputParameterView(of));
        case NodeKind::Matrix:
            text += '[';
            list(MatrixView(of).getMatrixRows(), "; ");
            text += ']';
            return;
        case NodeKind::NamedArgument:
            return pair(NamedArgumentView(of).getNamedArgumentName(), " = ",
                        NamedArgumentView(of).getNamedArgumentValue());
        case NodeKind::ParenOperation:
            node(ParenOperationView(of).getParenBase());
            return listIn('(', ParenOperationView(of).getParenArguments(), ')');
        case NodeKind::ParenthesizedExpression:
            text += '(';
            node(ParenthesizedExpressionView(of).getParenthesizedInner());
            text += ')';
            return;
        case NodeKind::Row:
            return list(RowView(of).getRowExpressions());
        case NodeKind::UnaryOperation:
            return unary(UnaryOperationView(of));
        default:
            text += toUtf8(tree.spelling(of));
        }
    }

    // Expressions with a shape of their own

    void binary(BinaryOperationView of) {
        const BinaryOperator op = of.getBinaryOperator();
        const std::string sign = toString(op);
        pair(of.getBinaryLhs(), op == BinaryOperator::At ? sign : ' ' + sign + ' ',
             of.getBinaryRhs());
    }

    void unary(UnaryOperationView of) {
        const UnaryOperator op = of.getUnaryOperator();
        const bool isBehind = op == UnaryOperator::Apostrophe || op == UnaryOperator::DotApostrophe;
        if (!isBehind) text += toString(op);
        node(of.getUnaryOperand());
        if (isBehind) text += toString(op);
    }

    void colon(ColonOperationView of) {
        node(of.getColonStart());
        text += ':';
        if (const auto step = of.getColonStep()) {
            node(*step);
            text += ':';
        }
        node(of.getColonStop());
    }

    void parameter(InputParameterView of) {
        if (const auto identifier = of.getInputParameterIdentifier()) return node(*identifier);
        text += '~';
    }

    // Statements with a shape of their own

    void words(CommandWordRangeView range) {
        text += ' ';
        list(range, " ");
    }

    void ifStatement(IfStatementView of) {
        word("if", of.getIfCondition());
        body(of.getIfBody());
        for (const NodeView clause : of.getIfElseIfClauses())
            node(clause);
        if (const auto clause = of.getIfElseClause()) node(*clause);
        end();
    }

    void forStatement(ForStatementView of) {
        word("for", of.getForVariable());
        word(" =", of.getForExpression());
        body(of.getForBody());
        end();
    }

    void parforStatement(ParforStatementView of) {
        const bool hasOptions = of.getParforOptions().size() > 0;
        text += hasOptions ? "parfor (" : "parfor ";
        pair(of.getParforVariable(), " = ", of.getParforExpression());
        if (hasOptions) {
            text += ", ";
            list(of.getParforOptions());
            text += ')';
        }
        body(of.getParforBody());
        end();
    }

    void spmdStatement(SpmdStatementView of) {
        text += "spmd";
        if (of.getSpmdOptions().size() > 0) {
            text += ' ';
            listIn('(', of.getSpmdOptions(), ')');
        }
        body(of.getSpmdBody());
        end();
    }

    void switchStatement(SwitchStatementView of) {
        word("switch", of.getSwitchSubject());
        text += '\n';
        for (const NodeView clause : of.getSwitchCases())
            node(clause);
        if (const auto clause = of.getSwitchOtherwise()) node(*clause);
        end();
    }

    void tryStatement(TryStatementView of) {
        text += "try";
        body(of.getTryBody());
        if (const auto clause = of.getTryCatch()) node(*clause);
        end();
    }

    void catchClause(CatchClauseView of) {
        startLine();
        text += "catch";
        if (const auto identifier = of.getCatchIdentifier()) word("", *identifier);
        body(of.getCatchBody());
    }

    // Functions and classes

    void signature(IdentifierRangeView outputs, NodeView name, InputParameterRangeView inputs) {
        if (outputs.size() > 0) {
            listIn('[', outputs, ']');
            text += " = ";
        }
        node(name);
        listIn('(', inputs, ')');
    }

    void function(IdentifierRangeView outputs, NodeView name, InputParameterRangeView inputs,
                  ArgumentsBlockRangeView blocks, NodeRangeView members) {
        text += "function ";
        signature(outputs, name, inputs);
        body(blocks);
        lines(members);
        end();
    }

    void attribute(AttributeView of) {
        node(of.getAttributeName());
        if (const auto value = of.getAttributeValue()) word(" =", *value);
    }

    template <typename Content>
    void block(std::string_view word, AttributeRangeView attributes, const Content& content) {
        text += word;
        if (attributes.size() > 0) {
            text += ' ';
            listIn('(', attributes, ')');
        }
        body(content);
        end();
    }

    void declaration(NodeView name, const boost::optional<NodeView>& validated,
                     const boost::optional<NodeView>& value) {
        node(name);
        if (validated) node(*validated);
        if (value) word(" =", *value);
    }

    void validation(ValidationSpecificationView of) {
        if (of.getValidationFirstExpressions().size() > 0) {
            text += ' ';
            listIn('(', of.getValidationFirstExpressions(), ')');
        }
        if (const auto type = of.getValidationPart()) word("", *type);
        if (of.getValidationSecondExpressions().size() > 0) {
            text += ' ';
            listIn('{', of.getValidationSecondExpressions(), '}');
        }
    }

    void classDefinition(ClassDefinitionView of) {
        text += "class ";
        if (of.getClassAttributes().size() > 0) {
            listIn('(', of.getClassAttributes(), ')');
            text += ' ';
        }
        node(of.getClassName());
        if (of.getClassSuperclasses().size() > 0) text += " < ";
        list(of.getClassSuperclasses(), " & ");
        body(of.getClassMembers());
        end();
    }

    const Tree& tree;
    std::string text;
    std::size_t indent = 0;
};

} // namespace

std::string printSource(const Tree& tree) { return Printer(tree).program(); }

} // namespace ostrel
