#include "report/analysis/SyntaxSpans.h"

#include "frontend/ParsedFile.h"
#include "syntax/Lexer.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/TypedViews.h>

#include <algorithm>
#include <optional>
#include <string_view>

namespace ostrel::report {

namespace {

using zt::orvex::NodeKind;
using zt::orvex::NodeView;

std::optional<SyntaxKind> syntaxKindOf(const Token& token) {
    switch (token.kind) {
    case TokenKind::Keyword:
        return SyntaxKind::Keyword;
    case TokenKind::Number:
        return SyntaxKind::Number;
    case TokenKind::CharacterText:
    case TokenKind::StringText:
    case TokenKind::OpenText:
        return SyntaxKind::Text;
    default:
        return {};
    }
}

/// The words of commands in source order; only the parser can tell them from expressions.
std::vector<SyntaxSpan> findCommandWords(const ParsedFile& file) {
    std::vector<SyntaxSpan> words;
    zt::orvex::forEachNodeIn(file.root, [&](NodeView node) {
        const NodeKind kind = node.getKind();
        if (kind != NodeKind::CommandStatement && kind != NodeKind::ImplicitCommandStatement)
            return;
        const auto list =
            kind == NodeKind::CommandStatement
                ? zt::orvex::CommandStatementView(node).getCommandWords()
                : zt::orvex::ImplicitCommandStatementView(node).getImplicitCommandWords();
        for (const NodeView word : list) {
            const std::size_t begin = file.tree->beginOffset(word);
            words.push_back({SyntaxKind::Text, begin, file.tree->endOffset(word) - begin});
        }
    });
    std::sort(words.begin(), words.end(),
              [](const SyntaxSpan& a, const SyntaxSpan& b) { return a.offset < b.offset; });
    return words;
}

/// Adds the comments between two tokens, each from a `%` or `...` to the end of its line. All text
/// there that isn't blank or a line end is comment.
void addComments(std::u16string_view source, std::size_t begin, std::size_t end,
                 std::vector<SyntaxSpan>& spans) {
    constexpr std::u16string_view BLANKS = u" \t\r\n\f\v";
    const std::u16string_view text = source.substr(0, end); // so that no search goes beyond
    std::size_t at = begin;
    while ((at = text.find_first_not_of(BLANKS, at)) != std::u16string_view::npos) {
        const std::size_t lineEnd = std::min(text.find_first_of(u"\r\n", at), end);
        spans.push_back({SyntaxKind::Comment, at, lineEnd - at});
        at = lineEnd;
    }
}

} // namespace

std::vector<SyntaxSpan> findSyntaxSpans(const ParsedFile& file) {
    const std::u16string_view text = file.source.text();
    const std::vector<SyntaxSpan> words = findCommandWords(file);
    auto word = words.begin();
    std::vector<SyntaxSpan> spans;
    Lexer lexer(file.source);
    std::size_t done = 0;
    while (true) {
        const Token token = lexer.next();
        if (word != words.end() && token.end > word->offset) {
            addComments(text, done, word->offset, spans);
            spans.push_back(*word);
            done = word->offset + word->length;
            lexer.seek(done);
            ++word;
            continue;
        }
        addComments(text, done, token.begin, spans);
        done = token.end;
        if (token.kind == TokenKind::EndOfFile) break;
        const std::optional<SyntaxKind> kind = syntaxKindOf(token);
        if (kind) spans.push_back({*kind, token.begin, token.end - token.begin});
    }
    return spans;
}

} // namespace ostrel::report
