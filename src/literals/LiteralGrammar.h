#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zt::orvex::internal {

// Deliberate: the two patterns of a double differ, although they accept the same texts. The engine
// for 8-bit text backtracks and stays linear only with possessive quantifiers; the one for 16-bit
// text never backtracks, so its pattern is written plainly.
constexpr std::string_view NARROW_DOUBLE_PATTERN =
    R"((?:[0-9]++\.?+[0-9]*+|\.[0-9]++)([dDeE][+-]?+[0-9]++)?+)";
constexpr std::string_view WIDE_DOUBLE_PATTERN =
    R"(([0-9]+\.?[0-9]*|\.[0-9]+)([dDeE][+-]?[0-9]+)?)";

constexpr std::string_view RADIX_PREFIX_PATTERN = "0[xXbB]";
constexpr std::string_view TYPE_SUFFIX_PATTERN = "|[uUsS](8|16|32|64)"; // or empty: no suffix

struct Binary {
    static constexpr std::string_view PATTERN = "0[bB][01]+([uUsS](8|16|32|64))?";
    static constexpr unsigned RADIX = 2;
    static constexpr std::size_t BITS_PER_DIGIT = 1;

    /// The value of a digit; at least RADIX for any other character's code.
    static constexpr unsigned digitValue(std::uint32_t code) { return code - U'0'; }
};

using HexDigitValues = std::array<std::uint8_t, 256>;

constexpr HexDigitValues makeHexDigitValues() {
    constexpr std::uint8_t NO_DIGIT = 16;
    HexDigitValues values{};
    for (std::size_t code = 0; code < values.size(); ++code)
        values[code] = NO_DIGIT;
    for (std::uint8_t digit = 0; digit < 16; ++digit) {
        values[static_cast<std::size_t>("0123456789ABCDEF"[digit])] = digit;
        values[static_cast<std::size_t>("0123456789abcdef"[digit])] = digit;
    }
    return values;
}

inline constexpr HexDigitValues HEX_DIGIT_VALUES = makeHexDigitValues();

struct Hexadecimal {
    static constexpr std::string_view PATTERN = "0[xX][0-9A-Fa-f]+([uUsS](8|16|32|64))?";
    static constexpr unsigned RADIX = 16;
    static constexpr std::size_t BITS_PER_DIGIT = 4;

    /// The value of a digit; at least RADIX for any other character's code. A code beyond the table
    /// keeps its higher bits, so the loops over digits need no branch for it.
    static constexpr unsigned digitValue(std::uint32_t code) {
        return HEX_DIGIT_VALUES[code & 0xFF] | (code & ~std::uint32_t{0xFF});
    }
};

/// How many digits of the radix fit into `bits` bits.
template <class Radix>
constexpr std::size_t digitsThatFit(std::size_t bits) {
    return bits / Radix::BITS_PER_DIGIT;
}

} // namespace zt::orvex::internal
