#pragma once

#include <zt_orvex/support/Char16Locale.h>

#include <ostream>
#include <sstream>
#include <string_view>

namespace zt::orvex::internal {

// How the library's inserters write to a stream of 16-bit characters.
//
// Such a stream has no facets for its characters by default: `fill()` throws std::bad_cast, and
// padded insertions and numbers set `badbit`. These functions write to such a bare stream what the
// standard inserters write to one that is imbued with `getChar16Locale()`.

/// Writes `text` as the standard inserter of a string does: width, fill and adjustment apply, and
/// the width is 0 afterwards. A bare stream pads with blanks, unless it still has a fill that was
/// set under another locale.
std::basic_ostream<char16_t>& insertText(std::basic_ostream<char16_t>& stream,
                                         std::u16string_view text);

/// Whether the stream's locale has the facets for inserting numbers.
bool canInsertNumbers(const std::basic_ostream<char16_t>& stream);

/// An empty 8-bit stream with the flags, precision, width and locale of `stream`. Its fill is a
/// placeholder that `insertFormatted` replaces, since the fill of `stream` may not be ASCII.
std::ostringstream makeNarrowTwin(const std::basic_ostream<char16_t>& stream);

/// Writes what a twin of `stream` has formatted, and resets the width.
std::basic_ostream<char16_t>& insertFormatted(std::basic_ostream<char16_t>& stream,
                                              const std::ostringstream& twin);

/// Writes a number, or any type whose inserter for 8-bit streams inserts one number, with the
/// stream's flags, precision, width and fill.
///
///   return insertText(insertNumber(stream, imaginary.value), u"i");
template <class Number>
std::basic_ostream<char16_t>& insertNumber(std::basic_ostream<char16_t>& stream, Number value) {
    if (canInsertNumbers(stream)) return stream << value;
    std::ostringstream twin = makeNarrowTwin(stream);
    twin << value;
    return insertFormatted(stream, twin);
}

} // namespace zt::orvex::internal
