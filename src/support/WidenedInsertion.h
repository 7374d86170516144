#pragma once

#include <zt_orvex/support/Char16Locale.h>

#include <ostream>
#include <sstream>
#include <string_view>

namespace zt::orvex::internal {

// How the library's inserters write to a stream of 16-bit characters.
//
// Unaided, such a stream has no facets for its characters: `fill()` throws std::bad_cast, a padded
// insertion sets `badbit`, and so does every number. These functions give what the standard
// inserters give on a stream imbued with `getChar16Locale()`, and the same on a bare one.

/// Writes `text` as the standard inserter of a string does: width, fill and adjustment apply, and
/// the width is 0 afterwards. A bare stream pads with blanks, unless it remembers a fill from a
/// locale that it had before.
std::basic_ostream<char16_t>& insertText(std::basic_ostream<char16_t>& stream,
                                         std::u16string_view text);

/// Whether the stream's locale lets it insert numbers by itself.
bool canInsertNumbers(const std::basic_ostream<char16_t>& stream);

/// An empty 8-bit stream that formats as `stream` does: its flags, precision, width and locale. The
/// fill is a stand-in that `insertFormatted` replaces, since a fill may lie outside ASCII.
std::ostringstream makeNarrowTwin(const std::basic_ostream<char16_t>& stream);

/// Writes what a twin of `stream` has formatted, and takes the width as consumed.
std::basic_ostream<char16_t>& insertFormatted(std::basic_ostream<char16_t>& stream,
                                              const std::ostringstream& twin);

/// Writes a number, or anything that has an inserter for 8-bit streams made of one number, with the
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
