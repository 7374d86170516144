#include "source/SourceText.h"

#include "source/Utf8.h"

#include <algorithm>
#include <utility>

namespace ostrel {

namespace {

void appendUtf16(std::u16string& units, char32_t value) {
    if (value < 0x10000) {
        units.push_back(static_cast<char16_t>(value));
        return;
    }
    value -= 0x10000;
    units.push_back(static_cast<char16_t>(0xD800 + (value >> 10)));
    units.push_back(static_cast<char16_t>(0xDC00 + (value & 0x3FF)));
}

/// Where the bytes from `at` on stop being ASCII, as most of a program is.
std::size_t skipAscii(std::string_view utf8, std::size_t at) {
    const auto rest = utf8.begin() + static_cast<std::ptrdiff_t>(at);
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    return static_cast<std::size_t>(std::find_if_not(rest, utf8.end(), isAscii) - utf8.begin());
}

/// Appends the code points up to the first wrong byte, and returns the index of that byte.
std::size_t decode(std::string_view utf8, std::u16string& units) {
    std::size_t at = 0;
    while (true) {
        const std::size_t end = skipAscii(utf8, at);
        units.append(utf8.begin() + static_cast<std::ptrdiff_t>(at),
                     utf8.begin() + static_cast<std::ptrdiff_t>(end));
        at = end;
        if (at == utf8.size()) break;
        char32_t value = 0;
        const std::size_t length = readCodePoint(utf8, at, value);
        if (length == 0) break;
        appendUtf16(units, value);
        at += length;
    }
    return at;
}

} // namespace

SourceText::SourceText(std::u16string utf16) : units(std::move(utf16)), lineStarts{0} {
    for (std::size_t i = 0; i < units.size(); ++i) {
        const bool isCrOfCrLf = units[i] == u'\r' && at(i + 1) == u'\n';
        if (units[i] == u'\n' || (units[i] == u'\r' && !isCrOfCrLf)) lineStarts.push_back(i + 1);
        if (isLowSurrogate(units[i])) lowSurrogates.push_back(i);
    }
}

std::optional<SourceText> SourceText::fromUtf8(std::string_view utf8) {
    std::u16string units;
    units.reserve(utf8.size());
    if (decode(utf8, units) != utf8.size()) return std::nullopt;
    const bool hasByteOrderMark = !units.empty() && units.front() == 0xFEFF;
    if (hasByteOrderMark) units.erase(units.begin());
    return SourceText(std::move(units));
}

std::size_t SourceText::validUtf8Prefix(std::string_view utf8) {
    std::u16string units;
    return decode(utf8, units);
}

std::u16string_view SourceText::line(std::size_t line) const {
    const std::size_t begin = lineStarts[line - 1];
    std::size_t end = line < lineStarts.size() ? lineStarts[line] : units.size();
    while (end > begin && (units[end - 1] == u'\n' || units[end - 1] == u'\r'))
        --end;
    return std::u16string_view(units).substr(begin, end - begin);
}

Position SourceText::position(std::size_t offset) const {
    offset = std::min(offset, units.size());
    const auto next = std::upper_bound(lineStarts.begin(), lineStarts.end(), offset);
    const std::size_t start = *std::prev(next);
    const auto first = std::lower_bound(lowSurrogates.begin(), lowSurrogates.end(), start);
    const auto last = std::lower_bound(first, lowSurrogates.end(), offset);
    return {static_cast<std::size_t>(next - lineStarts.begin()),
            offset - start - static_cast<std::size_t>(last - first) + 1};
}

Place SourceText::place(std::size_t offset, std::size_t length) const {
    const Position begin = position(offset);
    const Position end = position(offset + length);
    return {offset, length, begin.line, begin.column, end.line, end.column};
}

} // namespace ostrel
