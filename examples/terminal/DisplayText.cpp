#include "terminal/DisplayText.h"

#include "source/UnsafeCharacters.h"
#include "source/Utf8.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdio>

namespace ostrel {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

bool isSurrogate(char32_t value) { return value >= 0xD800 && value <= 0xDFFF; }

/// How a character is shown.
enum class Form {
    Itself,
    Blanks,      ///< A tab.
    Name,        ///< `<U+202E>`.
    Replacement, ///< U+FFFD.
};

/// ASCII comes first: it is most of every program.
Form formOf(char32_t character) {
    if (character >= 0x20 && character < 0x7F) return Form::Itself;
    if (character == U'\t') return Form::Blanks;
    if (isDirectionControl(character)) return Form::Name;
    if (isUnsafeToShow(character) || isSurrogate(character)) return Form::Replacement;
    const utf8proc_category_t category =
        utf8proc_category(static_cast<utf8proc_int32_t>(character));
    // Unassigned: no two terminals agree on the width.
    return category == UTF8PROC_CATEGORY_CN ? Form::Name : Form::Itself;
}

std::size_t ownWidth(char32_t character) {
    if (character < 0x7F) return 1;
    return static_cast<std::size_t>(utf8proc_charwidth(static_cast<utf8proc_int32_t>(character)));
}

std::size_t blanksOfTab(std::size_t column) { return TAB_WIDTH - column % TAB_WIDTH; }

std::string bracketed(char32_t character) { return "<" + codePointName(character) + ">"; }

} // namespace

bool hasUnsafeCharacter(std::string_view utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        const Utf8Piece piece = utf8PieceAt(utf8, at);
        if (isUnsafeToShow(piece.value) && piece.value != U'\n') return true;
        at += piece.length;
    }
    return false;
}

std::string codePointName(char32_t character) {
    char name[16];
    std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(character));
    return name;
}

Utf8Piece utf8PieceAt(std::string_view utf8, std::size_t at) {
    char32_t value = 0;
    const std::size_t length = readCodePoint(utf8, at, value);
    if (length == 0) return {REPLACEMENT, 1, false};
    return {value, length, true};
}

std::size_t widthAt(std::size_t column, char32_t character) {
    switch (formOf(character)) {
    case Form::Blanks:
        return blanksOfTab(column);
    case Form::Name:
        return bracketed(character).size();
    case Form::Replacement:
        return ownWidth(REPLACEMENT);
    case Form::Itself:
        break;
    }
    return ownWidth(character);
}

CodePoint codePointAt(std::u16string_view text, std::size_t at) {
    const char16_t unit = text[at];
    if (!isHighSurrogate(unit) || at + 1 >= text.size() || !isLowSurrogate(text[at + 1]))
        return {unit, 1};
    const char32_t high = unit - 0xD800U;
    const char32_t low = text[at + 1] - 0xDC00U;
    return {0x10000 + (high << 10) + low, 2};
}

void appendForDisplay(DisplayText& text, char32_t character) {
    const std::size_t width = widthAt(text.width, character);
    switch (formOf(character)) {
    case Form::Itself:
        appendUtf8(text.utf8, character);
        break;
    case Form::Blanks:
        text.utf8.append(width, ' ');
        break;
    case Form::Name:
        text.utf8 += bracketed(character);
        break;
    case Form::Replacement:
        appendUtf8(text.utf8, REPLACEMENT);
        break;
    }
    text.width += width;
}

DisplayText displayText(std::string_view utf8) {
    DisplayText text;
    for (std::size_t at = 0; at < utf8.size();) {
        const Utf8Piece piece = utf8PieceAt(utf8, at);
        appendForDisplay(text, piece.value);
        at += piece.length;
    }
    return text;
}

std::string displayed(std::string_view utf8) { return displayText(utf8).utf8; }

std::string displayedLines(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        const std::size_t end = std::min(utf8.find('\n'), utf8.size());
        text += displayed(utf8.substr(0, end));
        if (end < utf8.size()) text += '\n';
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
    }
    return text;
}

} // namespace ostrel
