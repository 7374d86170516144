#pragma once

#include <string>
#include <string_view>

namespace zt::orvex::kit::internal {

/// `text` between the quotes of a DOT or JSON string. Only the escapes that both know, and for other
/// control characters that of JSON.
inline std::string escaped(std::string_view text) {
    static constexpr char DIGITS[] = "0123456789abcdef";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            result += {'\\', c};
        } else if (c == '\n') {
            result += "\\n";
        } else if (byte < 0x20) {
            result += {'\\', 'u', '0', '0', DIGITS[byte / 16], DIGITS[byte % 16]};
        } else {
            result += c;
        }
    }
    return result;
}

} // namespace zt::orvex::kit::internal
