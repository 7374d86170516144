#pragma once

#include <zt_orvex/support/Export.h>

#include <boost/variant.hpp>

#include <string_view>

namespace zt::orvex::internal {

/// The value of an integer literal, in the type that its suffix names: `which()` is 0 to 7 for u8,
/// u16, u32, u64, s8, s16, s32 and s64, in this order.
using IntegerLiteralValue = boost::variant<unsigned char, unsigned short, unsigned int,
                                           unsigned long long, signed char, short, int, long long>;

/// @addtogroup literals
/// ## Converting
///
/// The `parse` functions return the value of a literal that the `validate` function of the same
/// name has found valid. They trust their text; 8-bit and 16-bit text give the same results.
///
/// An integer without a suffix is unsigned and as wide as it is written: it has the narrowest type
/// that its digits fit, leading zeros included. 0xFF is an `unsigned char`, 0x00FF an
/// `unsigned short`. The digits are the bits of the value, so 0xFFs8 is -1 and 0xFFs16 is 255.
///
/// Invalid text:
///
/// - A text of at most two characters gives 0 as `unsigned char`.
/// - The prefix is skipped without a check. After it, one of s S u U in the second or third place
///   from the end begins a suffix, and the character after that letter gives the width.
/// - Leading zeros beyond the width are accepted.
/// - A character that isn't a digit, and a set bit beyond the width, throw NumberConversionError
///   for the digits alone.
/// - For a double, any text but a valid literal throws NumberConversionError for the text with
///   each d and D replaced by e. A double that is too large is infinity, one that is too small 0.
///
/// Any thread may call them. Integers allocate nothing, except in the first call of each function
/// on a thread, which compiles expressions and takes a lock for a moment, as in
/// LiteralValidation.h. A double costs one buffer.

/// @{
/// The value of a binary literal, such as `0b1011u8`, in the type that its suffix or its digits ask
/// for. Throws `NumberConversionError` for digits that aren't binary or don't fit the type.
ZT_ORVEX_EXPORT IntegerLiteralValue parseBinaryLiteral(std::basic_string_view<char> text);
ZT_ORVEX_EXPORT IntegerLiteralValue parseBinaryLiteral(std::basic_string_view<char16_t> text);
/// @}

/// @{
/// The value of a hexadecimal literal, such as `0xFFs16`, in the type that its suffix or its digits
/// ask for. Throws `NumberConversionError` for digits that aren't hexadecimal or don't fit the
/// type.
ZT_ORVEX_EXPORT IntegerLiteralValue parseHexLiteral(std::basic_string_view<char> text);
ZT_ORVEX_EXPORT IntegerLiteralValue parseHexLiteral(std::basic_string_view<char16_t> text);
/// @}

/// @{
/// The double nearest to the number of a literal such as `1.5d+3`, ties to even, in every locale.
/// Infinity and 0 beyond the range of `double`. Throws `NumberConversionError` for any text that
/// isn't a valid literal.
ZT_ORVEX_EXPORT double parseDoubleLiteral(std::basic_string_view<char> text);
ZT_ORVEX_EXPORT double parseDoubleLiteral(std::basic_string_view<char16_t> text);
/// @}

} // namespace zt::orvex::internal
