#pragma once

#include <string_view>

namespace ostrel {

/// What is wrong with a token that begins like a number; null if nothing is.
const char* checkNumber(std::u16string_view text);

} // namespace ostrel
