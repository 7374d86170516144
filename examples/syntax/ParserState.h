#pragma once

#include "source/Diagnostic.h"
#include "source/SourceText.h"
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

/// A parfor or spmd statement that has been read, and the scope it stands in.
struct FoundConstruct {
    NodeId node;
    ScopeId scope;
};

/// What the parts of the parser share: the current token, the tree so far, and what is wrong.
///
/// Everything that reading produces can be taken back to a `Mark`, which is what a second look at a
/// scope and a discarded statement need.
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
    /// Reads on behind the current token, without effect on the parser.
    Lexer lookAhead() const;
    /// The token behind the current one.
    Token peek() const { return lookAhead().next(); }
    void seek(std::size_t offset);
    /// Goes on at the first token that begins at `end` or behind it.
    void skipBehind(std::size_t end);
    std::u16string_view text(const Token& token) const;
    /// Where the token before the current one ends.
    std::size_t previousEnd() const { return lastEnd; }

    // Brackets that are open in the statement under way
    void openBracket();
    void closeBracket(TokenKind closer);
    /// Reports the error, and goes on to the end of the statement that it ends: to `;`, `,`, a line
    /// end or a keyword.
    ///
    /// A bracket that is not closed would swallow the lines below. So when an error occurs with
    /// brackets open, this looks ahead for their closers; when a line shows that they never come,
    /// the open bracket is what is wrong, and reading goes on below the line of the outermost one.
    void recoverFrom(const SyntaxError& error);

    // Errors
    [[noreturn]] void fail(const std::string& message) const;
    [[noreturn]] void failAt(std::size_t offset, const std::string& message) const;
    void report(std::size_t offset, const std::string& message);
    /// What the current token is, for a message.
    std::string found() const;

    // Nodes
    NodeId leafOfToken(zt::orvex::NodeKind kind);
    NodeId identifierOfToken(Role role);
    NodeId identifierOfToken(Role role, ScopeId owner);
    NodeId label(std::u16string_view name, std::size_t offset);
    NodeId implicitAns(std::size_t offset);
    Extent extentFrom(std::size_t begin) const { return {begin, std::max(begin, lastEnd)}; }
    /// Makes the symbol of an identifier a variable of its scope.
    void write(NodeId identifier);
    bool isVariable(std::u16string_view name);

    struct Mark {
        TreeBuilder::Checkpoint tree;
        std::size_t diagnostics;
        std::size_t pragmas;
        std::size_t constructs;
        std::size_t offset;
    };
    Mark mark() const;
    /// Forgets the nodes and constructs made since, but nothing else.
    void forgetNodes(const Mark& mark);
    /// Forgets what was read since, and goes back to read it again.
    void goBack(const Mark& mark);

    const SourceText& source;
    TreeBuilder builder;
    std::vector<NodeId> scratch; ///< Of the `NodeList`s.
    std::vector<Diagnostic> diagnostics;
    std::vector<std::size_t> pragmas;
    std::vector<FoundConstruct> constructs;
    ScopeId scope = 0;                              ///< Of the function or script under way.
    std::unordered_map<NameId, ScopeId> parameters; ///< Of the anonymous functions under way.
    VariableGuess* variables = nullptr;             ///< Of the scope under way.
    bool partedByBlanks = false;                    ///< Whether a blank may end an element.
    std::size_t subscriptDepth = 0;                 ///< Whether `end` may stand for an index.

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

/// A list of nodes under construction, kept on one stack shared by all lists: no allocation for
/// each. A list that is begun later must be gone before an earlier one grows.
class NodeList {
public:
    explicit NodeList(ParserState& of) : state(of), base(of.scratch.size()) {}
    ~NodeList() { state.scratch.resize(base); }
    NodeList(const NodeList&) = delete;
    NodeList& operator=(const NodeList&) = delete;

    void add(NodeId node) { state.scratch.push_back(node); }
    /// Leaves the nodes to the list that was begun before.
    void moveIntoOuter() { base = state.scratch.size(); }
    void clear() { state.scratch.resize(base); }
    std::size_t size() const { return state.scratch.size() - base; }
    Field store() const { return state.builder.each(state.scratch.data() + base, size()); }

private:
    ParserState& state;
    std::size_t base;
};

/// Sets a value for as long as it lives, and puts the old one back.
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
