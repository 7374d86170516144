#include "support/Utf16ToUtf8.h"

#include <cstddef>

namespace zt::orvex::internal {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void appendUtf8(std::string& out, char32_t point) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    const auto putTail = [&put, point](int shift) { put(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        putTail(0);
    } else if (point < 0x10000) {
        put(0xE0 | (point >> 12));
        putTail(6);
        putTail(0);
    } else {
        put(0xF0 | (point >> 18));
        putTail(12);
        putTail(6);
        putTail(0);
    }
}

} // namespace

std::string utf16ToUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            const auto high = static_cast<char32_t>(unit - 0xD800);
            const auto low = static_cast<char32_t>(text[i + 1] - 0xDC00);
            appendUtf8(out, 0x10000 + (high << 10) + low);
            ++i;
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            appendUtf8(out, REPLACEMENT);
        } else {
            appendUtf8(out, unit);
        }
    }
    return out;
}

} // namespace zt::orvex::internal
