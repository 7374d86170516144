#include "source/Utf8.h"

namespace ostrel {

namespace {

/// One row of the UTF-8 table: the lead byte, the length and the lowest value encoded that way.
struct LeadByte {
    unsigned char mask;
    unsigned char bits;
    std::size_t length;
    char32_t lowest;
};

constexpr LeadByte LEAD_BYTES[] = {
    {0x80, 0x00, 1, 0x0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
};

bool isScalarValue(char32_t value) {
    return value <= 0x10FFFF && !(value >= 0xD800 && value <= 0xDFFF);
}

} // namespace

std::size_t readCodePoint(std::string_view utf8, std::size_t at, char32_t& value) {
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(utf8[index]); };
    for (const LeadByte& lead : LEAD_BYTES) {
        if ((byte(at) & lead.mask) != lead.bits) continue;
        if (at + lead.length > utf8.size()) return 0;
        value = static_cast<char32_t>(byte(at) & ~lead.mask & 0xFF);
        for (std::size_t i = 1; i < lead.length; ++i) {
            if ((byte(at + i) & 0xC0) != 0x80) return 0;
            value = (value << 6) | (byte(at + i) & 0x3F);
        }
        return value >= lead.lowest && isScalarValue(value) ? lead.length : 0;
    }
    return 0;
}

bool isUtf8(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        char32_t ignored = 0;
        const std::size_t length = readCodePoint(text, at, ignored);
        if (length == 0) return false;
        at += length;
    }
    return true;
}

void appendUtf8(std::string& utf8, char32_t value) {
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

std::string toUtf8(std::u16string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool isPair =
            isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1]);
        if (isPair) {
            appendUtf8(utf8, 0x10000 + ((char32_t{unit} - 0xD800) << 10) +
                                 (text[++i] - char32_t{0xDC00}));
        } else {
            appendUtf8(utf8,
                       isHighSurrogate(unit) || isLowSurrogate(unit) ? char32_t{0xFFFD} : unit);
        }
    }
    return utf8;
}

} // namespace ostrel
