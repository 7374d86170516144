#include "syntax/Printer.h"

#include "source/Utf8.h"

#include <zt_orvex/ast/TypedViews.h>

#include <cstddef>
#include <string_view>

namespace ostrel {

using namespace zt::orvex;

namespace {

/// Prints nodes in order; a statement prints its line without the line end.
///
/// The file is long because it is a table: a function for each kind of node.
class Printer {
public:
    explicit Printer(const Tree& of) : tree(of) {}

    std::string program() {
        node(tree.root());
        return text;
    }

private:
    using Handler = void (Printer::*)(NodeView);

    /// Calls the overload for the kind, through a table, which keeps the frames of the recursion
    /// small: one function with all cases would have the locals of all.
    void node(NodeView of) { (this->*HANDLERS[static_cast<std::size_t>(of.getKind())])(of); }

    template <typename View>
    void handle(NodeView of) {
        print(View(of));
    }
    void ignore(NodeView) {}

    static const Handler HANDLERS[]; // By kind.

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

    /// The body of a block, after its head, whose line is still open.
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

    // Nodes, one overload for each kind: a kind without one doesn't compile.

    void print(ArgumentDeclarationView of) {
        declaration(of.getArgumentDeclarationName(), of.getArgumentDeclarationPart1(),
                    of.getArgumentDeclarationPart2());
    }
    void print(ArgumentsBlockView of) {
        block("arguments", of.getArgumentsBlockAttributes(), of.getArgumentsBlockDeclarations());
    }
    void print(EnumerationBlockView of) {
        block("enumeration", of.getEnumerationBlockAttributes(), of.getEnumerationBlockMembers());
    }
    void print(EnumerationMemberView of) {
        node(of.getEnumerationMemberName());
        listInIfAny('(', of.getEnumerationMemberArguments(), ')');
    }
    void print(EventDefinitionView of) { node(of.getEventName()); }
    void print(EventsBlockView of) {
        block("events", of.getEventsBlockAttributes(), of.getEventsBlockEvents());
    }
    void print(FunctionDefinitionView of) {
        function(of.getFunctionOutputs(), of.getFunctionName(), of.getFunctionInputs(),
                 of.getFunctionArgumentsBlocks(), of.getFunctionMembers());
    }
    void print(MethodDeclarationView of) {
        signature(of.getMethodOutputs(), of.getMethodName(), of.getMethodInputs());
    }
    void print(MethodDefinitionView of) {
        function(of.getMethodOutputs(), of.getMethodName(), of.getMethodInputs(),
                 of.getMethodArgumentsBlocks(), of.getMethodMembers());
    }
    void print(MethodsBlockView of) {
        block("methods", of.getMethodsBlockAttributes(), of.getMethodsBlockMethods());
    }
    void print(PropertiesBlockView of) {
        block("properties", of.getPropertiesBlockAttributes(), of.getPropertiesBlockProperties());
    }
    void print(PropertyDefinitionView of) {
        declaration(of.getPropertyName(), of.getPropertyPart1(), of.getPropertyPart2());
    }
    void print(AssignmentStatementView of) {
        pair(of.getAssignmentLhs(), " = ", of.getAssignmentRhs());
    }
    void print(BareIdentifierStatementView of) { node(of.getBareIdentifier()); }
    void print(BreakStatementView) { text += "break"; }
    void print(CaseClauseView of) {
        startLine();
        word("case", of.getCaseExpression());
        body(of.getCaseBody());
    }
    void print(CommandStatementView of) {
        node(of.getCommandCallee());
        words(of.getCommandWords());
    }
    void print(ContinueStatementView) { text += "continue"; }
    void print(DiscardedStatementView) { text += ')'; }
    void print(ElseClauseView of) {
        startLine();
        text += "else";
        body(of.getElseBody());
    }
    void print(ElseIfClauseView of) {
        startLine();
        word("elseif", of.getElseIfCondition());
        body(of.getElseIfBody());
    }
    void print(EmptyStatementView) { text += ';'; }
    void print(ExpressionStatementView of) { node(of.getExpressionStatementExpression()); }
    void print(GlobalDeclarationView of) {
        text += "global ";
        list(of.getGlobalIdentifiers(), " ");
    }
    void print(ImplicitCommandStatementView of) {
        text += '!';
        words(of.getImplicitCommandWords());
    }
    void print(MultiAssignmentStatementView of) {
        listIn('[', of.getMultiAssignmentTargets(), ']');
        word(" =", of.getMultiAssignmentRhs());
    }
    void print(OtherwiseClauseView of) {
        startLine();
        text += "otherwise";
        body(of.getOtherwiseBody());
    }
    void print(PersistentDeclarationView of) {
        text += "persistent ";
        list(of.getPersistentIdentifiers(), " ");
    }
    void print(ReturnStatementView) { text += "return"; }
    void print(WhileStatementView of) {
        word("while", of.getWhileCondition());
        body(of.getWhileBody());
        end();
    }
    void print(AnonymousFunctionView of) {
        text += '@';
        listIn('(', of.getAnonymousFunctionParameters(), ')');
        word("", of.getAnonymousFunctionBody());
    }
    void print(BraceOperationView of) {
        node(of.getBraceBase());
        listIn('{', of.getBraceArguments(), '}');
    }
    void print(CellArrayView of) {
        text += '{';
        list(of.getCellArrayRows(), "; ");
        text += '}';
    }
    void print(ColonView) { text += ':'; }
    void print(DiscardedExpressionView) {
        text += "0x"; // A malformed number is discarded alone.
    }
    void print(DotOperationView of) { pair(of.getDotBase(), ".", of.getDotField()); }
    void print(DynamicFieldOperationView of) {
        pair(of.getDynamicFieldBase(), ".(", of.getDynamicFieldExpression());
        text += ')';
    }
    void print(EndView) { text += "end"; }
    void print(IdentifierView of) { text += toUtf8(of.getIdentifierName()); }
    void print(IgnoredArgumentView) { text += '~'; }
    void print(MatrixView of) {
        text += '[';
        list(of.getMatrixRows(), "; ");
        text += ']';
    }
    void print(NamedArgumentView of) {
        pair(of.getNamedArgumentName(), " = ", of.getNamedArgumentValue());
    }
    void print(ParenOperationView of) {
        node(of.getParenBase());
        listIn('(', of.getParenArguments(), ')');
    }
    void print(ParenthesizedExpressionView of) {
        text += '(';
        node(of.getParenthesizedInner());
        text += ')';
    }
    void print(RowView of) { list(of.getRowExpressions()); }
    void print(AnyExpressionView) {}
    void print(CharacterLiteralView of) { spelling(of); }
    void print(FillerNodeView) {}
    void print(NumberLiteralView of) { spelling(of); }
    void print(PrintStatementView of) { node(of.getPrintedStatement()); }
    void print(ProgramView of) {
        for (const NodeView node : of.getProgramNodes())
            line(node);
    }
    void print(StringLiteralView of) { spelling(of); }

