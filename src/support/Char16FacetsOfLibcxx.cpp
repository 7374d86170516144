#include <zt_orvex/support/internal/Char16Facets.h>

#if defined(_LIBCPP_VERSION)
#include "support/AsciiUnits.h"

using namespace zt::orvex::internal;
using Units = std::ctype<char16_t>;
using Punctuation = std::numpunct<char16_t>;

std::locale::id Units::id;
std::locale::id Punctuation::id;
template <>
std::locale::id std::num_put<char16_t>::id{};

Units::~ctype() = default;

bool Units::do_is(mask classes, char16_t unit) const { return hasMask(classes, unit); }

const char16_t* Units::do_is(const char16_t* first, const char16_t* last, mask* classes) const {
    for (; first != last; ++first)
        *classes++ = classesOf(*first);
    return last;
}

const char16_t* Units::do_scan_is(mask classes, const char16_t* first, const char16_t* last) const {
    while (first != last && !hasMask(classes, *first))
        ++first;
    return first;
}

const char16_t* Units::do_scan_not(mask classes, const char16_t* first,
                                   const char16_t* last) const {
    while (first != last && hasMask(classes, *first))
        ++first;
    return first;
}

char16_t Units::do_toupper(char16_t unit) const { return toUpper(unit); }

const char16_t* Units::do_toupper(char16_t* first, const char16_t* last) const {
    for (; first != last; ++first)
        *first = toUpper(*first);
    return last;
}

char16_t Units::do_tolower(char16_t unit) const { return toLower(unit); }

const char16_t* Units::do_tolower(char16_t* first, const char16_t* last) const {
    for (; first != last; ++first)
        *first = toLower(*first);
    return last;
}

char16_t Units::do_widen(char c) const { return widenAscii(c); }

const char* Units::do_widen(const char* first, const char* last, char16_t* units) const {
    for (; first != last; ++first)
        *units++ = widenAscii(*first);
    return last;
}

char Units::do_narrow(char16_t unit, char fallback) const { return narrowed(unit, fallback); }

const char16_t* Units::do_narrow(const char16_t* first, const char16_t* last, char fallback,
                                 char* chars) const {
    for (; first != last; ++first)
        *chars++ = narrowed(*first, fallback);
    return last;
}

Punctuation::~numpunct() = default;

char16_t Punctuation::do_decimal_point() const { return u'.'; }
char16_t Punctuation::do_thousands_sep() const { return u','; }
std::string Punctuation::do_grouping() const { return {}; }
std::u16string Punctuation::do_truename() const { return u"true"; }
std::u16string Punctuation::do_falsename() const { return u"false"; }
#endif
