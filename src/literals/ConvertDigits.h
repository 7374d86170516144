#pragma once

#include "literals/LiteralGrammar.h"

#include <cstddef>
#include <limits>
#include <string_view>
#include <type_traits>

namespace zt::orvex::internal {

/// Throws NumberConversionError for `digits`. Not inline, to keep the loops that call it small.
[[noreturn]] void throwConversionError(std::string_view digits);
[[noreturn]] void throwConversionError(std::u16string_view digits);

/// The bits that `digits` spell in a `Target`; an empty text spells 0.
///
/// Throws NumberConversionError if a set bit would be shifted out, and for a character that isn't a
/// digit. Leading zeros are accepted.
template <class Target, class Radix, class CharT>
Target convertDigits(std::basic_string_view<CharT> digits) {
    using Bits = std::make_unsigned_t<Target>;
    constexpr std::size_t SHIFT = Radix::BITS_PER_DIGIT;
    constexpr std::size_t TOP_DIGIT = std::numeric_limits<Bits>::digits - SHIFT;
    Bits bits = 0;
    for (const CharT c : digits) {
        const unsigned digit = Radix::digitValue(static_cast<std::make_unsigned_t<CharT>>(c));
        if ((bits >> TOP_DIGIT) != 0 || digit >= Radix::RADIX) throwConversionError(digits);
        bits = static_cast<Bits>(static_cast<Bits>(bits << SHIFT) | static_cast<Bits>(digit));
    }
    return static_cast<Target>(bits);
}

} // namespace zt::orvex::internal
