#include "terminal/DisplayText.h"

#include "source/UnsafeCharacters.h"
#include "source/Utf8.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace ostrel {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// The blocks that matter, sorted; not all of Unicode.
constexpr Range ZERO_WIDTH[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x0610, 0x061A}, {0x064B, 0x065F},
    {0x06D6, 0x06DC}, {0x0900, 0x0902}, {0x093C, 0x093C}, {0x0941, 0x0948}, {0x0E34, 0x0E3A},
    {0x0E47, 0x0E4E}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200B, 0x200D}, {0x2060, 0x2060},
    {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}, {0xE0100, 0xE01EF},
};
constexpr Range WIDE[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x2E80, 0x303E},   {0x3041, 0x33FF},
    {0x3400, 0x4DBF},   {0x4E00, 0x9FFF},   {0xA000, 0xA4CF},   {0xA960, 0xA97F},
    {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE30, 0xFE4F},   {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6},   {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF},
    {0x1FA70, 0x1FAFF}, {0x20000, 0x3FFFD},
};

constexpr char32_t REPLACEMENT = 0xFFFD;

template <std::size_t size>
bool isIn(const Range (&ranges)[size], char32_t character) {
    const auto next =
        std::upper_bound(std::begin(ranges), std::end(ranges), character,
                         [](char32_t value, const Range& range) { return value < range.first; });
    return next != std::begin(ranges) && character <= std::prev(next)->last;
}

bool isSurrogate(char32_t value) { return value >= 0xD800 && value <= 0xDFFF; }

/// A direction control as a terminal shows it.
std::string bracketed(char32_t control) { return "<" + codePointName(control) + ">"; }

} // namespace

bool hasDirectionControl(std::string_view utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        const Utf8Piece piece = utf8PieceAt(utf8, at);
        if (isDirectionControl(piece.value)) return true;
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
    if (character == U'\t') return TAB_WIDTH - column % TAB_WIDTH;
    if (isDirectionControl(character)) return bracketed(character).size();
    if (isIn(ZERO_WIDTH, character)) return 0;
    return isIn(WIDE, character) ? 2 : 1;
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
    if (character == U'\t') {
        text.utf8.append(width, ' ');
    } else if (isDirectionControl(character)) {
        text.utf8 += bracketed(character);
    } else {
        const bool isShown = !isUnsafeToShow(character) && !isSurrogate(character);
        appendUtf8(text.utf8, isShown ? character : REPLACEMENT);
    }
    text.width += width;
}

std::string displayed(std::string_view utf8) {
    DisplayText text;
    for (std::size_t at = 0; at < utf8.size();) {
        const Utf8Piece piece = utf8PieceAt(utf8, at);
        appendForDisplay(text, piece.value);
        at += piece.length;
    }
    return text.utf8;
}

} // namespace ostrel
