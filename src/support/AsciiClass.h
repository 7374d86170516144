#pragma once

namespace zt::orvex::internal {

/// Whether `point` is one of A to Z and a to z, in every locale.
constexpr bool isAsciiAlpha(char32_t point) {
    return (point >= U'A' && point <= U'Z') || (point >= U'a' && point <= U'z');
}

/// Whether `point` is an ASCII letter or one of 0 to 9, in every locale.
constexpr bool isAsciiAlnum(char32_t point) {
    return isAsciiAlpha(point) || (point >= U'0' && point <= U'9');
}

} // namespace zt::orvex::internal
