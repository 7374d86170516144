#include "terminal/SourceSnippet.h"

#include "terminal/DisplayText.h"

#include <algorithm>
#include <string_view>

namespace ostrel {

namespace {

constexpr std::string_view CUT = "...";
constexpr std::size_t MIN_WIDTH = 20;

bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

std::size_t previousCodePoint(std::u16string_view line, std::size_t at) {
    --at;
    if (at > 0 && isLowSurrogate(line[at])) --at;
    return at;
}

/// Appends from `at` up to `end` as much as fits; returns where it stopped.
std::size_t append(DisplayText& text, std::u16string_view line, std::size_t at, std::size_t end,
                   std::size_t width) {
    while (at < end) {
        const CodePoint next = codePointAt(line, at);
        if (text.width + widthAt(text.width, next.value) > width) break;
        appendForDisplay(text, next.value);
        at += next.length;
    }
    return at;
}

bool fits(std::u16string_view line, std::size_t width) {
    if (line.size() > 4 * width) return false;
    DisplayText text;
    return append(text, line, 0, line.size(), width) == line.size();
}

/// Where to begin so that at most `columns` columns precede `at`.
std::size_t goBack(std::u16string_view line, std::size_t at, std::size_t columns) {
    std::size_t used = 0;
    while (at > 0) {
        const std::size_t previous = previousCodePoint(line, at);
        // At least 1, so that a long run of combining marks ends the search too.
        used += std::max<std::size_t>(widthAt(0, codePointAt(line, previous).value), 1);
        if (used > columns) break;
        at = previous;
    }
    return at;
}

/// The part of a line from `begin` on, and the mark below it.
SourceSnippet render(std::u16string_view line, std::size_t begin, std::size_t caret,
                     std::size_t caretEnd, std::size_t width) {
    DisplayText text;
    if (begin > 0) text = {std::string(CUT), CUT.size()};
    append(text, line, begin, caret, width);
    const std::size_t markBegin = text.width;
    const std::size_t markEnd = append(text, line, caret, caretEnd, width);
    const std::size_t markWidth = std::max<std::size_t>(text.width - markBegin, 1);
    const std::size_t shownTo = append(text, line, markEnd, line.size(), width);
    if (shownTo < line.size()) text.utf8 += CUT;
    return {text.utf8, std::string(markBegin, ' ') + "^" + std::string(markWidth - 1, '~')};
}

} // namespace

SourceSnippet cutSnippet(const SourceText& source, const Place& place, std::size_t width) {
    width = std::max(width, MIN_WIDTH);
    const std::u16string_view line = source.line(place.line);
    const auto lineBegin = static_cast<std::size_t>(line.data() - source.text().data());
    const std::size_t caret = std::min(place.offset - lineBegin, line.size());
    const std::size_t caretEnd = std::min(caret + place.length, line.size());
    if (fits(line, width)) return render(line, 0, caret, caretEnd, width);
    const std::size_t begin = goBack(line, caret, width / 2 - CUT.size());
    return render(line, begin, caret, caretEnd, width - CUT.size());
}

} // namespace ostrel
