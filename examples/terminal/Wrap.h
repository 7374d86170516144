#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {

/// Breaks a text into lines of at most `width` columns, between words; a longer word stays whole.
/// The text must be safe for a terminal already. At least one line, which may be empty.
std::vector<std::string> wrap(std::string_view text, std::size_t width);

} // namespace ostrel
