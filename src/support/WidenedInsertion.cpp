#include "support/WidenedInsertion.h"

#include "support/WidenAscii.h"

#include <cstddef>
#include <locale>
#include <optional>
#include <string>
#include <typeinfo>

namespace zt::orvex::internal {

namespace {

// No number contains it, so it marks the padding in the narrow twin's text.
constexpr char FILL_STAND_IN = '\0';

/// The stream's fill, or nothing if it has none. The only way to find out is to ask: a stream keeps
/// a fill that was set while its locale had the facet.
std::optional<char16_t> knownFill(const std::basic_ostream<char16_t>& stream) {
    try {
        return stream.fill();
    } catch (const std::bad_cast&) {
        return std::nullopt;
    }
}

bool isWiderThan(const std::basic_ostream<char16_t>& stream, std::size_t size) {
    return stream.width() > 0 && static_cast<std::size_t>(stream.width()) > size;
}

std::u16string padWithBlanks(const std::basic_ostream<char16_t>& stream, std::u16string_view text) {
    const bool isLeft = (stream.flags() & std::ios_base::adjustfield) == std::ios_base::left;
    std::u16string padded(text);
    const std::size_t blanks = static_cast<std::size_t>(stream.width()) - text.size();
    padded.insert(isLeft ? padded.size() : 0, blanks, u' ');
    return padded;
}

/// Inserts `text`, which is as wide as it has to be or is padded by a stream that knows its fill.
std::basic_ostream<char16_t>& insert(std::basic_ostream<char16_t>& stream,
                                     std::u16string_view text) {
#if defined(_LIBCPP_VERSION)
    // libc++'s inserter asks for the fill whether it pads or not, and fails on a bare stream.
    if (stream.good() && !knownFill(stream)) {
        stream.width(0);
        return stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    }
#endif
    return stream << text;
}

} // namespace

std::basic_ostream<char16_t>& insertText(std::basic_ostream<char16_t>& stream,
                                         std::u16string_view text) {
    // A stream that has failed inserts nothing and keeps its width: the standard inserter does
    // that.
    if (!stream.good() || !isWiderThan(stream, text.size()) || knownFill(stream)) {
        return insert(stream, text);
    }
    const std::u16string padded = padWithBlanks(stream, text);
    stream.width(0);
    return insert(stream, padded);
}

bool canInsertNumbers(const std::basic_ostream<char16_t>& stream) {
    const std::locale locale = stream.getloc();
    return std::has_facet<std::num_put<char16_t>>(locale) &&
           std::has_facet<std::numpunct<char16_t>>(locale) &&
           std::has_facet<std::ctype<char16_t>>(locale);
}

std::ostringstream makeNarrowTwin(const std::basic_ostream<char16_t>& stream) {
    std::ostringstream twin;
    twin.exceptions(std::ios_base::badbit); // a failed allocation must not shorten the text
    twin.imbue(stream.getloc());
    twin.flags(stream.flags());
    twin.precision(stream.precision());
    twin.width(stream.width());
    twin.fill(FILL_STAND_IN);
    return twin;
}

std::basic_ostream<char16_t>& insertFormatted(std::basic_ostream<char16_t>& stream,
                                              const std::ostringstream& twin) {
    if (!stream.good()) return stream << std::u16string_view();
    const std::string narrow = twin.str();
    const bool isPadded = narrow.find(FILL_STAND_IN) != std::string::npos;
    const char16_t fill = isPadded ? knownFill(stream).value_or(u' ') : u' ';
    std::u16string wide;
    wide.reserve(narrow.size());
    for (const char c : narrow)
        wide.push_back(c == FILL_STAND_IN ? fill : widenAscii(c));
    stream.width(0);
    return insert(stream, wide);
}

} // namespace zt::orvex::internal
