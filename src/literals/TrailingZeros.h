#pragma once

#include <string>

namespace zt::orvex::internal {

/// `text` without the zeros that end its fraction, of which the first digit stays: 1.500 becomes
/// 1.5, and 1.00 becomes 1.0. Texts that are no plain decimal fraction stay as they are, and so do
/// those with a zero inside the fraction that isn't its first digit: 1.1010.
std::string dropTrailingZeros(const std::string& text);

} // namespace zt::orvex::internal
