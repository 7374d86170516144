#pragma once

#include <string>

namespace zt::orvex::internal {

/// `text` without the zeros at the end of its fraction; the first digit of the fraction always
/// stays: 1.500 becomes 1.5, and 1.00 becomes 1.0. Any text but a plain decimal fraction stays as
/// it is, and so does a fraction with a zero inside it that isn't its first digit: 1.1010.
std::string dropTrailingZeros(const std::string& text);

} // namespace zt::orvex::internal