    void spelling(NodeView literal) { text += toUtf8(tree.spelling(literal)); }

    // Expressions with a shape of their own

    void print(BinaryOperationView of) {
        node(of.getBinaryLhs());
        sign(of.getBinaryOperator());
        node(of.getBinaryRhs());
    }

    void print(UnaryOperationView of) {
        if (!isPostfix(of.getUnaryOperator())) sign(of.getUnaryOperator());
        node(of.getUnaryOperand());
        if (isPostfix(of.getUnaryOperator())) sign(of.getUnaryOperator());
    }

    static bool isPostfix(UnaryOperator op) {
        return op == UnaryOperator::Apostrophe || op == UnaryOperator::DotApostrophe;
    }

    void sign(UnaryOperator op) { text += toString(op); }

    void sign(BinaryOperator op) {
        text += op == BinaryOperator::At ? "" : " ";
        text += toString(op);
        text += op == BinaryOperator::At ? "" : " ";
    }

    void print(ColonOperationView of) {
        node(of.getColonStart());
        text += ':';
        if (const auto step = of.getColonStep()) {
            node(*step);
            text += ':';
        }
        node(of.getColonStop());
    }

    void print(InputParameterView of) {
        if (const auto identifier = of.getInputParameterIdentifier()) return node(*identifier);
        text += '~';
    }

    // Statements with a shape of their own

    void words(CommandWordRangeView range) {
        text += ' ';
        list(range, " ");
    }

    void print(IfStatementView of) {
        word("if", of.getIfCondition());
        body(of.getIfBody());
        for (const NodeView clause : of.getIfElseIfClauses())
            node(clause);
        if (const auto clause = of.getIfElseClause()) node(*clause);
        end();
    }

    void print(ForStatementView of) {
        word("for", of.getForVariable());
        word(" =", of.getForExpression());
        body(of.getForBody());
        end();
    }

    void print(ParforStatementView of) {
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

    void print(SpmdStatementView of) {
        text += "spmd";
        if (of.getSpmdOptions().size() > 0) {
            text += ' ';
            listIn('(', of.getSpmdOptions(), ')');
        }
        body(of.getSpmdBody());
        end();
    }

    void print(SwitchStatementView of) {
        word("switch", of.getSwitchSubject());
        text += '\n';
        for (const NodeView clause : of.getSwitchCases())
            node(clause);
        if (const auto clause = of.getSwitchOtherwise()) node(*clause);
        end();
    }

    void print(TryStatementView of) {
        text += "try";
        body(of.getTryBody());
        if (const auto clause = of.getTryCatch()) node(*clause);
        end();
    }

    void print(CatchClauseView of) {
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

    void print(AttributeView of) {
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

    void print(ValidationSpecificationView of) {
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

    void print(ClassDefinitionView of) {
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

const Printer::Handler Printer::HANDLERS[] = {
    &Printer::ignore,
#define ZT_ORVEX_NODE_KIND(Name, Class) &Printer::handle<Name##View>,
#include <zt_orvex/ast/NodeKinds.def>
};

} // namespace

std::string printSource(const Tree& tree) { return Printer(tree).program(); }

} // namespace ostrel
