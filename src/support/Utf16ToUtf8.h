#pragma once

#include <string>
#include <string_view>

namespace zt::orvex::internal {

/// `text` in UTF-8, with one U+FFFD for each lone surrogate. Accepts any sequence of units.
///
/// Written here because the header-only converters at hand drop the unit after a lone high
/// surrogate.
std::string utf16ToUtf8(std::u16string_view text);

} // namespace zt::orvex::internal
