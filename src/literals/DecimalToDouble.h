#pragma once

#include <cstddef>

namespace zt::orvex::internal {

/// The double nearest to a decimal number, ties to even, in every locale.
///
/// A number is digits with an optional point, of which at least one digit, then an optional
/// exponent: `e` or `E`, an optional sign and at least one digit. There is no sign in front.
/// `text[length]` must be 0. What is too large gives infinity; what is too small gives a subnormal
/// or 0, as rounding has it.
///
/// Throws NumberConversionError for any other text, "inf" and "nan" included.
double decimalToDouble(const char* text, std::size_t length);

/// The same for 16-bit text, which it narrows where it stands: the units are lost, and no second
/// buffer is needed. A unit above 0x7F is no part of a number.
double decimalToDouble(char16_t* text, std::size_t length);

} // namespace zt::orvex::internal
