// Input: a source text. The lexer, the parser, the resolver of symbols and the printer.
#include "CheckParsedFile.h"
#include "syntax/Lexer.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

using namespace ostrel;
using zt::orvex::fuzz::require;

namespace {

/// Tokens lie in the text, in order, and the last one is at its end.
void checkTokens(const SourceText& source) {
    Lexer lexer(source);
    std::size_t end = 0;
    for (Token token = lexer.next(); token.kind != TokenKind::EndOfFile; token = lexer.next()) {
        require(end <= token.begin && token.begin < token.end && token.end <= source.size(),
                "a token comes after the one before");
        end = token.end;
    }
}

/// From one offset to the next, the position goes on by at most a column, or to the beginning of the
/// next line.
void checkPositions(const SourceText& source) {
    Position last{1, 1};
    for (std::size_t offset = 0; offset <= source.size() && offset < 300; ++offset) {
        const Position here = source.position(offset);
        const bool isOnLine =
            here.line == last.line && here.column >= last.column && here.column <= last.column + 1;
        const bool isOnNextLine = here.line == last.line + 1 && here.column == 1;
        require(offset == 0 ? here.line == 1 && here.column == 1 : isOnLine || isOnNextLine,
                "positions follow each other");
        require(here.line <= source.lineCount(), "a line of the text");
        last = here;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::optional<SourceText> source = SourceText::fromUtf8(text);
    require(source.has_value() == (SourceText::validUtf8Prefix(text) == size),
            "a text is UTF-8 if all of it is");
    const ParsedFile file = parseOstrel("fuzz.ost", text);
    require(file.isUtf8 == source.has_value(), "the parser says whether the text is UTF-8");
    zt::orvex::fuzz::checkParsedFile(file);
    dump(*file.tree, file.root);
    if (!source) return 0;
    checkTokens(*source);
    checkPositions(*source);
    return 0;
}
