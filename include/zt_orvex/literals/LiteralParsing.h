#pragma once

#include <zt_orvex/support/Export.h>

#include <boost/variant.hpp>

#include <string_view>

namespace zt::orvex::internal {

/// The value of an integer literal, in the type that its suffix names: u8, u16, u32, u64, s8, s16,
/// s32, s64, so that `which()` is 0 to 7 in this order.
using IntegerLiteralValue = boost::variant<unsigned char, unsigned short, unsigned int,
                                           unsigned long long, signed char, short, int, long long>;

// The value of a literal that the function in LiteralValidation.h of the same name has found valid.
// They trust their text and check only what they stumble over; 8-bit and 16-bit text give the same.
//
// An integer without a suffix is unsigned and as wide as it is written: the narrowest type that
// its digits fit, leading zeros counted. 0xFF is an `unsigned char` and 0x00FF an `unsigned short`.
// The digits are the bits of the value, so that 0xFFs8 is -1 and 0xFFs16 is 255.
//
// What they do with a text that is not valid:
//   - one or two characters, or none, give 0 as `unsigned char`;
//   - a prefix is skipped unseen; behind it, a suffix is told by one of s S u U in the second or
//     third place from the end, and by the character behind that letter;
//   - leading zeros beyond the width are accepted;
//   - a digit that isn't one, and a set bit beyond the width, throw NumberConversionError for the
//     digits alone;
//   - for a double, all but the text of a valid literal throws NumberConversionError for the text
//     with each d and D as e. A double too large is infinity, and one too small 0.
//
// Any thread may call them. Integers cost nanoseconds and no memory, but for the first call of a
// function on a thread, which compiles expressions. A double costs one buffer.

/// Throws NumberConversionError, see above.
ZT_ORVEX_EXPORT IntegerLiteralValue parseBinaryLiteral(std::basic_string_view<char> text);
ZT_ORVEX_EXPORT IntegerLiteralValue parseBinaryLiteral(std::basic_string_view<char16_t> text);

/// Throws NumberConversionError, see above.
ZT_ORVEX_EXPORT IntegerLiteralValue parseHexLiteral(std::basic_string_view<char> text);
ZT_ORVEX_EXPORT IntegerLiteralValue parseHexLiteral(std::basic_string_view<char16_t> text);

/// The double nearest to the number, ties to even, in every locale. Throws NumberConversionError,
/// see above.
ZT_ORVEX_EXPORT double parseDoubleLiteral(std::basic_string_view<char> text);
ZT_ORVEX_EXPORT double parseDoubleLiteral(std::basic_string_view<char16_t> text);

} // namespace zt::orvex::internal
