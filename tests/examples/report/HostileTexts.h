#pragma once

#include "source/UnsafeCharacters.h"
#include "terminal/DisplayText.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace ostrel::report::testing {

/// Pieces of text that would do something to a terminal, or look like another text there.
constexpr std::array<std::string_view, 14> HOSTILE_TEXTS{
    "\x1b[31m",       // an escape sequence
    "\x1b]0;title\a", // one that sets the title of the window
    "\xC2\x9B"
    "2J",                   // the same as one character
    "\x7F",                 // delete
    "\b\b\b",               // backspace
    "\r",                   // begins the line anew
    "\x01",                 // any other control
    "\xE2\x80\xAE",         // writes from right to left
    "\xE2\x81\xA6",         // isolates
    "\xE2\x80\xA8",         // a separator of lines
    "\xFF",                 // not UTF-8
    "\xC3",                 // the beginning of a character
    "\xED\xA0\x80",         // a surrogate
    "\xF0\x9F\x98\x80\x1b", // beside a valid character
};

/// The first character of an output that a terminal should not get, by its name; line feeds are
/// fine. Empty if there is none.
inline std::string unsafeCharacterIn(std::string_view output) {
    for (std::size_t at = 0; at < output.size();) {
        const Utf8Piece piece = utf8PieceAt(output, at);
        at += piece.length;
        if (!piece.isValid) return "a byte that is not UTF-8";
        if (piece.value != U'\n' && isUnsafeToShow(piece.value)) return codePointName(piece.value);
    }
    return "";
}

} // namespace ostrel::report::testing
