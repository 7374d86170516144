#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zt::orvex::internal {

// Deliberate: the two patterns of a double differ. They accept the same texts, but the engine of
// the 8-bit one backtracks, and only possessive quantifiers keep that linear; the 16-bit one never
// backtracks and is written plainly.
constexpr std::string_view NARROW_DOUBLE_PATTERN =
    R"((?:[0-9]++\.?+[0-9]*+|\.[0-9]++)([dDeE][+-]?+[0-9]++)?+)";
constexpr std::string_view WIDE_DOUBLE_PATTERN =
    R"(([0-9]+\.?[0-9]*|\.[0-9]+)([dDeE][+-]?[0-9]+)?)";

constexpr std::string_view RADIX_PREFIX_PATTERN = "0[xXbB]";
constexpr std::string_view TYPE_SUFFIX_PATTERN = "|[uUsS](8|16|32|64)"; // empty: no suffix

/// The values of a radix' digits, by character code; all other characters have NO_DIGIT.
using DigitValues = std::array<std::uint8_t, 256>;
constexpr std::uint8_t NO_DIGIT = 0xFF;

constexpr DigitValues makeDigitValues(std::size_t radix) {
    constexpr std::string_view UPPER = "0123456789ABCDEF";
    constexpr std::string_view LOWER = "0123456789abcdef";
    DigitValues values{};
    for (std::uint8_t& value : values)
        value = NO_DIGIT;
    for (std::size_t digit = 0; digit < radix; ++digit) {
        values[static_cast<unsigned char>(UPPER[digit])] = static_cast<std::uint8_t>(digit);
        values[static_cast<unsigned char>(LOWER[digit])] = static_cast<std::uint8_t>(digit);
    }
    return values;
}

struct Binary {
    static constexpr std::string_view PATTERN = "0[bB][01]+([uUsS](8|16|32|64))?";
    static constexpr std::size_t BITS_PER_DIGIT = 1;
    static constexpr DigitValues DIGIT_VALUES = makeDigitValues(2);
};

struct Hexadecimal {
    static constexpr std::string_view PATTERN = "0[xX][0-9A-Fa-f]+([uUsS](8|16|32|64))?";
    static constexpr std::size_t BITS_PER_DIGIT = 4;
    static constexpr DigitValues DIGIT_VALUES = makeDigitValues(16);
};

/// How many digits of the radix fit a type of `bits` bits.
template <class Radix>
constexpr std::size_t digitsThatFit(std::size_t bits) {
    return bits / Radix::BITS_PER_DIGIT;
}

} // namespace zt::orvex::internal
