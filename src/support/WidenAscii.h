#pragma once

namespace zt::orvex::internal {

/// `c` as a UTF-16 unit. A byte above 0x7F belongs to an unknown encoding and gives U+FFFD.
constexpr char16_t widenAscii(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x80 ? static_cast<char16_t>(byte) : u'\uFFFD';
}

} // namespace zt::orvex::internal
