#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zt::orvex::fuzz {

/// A fuzzer's input as 16-bit text, such that ASCII stands for itself and inputs can be read: after a
/// byte 0x80 the next two are one unit, the higher one first; each other byte is one unit.
inline std::u16string unitsFrom(const std::uint8_t* data, std::size_t size) {
    std::u16string units;
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == 0x80 && i + 2 < size) {
            units.push_back(static_cast<char16_t>(data[i + 1] << 8 | data[i + 2]));
            i += 2;
        } else {
            units.push_back(data[i]);
        }
    }
    return units;
}

/// The low byte of each unit.
inline std::string lowBytesOf(std::u16string_view units) {
    std::string bytes;
    for (const char16_t unit : units)
        bytes.push_back(static_cast<char>(unit & 0xFF));
    return bytes;
}

/// A plain conversion to UTF-8, with U+FFFD for each lone surrogate.
inline std::string plainUtf8(std::u16string_view units) {
    std::string text;
    const auto byte = [&text](std::uint32_t value) { text.push_back(static_cast<char>(value)); };
    for (std::size_t i = 0; i < units.size(); ++i) {
        std::uint32_t point = units[i];
        if (point >= 0xD800 && point <= 0xDFFF) {
            const std::uint32_t next = i + 1 < units.size() ? units[i + 1] : 0;
            const bool isPair = point < 0xDC00 && next >= 0xDC00 && next <= 0xDFFF;
            point = isPair ? 0x10000 + (point - 0xD800) * 0x400 + (next - 0xDC00) : 0xFFFD;
            if (isPair) ++i;
        }
        if (point < 0x80) {
            byte(point);
        } else if (point < 0x800) {
            byte(0xC0 + point / 64);
            byte(0x80 + point % 64);
        } else if (point < 0x10000) {
            byte(0xE0 + point / 4096);
            byte(0x80 + point / 64 % 64);
            byte(0x80 + point % 64);
        } else {
            byte(0xF0 + point / 262144);
            byte(0x80 + point / 4096 % 64);
            byte(0x80 + point / 64 % 64);
            byte(0x80 + point % 64);
        }
    }
    return text;
}

} // namespace zt::orvex::fuzz
