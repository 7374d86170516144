#pragma once

#include <string>
#include <string_view>

namespace zt::orvex::testing {

/// The text in 16-bit units, one for each byte and of the same number. For ASCII, that is UTF-16.
inline std::u16string widen(std::string_view text) {
    std::u16string wide;
    wide.reserve(text.size());
    for (const char c : text)
        wide.push_back(static_cast<unsigned char>(c));
    return wide;
}

} // namespace zt::orvex::testing
