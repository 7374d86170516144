#include <zt_orvex/support/Char16Locale.h>

#include "support/AsciiUnits.h"

#include <sstream>
#include <string>

#if defined(__GLIBCXX__)
// The standard library declares its facets for every type of character but defines them only for
// `char` and `wchar_t`. What a derived class can't supply, because the base class itself needs it,
// is supplied here by explicit specialisations of members.

// Weak, because a source file that makes a stream without having seen our header defines objects of
// its own. Such a file can then be linked with these into one program: the linker keeps one of the
// two.
#if defined(__ELF__)
#define ZT_ORVEX_WEAK __attribute__((weak))
#else
#define ZT_ORVEX_WEAK
#endif

template <>
ZT_ORVEX_WEAK std::locale::id std::ctype<char16_t>::id{};
template <>
ZT_ORVEX_WEAK std::locale::id std::numpunct<char16_t>::id{};
template <>
ZT_ORVEX_WEAK std::locale::id std::num_put<char16_t>::id{};

using namespace zt::orvex::internal;
using Units = std::ctype<char16_t>;
using Punctuation = std::numpunct<char16_t>;

template <>
Units::~ctype() {}

template <>
bool Units::do_is(mask classes, char16_t unit) const {
    return hasMask(classes, unit);
}

template <>
const char16_t* Units::do_is(const char16_t* first, const char16_t* last, mask* classes) const {
    for (; first != last; ++first)
        *classes++ = classesOf(*first);
    return last;
}

template <>
const char16_t* Units::do_scan_is(mask classes, const char16_t* first, const char16_t* last) const {
    while (first != last && !hasMask(classes, *first))
        ++first;
    return first;
}

template <>
const char16_t* Units::do_scan_not(mask classes, const char16_t* first,
                                   const char16_t* last) const {
    while (first != last && hasMask(classes, *first))
        ++first;
    return first;
}

template <>
char16_t Units::do_toupper(char16_t unit) const {
    return toUpper(unit);
}

template <>
const char16_t* Units::do_toupper(char16_t* first, const char16_t* last) const {
    for (; first != last; ++first)
        *first = toUpper(*first);
    return last;
}

template <>
char16_t Units::do_tolower(char16_t unit) const {
    return toLower(unit);
}

template <>
const char16_t* Units::do_tolower(char16_t* first, const char16_t* last) const {
    for (; first != last; ++first)
        *first = toLower(*first);
    return last;
}

template <>
char16_t Units::do_widen(char c) const {
    return widenAscii(c);
}

template <>
const char* Units::do_widen(const char* first, const char* last, char16_t* units) const {
    for (; first != last; ++first)
        *units++ = widenAscii(*first);
    return last;
}

template <>
char Units::do_narrow(char16_t unit, char fallback) const {
    return narrowed(unit, fallback);
}

template <>
const char16_t* Units::do_narrow(const char16_t* first, const char16_t* last, char fallback,
                                 char* chars) const {
    for (; first != last; ++first)
        *chars++ = narrowed(*first, fallback);
    return last;
}

// The base class reads its answers from a table that exists only for `char` and `wchar_t`. Here the
// table stays empty, and the derived class answers.
template <>
void Punctuation::_M_initialize_numpunct(__c_locale) {}

template <>
Punctuation::~numpunct() {
    delete _M_data;
}
#endif

namespace zt::orvex {

namespace {

/// How numbers look in the classic locale.
class ClassicPunctuation : public std::numpunct<char16_t> {
protected:
    char16_t do_decimal_point() const override { return u'.'; }
    char16_t do_thousands_sep() const override { return u','; }
    std::string do_grouping() const override { return {}; }
    std::u16string do_truename() const override { return u"true"; }
    std::u16string do_falsename() const override { return u"false"; }
};

/// The first number that is formatted makes the standard library store a cache in the locale. It
/// stores the cache under a lock but reads it without one, so two threads that each print their
/// first number would race. Format one here, while no other thread can see the locale.
void fillCacheOf(const std::locale& locale) {
    std::basic_ostringstream<char16_t> stream;
    stream.exceptions(std::ios_base::badbit); // no locale without its cache
    stream.imbue(locale);
    stream << 0;
}

std::locale makeChar16Locale() {
    const std::locale withClasses(std::locale::classic(), new std::ctype<char16_t>());
    const std::locale withPunctuation(withClasses, new ClassicPunctuation());
    const std::locale complete(withPunctuation, new std::num_put<char16_t>());
    fillCacheOf(complete);
    return complete;
}

} // namespace

const std::locale& getChar16Locale() {
    // Never destroyed, so that destructors of static objects may use the locale.
    static const auto& locale = *new std::locale(makeChar16Locale());
    return locale;
}

} // namespace zt::orvex
