#pragma once

#include <cstddef>

namespace zt::orvex::internal {

/// The double nearest to a decimal number, ties to even, in every locale.
///
/// A number is at least one digit, with an optional point before, among or after the digits, and an
/// optional exponent: `e` or `E`, an optional sign and at least one digit. It has no leading sign.
/// `text[length]` must be 0. A number that is too large gives infinity, one that is too small a
/// subnormal or 0, whichever rounding yields.
///
/// Throws NumberConversionError for any other text, including "inf" and "nan".
double decimalToDouble(const char* text, std::size_t length);

/// The same for 16-bit text, which it narrows in place: that overwrites the units and saves a
/// second buffer. A unit above 0x7F isn't part of a number.
double decimalToDouble(char16_t* text, std::size_t length);

} // namespace zt::orvex::internal
