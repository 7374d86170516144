#include "report/html/Escape.h"

#include "source/UnsafeCharacters.h"
#include "source/Utf8.h"
#include "terminal/DisplayText.h"

#include <cstddef>

namespace ostrel::report {

namespace {

constexpr const char* REPLACEMENT = "\xEF\xBF\xBD";

/// A boxed word in place of something that can't be shown.
std::string boxed(const std::string& text, const char* title) {
    return std::string("<span class=\"boxed\" title=\"") + title + "\">" + text + "</span>";
}

bool isBoxed(char32_t character) { return character != U'\t' && isUnsafeToShow(character); }

void appendCharacter(std::string& out, char32_t character) {
    switch (character) {
    case U'&':
        out += "&amp;";
        break;
    case U'<':
        out += "&lt;";
        break;
    case U'>':
        out += "&gt;";
        break;
    case U'"':
        out += "&quot;";
        break;
    case U'\'':
        out += "&#39;";
        break;
    default:
        appendUtf8(out, character);
    }
}

/// Calls `replace` for each piece that can't be shown, to append something in its place.
template <typename Replace>
std::string escapedWith(std::string_view utf8, const Replace& replace) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const Utf8Piece piece = utf8PieceAt(utf8, at);
        at += piece.length;
        if (!piece.isValid || isBoxed(piece.value))
            replace(out, piece);
        else
            appendCharacter(out, piece.value);
    }
    return out;
}

void appendBox(std::string& out, const Utf8Piece& piece) {
    if (!piece.isValid)
        out += boxed(REPLACEMENT, "a byte that is not UTF-8");
    else if (isDirectionControl(piece.value))
        out += boxed(codePointName(piece.value), "changes the direction of writing");
    else
        out += boxed(codePointName(piece.value), "a control character");
}

} // namespace

std::string escaped(std::string_view utf8) { return escapedWith(utf8, appendBox); }

std::string escaped(std::u16string_view utf16) { return escaped(toUtf8(utf16)); }

std::string escapedValue(std::string_view utf8) {
    return escapedWith(utf8, [](std::string& out, const Utf8Piece&) { out += REPLACEMENT; });
}

} // namespace ostrel::report
