#include "report/sarif/Fingerprints.h"

#include "source/Utf8.h"

#include <boost/uuid/name_generator_sha1.hpp>
#include <boost/uuid/uuid_io.hpp>

namespace ostrel::report {

namespace {

/// A name-based UUID, the one standard digest that needs no other library.
std::string digest(const std::string& text) {
    // Names of another kind would need a namespace of their own.
    static const boost::uuids::name_generator_sha1 generator(boost::uuids::ns::oid());
    return to_string(generator(text));
}

/// Without blanks at the ends, and with one for each run of them within.
std::string withBlanksNormalised(std::u16string_view line) {
    std::u16string text;
    bool isAfterBlank = false;
    for (const char16_t unit : line) {
        const bool isBlank = unit == u' ' || unit == u'\t';
        if (!isBlank && isAfterBlank && !text.empty()) text += u' ';
        if (!isBlank) text += unit;
        isAfterBlank = isBlank;
    }
    return toUtf8(text);
}

} // namespace

std::string Fingerprints::next(std::string_view what, std::string_view about,
                               std::string_view scope, const Place& place) {
    std::string text;
    for (const std::string_view part : {what, about, scope, std::string_view(digestOf(place.line))})
        text.append(part).append(1, '\0');
    const std::size_t earlier = occurrences[digest(text)]++;
    return digest(text + std::to_string(earlier));
}

const std::string& Fingerprints::digestOf(std::size_t line) {
    if (line != digestedLine) {
        lineDigest = digest(withBlanksNormalised(file.source.line(line)));
        digestedLine = line;
    }
    return lineDigest;
}

} // namespace ostrel::report
