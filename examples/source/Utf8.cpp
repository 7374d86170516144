#include "source/Utf8.h"

#include <cstddef>

namespace ostrel {

namespace {

void append(std::string& utf8, char32_t value) {
    const auto put = [&](char32_t bits) { utf8.push_back(static_cast<char>(bits)); };
    const auto putTail = [&](int shift) { put(0x80 | ((value >> shift) & 0x3F)); };
    if (value < 0x80) {
        put(value);
    } else if (value < 0x800) {
        put(0xC0 | (value >> 6));
        putTail(0);
    } else if (value < 0x10000) {
        put(0xE0 | (value >> 12));
        putTail(6);
        putTail(0);
    } else {
        put(0xF0 | (value >> 18));
        putTail(12);
        putTail(6);
        putTail(0);
    }
}

} // namespace

std::string toUtf8(std::u16string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool isPair =
            isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1]);
        if (isPair) {
            append(utf8,
                   0x10000 + ((char32_t{unit} - 0xD800) << 10) + (text[++i] - char32_t{0xDC00}));
        } else {
            append(utf8, isHighSurrogate(unit) || isLowSurrogate(unit) ? char32_t{0xFFFD} : unit);
        }
    }
    return utf8;
}

} // namespace ostrel
