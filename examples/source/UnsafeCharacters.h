#pragma once

namespace ostrel {

/// Whether a character changes the direction of writing: a mark, embedding, override or isolate.
constexpr bool isDirectionControl(char32_t character) {
    return character == 0x061C || (character >= 0x200E && character <= 0x200F) ||
           (character >= 0x202A && character <= 0x202E) ||
           (character >= 0x2066 && character <= 0x2069);
}

/// Whether a character must not reach a terminal as it stands: a control character, a separator of
/// lines, or one that changes the direction of writing. May be asked of a UTF-16 unit, too.
constexpr bool isUnsafeToShow(char32_t character) {
    const bool isControl = character <= 0x001F || (character >= 0x007F && character <= 0x009F);
    const bool isSeparator = character == 0x2028 || character == 0x2029;
    return isControl || isSeparator || isDirectionControl(character);
}

} // namespace ostrel
