#pragma once

#include "source/Diagnostic.h"
#include "source/SourceText.h"
#include "syntax/BlockLog.h"
#include "syntax/Lexer.h"
#include "syntax/SyntaxError.h"
#include "syntax/Token.h"
#include "syntax/VariableGuess.h"
#include "tree/TreeBuilder.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ostrel {

/// A parfor or spmd statement, and the scope that contains it.
struct FoundConstruct {
    NodeId node;
    ScopeId scope;
};

/// What the parts of the parser share: the current token, the tree so far, and the errors.
///
/// All of it can be rolled back to a `Mark`, for a second pass over a scope and for a discarded
/// statement.
class ParserState {
public:
    explicit ParserState(const SourceText& text);

    // Tokens
    const Token& token() const { return current; }
    bool is(TokenKind kind) const { return current.kind == kind; }
    bool is(Keyword keyword) const { return current.keyword == keyword; }
    void advance();
    bool accept(TokenKind kind);
    void expect(TokenKind kind, const char* message);
    /// A lexer that reads on after the current token, without effect on the parser.
    Lexer lookAhead() const;
    /// The token after the current one.
    Token peek() const { return lookAhead().next(); }
    void seek(std::size_t offset);
    /// Advances to the first token that begins at `end` or later.
    void skipTo(std::size_t end);
    std::u16string_view text(const Token& token) const;
    /// The end of the previous token.
    std::size_t previousEnd() const { return lastEnd; }

    // Brackets that are open in the current statement
    void openBracket();
    void closeBracket(TokenKind closer);
    /// Reports the error and skips to the end of its statement: to `;`, `,`, a line end or a
    /// keyword.
    ///
    /// An unclosed bracket would swallow the lines below it. So if brackets are open at the error,
    /// this looks ahead for their closers. If a line shows that they never come, the open bracket
    /// is the mistake, and parsing resumes on the line after that of the outermost one.
    void recoverFrom(const SyntaxError& error);

    // Errors
    /// Throws an error at the current token.
    [[noreturn]] void fail(const std::string& message, const std::string& help = {}) const;
    [[noreturn]] void failAt(Extent place, const std::string& message,
                             const std::string& help = {}) const;
    /// Throws an error at the current token, where an expression had to end.
    [[noreturn]] void failAfterExpression(const std::string& message) const;
    void report(Extent place, const std::string& message, const std::string& help = {});
    /// The current token as the place of an error: empty at the end of a line or of the file.
    Extent place() const;
    /// The current token, as an error message names it.
    std::string found() const;
    /// A piece of the source for a message, which may end up on a terminal.
    std::string shown(Extent piece) const;
    /// A place as a person names it: `line:column`.
    std::string named(std::size_t offset) const;

    // Nodes
    NodeId leafOfToken(zt::orvex::NodeKind kind);
    NodeId identifierOfToken(Role role);
    NodeId identifierOfToken(Role role, ScopeId owner);
    NodeId label(std::u16string_view name, std::size_t offset);
    NodeId implicitAns(std::size_t offset);
    Extent extentFrom(std::size_t begin) const { return {begin, std::max(begin, lastEnd)}; }
    /// Makes the identifier's symbol a variable of its scope.
    void write(NodeId identifier);
    bool isVariable(std::u16string_view name);

    struct Mark {
        TreeBuilder::Checkpoint tree;
        BlockLog::Mark blocks;
        std::size_t diagnostics;
        std::size_t pragmas;
        std::size_t constructs;
        std::size_t offset;
    };
    Mark mark() const;
    /// Drops the nodes and constructs made since `mark`, and nothing else.
    void forgetNodes(const Mark& mark);
    /// Drops everything produced since `mark`, and goes back to parse it again.
    void goBack(const Mark& mark);

    const SourceText& source;
    TreeBuilder builder;
    std::vector<NodeId> scratch; ///< The stack of the `NodeList`s.
    std::vector<Diagnostic> diagnostics;
    std::vector<std::size_t> pragmas;
    std::vector<FoundConstruct> constructs;
    BlockLog blocks;
    ScopeId scope = 0;                              ///< Of the current function or script.
    std::unordered_map<NameId, ScopeId> parameters; ///< Of the open anonymous functions.
    VariableGuess* variables = nullptr;             ///< Of the current scope.
    bool separatedByBlanks = false;                 ///< Whether a blank may end an element.
    bool isInCondition = false;                     ///< Of an `if`, `elseif` or `while`.
    std::size_t subscriptDepth = 0;                 ///< `end` is an index if this isn't 0.

    std::size_t openComment() const { return lexer.openComment(); }

private:
    struct OpenBracket {
        TokenKind kind;
        std::size_t offset;
        std::size_t line;
    };

    static bool showsOpenBracket(const Token& token, const Token& before, TokenKind innermost);
    std::size_t findClosers(std::vector<TokenKind> open);
    void skipToStatementEnd();
    void leaveOpenBrackets(const std::vector<OpenBracket>& open);
    bool spend(std::size_t units);

    Lexer lexer;
    Token current;
    std::size_t lastEnd = 0;
    std::size_t linesRead = 0;
    std::vector<OpenBracket> brackets;
    std::size_t rereadBudget;
};

/// A list of nodes under construction. All lists share one stack, so that none allocates on its
/// own; a list must be gone before one that was begun earlier grows.
class NodeList {
public:
    explicit NodeList(ParserState& of) : state(of), base(of.scratch.size()) {}
    ~NodeList() { state.scratch.resize(base); }
    NodeList(const NodeList&) = delete;
    NodeList& operator=(const NodeList&) = delete;

    void add(NodeId node) { state.scratch.push_back(node); }
    /// Hands the nodes to the list that was begun before this one.
    void moveIntoOuter() { base = state.scratch.size(); }
    void clear() { state.scratch.resize(base); }
    std::size_t size() const { return state.scratch.size() - base; }
    Field store() const { return state.builder.each(state.scratch.data() + base, size()); }

private:
    ParserState& state;
    std::size_t base;
};

/// Sets a variable while it lives, and then restores the old value.
template <typename T>
class Scoped {
public:
    Scoped(T& variable, T value) : target(variable), saved(variable) { target = value; }
    ~Scoped() { target = saved; }
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;

private:
    T& target;
    T saved;
};

} // namespace ostrel
