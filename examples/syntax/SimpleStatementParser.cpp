#include "syntax/SimpleStatementParser.h"

#include "syntax/Characters.h"
#include "syntax/CommandSyntax.h"
#include "syntax/CompoundAssignment.h"
#include "syntax/OutsideBrackets.h"
#include "syntax/SyntaxError.h"

#include <string>

namespace ostrel {

using zt::orvex::NodeKind;

NodeId SimpleStatementParser::statement() {
    const Token first = state.token();
    try {
        const NodeId result = statementOfKnownStart();
        if (first.kind == TokenKind::Identifier) suspect(first, result);
        return result;
    } catch (SyntaxError& error) {
        if (first.kind == TokenKind::Identifier) {
            suspects.add({first.begin, first.end});
            explain(error, {first.begin, first.end});
        }
        throw;
    }
}

NodeId SimpleStatementParser::statementOfKnownStart() {
    targets.clear();
    const NodeId inner = withoutEnding();
    const bool prints = expectEnding(state) == Ending::Printing;
    for (const NodeId target : targets)
        state.write(target);
    return prints ? print(inner) : inner;
}

NodeId SimpleStatementParser::print(NodeId inner) {
    const Node node = state.builder.at(inner);
    const bool isPrinted = node.kind == NodeKind::AssignmentStatement ||
                           node.kind == NodeKind::ExpressionStatement ||
                           node.kind == NodeKind::MultiAssignmentStatement;
    if (!isPrinted) return inner;
    return state.builder.node(NodeKind::PrintStatement, {node.begin, node.end},
                              {TreeBuilder::one(inner)});
}

NodeId SimpleStatementParser::withoutEnding() {
    switch (state.token().keyword) {
    case Keyword::Break:
        return state.leafOfToken(NodeKind::BreakStatement);
    case Keyword::Continue:
        return state.leafOfToken(NodeKind::ContinueStatement);
    case Keyword::Return:
        return state.leafOfToken(NodeKind::ReturnStatement);
    case Keyword::Global:
        return declaration(NodeKind::GlobalDeclaration);
    case Keyword::Persistent:
        return declaration(NodeKind::PersistentDeclaration);
    default:
        break;
    }
    if (state.is(TokenKind::Identifier)) return nameStatement();
    if (state.is(TokenKind::ExclamationMark)) return implicitCommand();
    if (state.is(TokenKind::LeftBracket) && isMultiAssignment()) return multiAssignment();
    return assignmentOrExpression();
}

NodeId SimpleStatementParser::nameStatement() {
    const Token name = state.token();
    const bool isCommand =
        hasCommandShape(state.source, name.end) && !state.isVariable(state.text(name));
    return isCommand ? command() : assignmentOrExpression();
}

NodeId SimpleStatementParser::command() {
    const Token name = state.token();
    const NodeId callee = state.identifierOfToken(Role::Mention);
    const Field commandWords = words(name.end);
    return state.builder.node(
        NodeKind::CommandStatement, state.extentFrom(name.begin),
        {TreeBuilder::one(state.implicitAns(name.begin)), TreeBuilder::one(callee), commandWords});
}

NodeId SimpleStatementParser::implicitCommand() {
    const Token mark = state.token();
    const Field commandWords = words(mark.end);
    if (commandWords.count == 0)
        state.failAt({mark.begin, mark.end}, "expected a command after '!'");
    return state.builder.node(NodeKind::ImplicitCommandStatement, state.extentFrom(mark.begin),
                              {TreeBuilder::one(state.implicitAns(mark.begin)), commandWords});
}

Field SimpleStatementParser::words(std::size_t from) {
    const CommandWords read = readCommandWords(state.source, from);
    NodeList list(state);
    for (const CommandWord& word : read.words) {
        const auto spelling =
            std::u16string_view(state.source.text()).substr(word.begin, word.end - word.begin);
        list.add(
            state.builder.literal(NodeKind::CharacterLiteral, spelling, {word.begin, word.end}));
    }
    state.seek(read.end);
    if (read.openQuote != Lexer::NONE)
        state.failAt({read.openQuote, read.end}, "the quoted text is not closed");
    return list.store();
}

NodeId SimpleStatementParser::assignmentOrExpression() {
    const std::size_t begin = state.token().begin;
    const NodeId lhs = expressions.expression();
    if (!state.is(TokenKind::Assign)) return expressionStatement(lhs);
    willWrite(lhs);
    state.advance();
    const NodeId rhs = expressions.expression();
    return state.builder.node(NodeKind::AssignmentStatement, state.extentFrom(begin),
                              {TreeBuilder::one(lhs), TreeBuilder::one(rhs)});
}

NodeId SimpleStatementParser::expressionStatement(NodeId expression) {
    const Node node = state.builder.at(expression);
    const Extent extent{node.begin, node.end};
    if (node.kind == NodeKind::Identifier) {
        const std::u16string_view name =
            std::u16string_view(state.source.text()).substr(node.begin, node.end - node.begin);
        if (!state.isVariable(name)) {
            return state.builder.node(NodeKind::BareIdentifierStatement, extent,
                                      {TreeBuilder::one(expression)});
        }
    }
    return state.builder.node(
        NodeKind::ExpressionStatement, extent,
        {TreeBuilder::one(state.implicitAns(node.begin)), TreeBuilder::one(expression)});
}

/// Whether the current bracket is closed on its line and `=` follows.
bool SimpleStatementParser::isMultiAssignment() const {
    OutsideBrackets ahead(state.lookAhead(), 1);
    const bool isClosed = ahead.next().kind == TokenKind::RightBracket;
    return isClosed && ahead.next().kind == TokenKind::Assign;
}

NodeId SimpleStatementParser::multiAssignment() {
    const std::size_t begin = state.token().begin;
    NodeList list(state);
    {
        const Scoped<bool> inBrackets(state.separatedByBlanks, true);
        state.openBracket();
        do {
            list.add(multiTarget());
        } while (state.accept(TokenKind::Comma) ||
                 (state.token().blankBefore && !state.is(TokenKind::RightBracket)));
        state.closeBracket(TokenKind::RightBracket);
    }
    state.expect(TokenKind::Assign, "expected '='");
    const NodeId rhs = expressions.expression();
    return state.builder.node(NodeKind::MultiAssignmentStatement, state.extentFrom(begin),
                              {list.store(), TreeBuilder::one(rhs)});
}

NodeId SimpleStatementParser::multiTarget() {
    if (state.is(TokenKind::Tilde)) return state.leafOfToken(NodeKind::IgnoredArgument);
    const NodeId target = expressions.postfix();
    willWrite(target);
    return target;
}

void SimpleStatementParser::willWrite(NodeId target) {
    const NodeId name = assignedName(target);
    if (name == 0) {
        const Node& node = state.builder.at(target);
        state.failAt({node.begin, node.end}, "this expression cannot be assigned to");
    }
    targets.push_back(name);
}

NodeId SimpleStatementParser::declaration(NodeKind kind) {
    const std::size_t begin = state.token().begin;
    state.advance();
    if (!state.is(TokenKind::Identifier)) state.fail("expected a name, found " + state.found());
    NodeList names(state);
    while (state.is(TokenKind::Identifier)) {
        const NodeId name = state.identifierOfToken(Role::Written);
        targets.push_back(name);
        names.add(name);
    }
    return state.builder.node(kind, state.extentFrom(begin), {names.store()});
}

/// The name that an assignment to `target` writes; 0 if it cannot be assigned to.
NodeId SimpleStatementParser::assignedName(NodeId target) const {
    while (true) {
        switch (state.builder.at(target).kind) {
        case NodeKind::Identifier:
            return target;
        case NodeKind::BraceOperation:
        case NodeKind::DotOperation:
        case NodeKind::DynamicFieldOperation:
        case NodeKind::ParenOperation:
            target = state.builder.child(target, 0);
            break;
        default:
            return 0;
        }
    }
}

// What was meant

/// Remembers the first word of a statement that a misspelled keyword could have become.
void SimpleStatementParser::suspect(const Token& first, NodeId statement) {
    NodeId node = statement;
    if (state.builder.at(node).kind == NodeKind::PrintStatement)
        node = state.builder.child(node, 0);
    const NodeKind kind = state.builder.at(node).kind;
    const bool isPossible = kind == NodeKind::CommandStatement ||
                            kind == NodeKind::BareIdentifierStatement ||
                            kind == NodeKind::ExpressionStatement;
    if (isPossible) suspects.add({first.begin, first.end});
}

/// Makes an error in a statement that begins with the name `first` tell what was probably meant.
void SimpleStatementParser::explain(SyntaxError& error, Extent first) const {
    if (!error.help.empty()) return;
    const auto compound = compoundAssignmentAt(state.source, first.begin, error.place.begin);
    if (compound) {
        error.message = "'" + state.shown(compound->sign) + "' is not an operator";
        error.help = "did you mean '" + writtenOut(*compound) + "'?";
        error.place = compound->sign;
    } else if (const auto misspelling = misspellingAt(state.source, first)) {
        error.help = didYouMean(*misspelling);
    }
}

/// Such as `w(i) = w(i) + 1`; only the pattern of it if the text is long or not on one line.
std::string SimpleStatementParser::writtenOut(const CompoundAssignment& compound) const {
    const Extent sign{compound.sign.begin, compound.sign.begin + compound.size};
    const bool hasOperand = compound.isStep || compound.operand.begin != compound.operand.end;
    if (!hasOperand || !isShort(compound.target) || !isShort(compound.operand))
        return "x = x " + state.shown(sign) + " y";
    const std::string target = state.shown(compound.target);
    std::string operand = compound.isStep ? "1" : state.shown(compound.operand);
    if (needsParentheses(state.source, compound.operand)) operand = "(" + operand + ")";
    return target + " = " + target + " " + state.shown(sign) + " " + operand;
}

/// Whether a message can quote the text whole.
bool SimpleStatementParser::isShort(Extent text) const {
    constexpr std::size_t LONGEST = 40;
    if (text.end - text.begin > LONGEST) return false;
    return skipToLineEnd(state.source, text.begin) >= text.end;
}

} // namespace ostrel
