#pragma once

namespace ostrel {

/// Whether a character must not reach a terminal as it stands: a control character, or one that
/// changes the direction of writing.
constexpr bool isUnsafeToShow(char32_t character) {
    struct Range {
        char32_t first;
        char32_t last;
    };
    // C0, C1, line separators, and marks and overrides of the direction of writing.
    constexpr Range UNSAFE[] = {
        {0x0000, 0x001F}, {0x007F, 0x009F}, {0x061C, 0x061C},
        {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069},
    };
    for (const Range& range : UNSAFE)
        if (character >= range.first && character <= range.last) return true;
    return false;
}

} // namespace ostrel
