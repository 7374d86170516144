#pragma once

#include <zt_orvex/support/Export.h>
#include <zt_orvex/support/internal/Char16Facets.h>

#include <locale>

#if defined(__GLIBCXX__)
// The library holds the identity of each facet. Without these declarations every module would have
// identities of its own, and one module wouldn't find the facets in a locale made by another.
template <>
ZT_ORVEX_EXPORT std::locale::id std::ctype<char16_t>::id;
template <>
ZT_ORVEX_EXPORT std::locale::id std::numpunct<char16_t>::id;
template <>
ZT_ORVEX_EXPORT std::locale::id std::num_put<char16_t>::id;

#if defined(_WIN32)
// For Windows, a declaration must also say that these members come from the library.
template <>
ZT_ORVEX_EXPORT std::ctype<char16_t>::~ctype();
template <>
ZT_ORVEX_EXPORT bool std::ctype<char16_t>::do_is(mask, char16_t) const;
template <>
ZT_ORVEX_EXPORT const char16_t* std::ctype<char16_t>::do_is(const char16_t*, const char16_t*,
                                                            mask*) const;
template <>
ZT_ORVEX_EXPORT const char16_t* std::ctype<char16_t>::do_scan_is(mask, const char16_t*,
                                                                 const char16_t*) const;
template <>
ZT_ORVEX_EXPORT const char16_t* std::ctype<char16_t>::do_scan_not(mask, const char16_t*,
                                                                  const char16_t*) const;
template <>
ZT_ORVEX_EXPORT char16_t std::ctype<char16_t>::do_toupper(char16_t) const;
template <>
ZT_ORVEX_EXPORT const char16_t* std::ctype<char16_t>::do_toupper(char16_t*, const char16_t*) const;
template <>
ZT_ORVEX_EXPORT char16_t std::ctype<char16_t>::do_tolower(char16_t) const;
template <>
ZT_ORVEX_EXPORT const char16_t* std::ctype<char16_t>::do_tolower(char16_t*, const char16_t*) const;
template <>
ZT_ORVEX_EXPORT char16_t std::ctype<char16_t>::do_widen(char) const;
template <>
ZT_ORVEX_EXPORT const char* std::ctype<char16_t>::do_widen(const char*, const char*,
                                                           char16_t*) const;
template <>
ZT_ORVEX_EXPORT char std::ctype<char16_t>::do_narrow(char16_t, char) const;
template <>
ZT_ORVEX_EXPORT const char16_t* std::ctype<char16_t>::do_narrow(const char16_t*, const char16_t*,
                                                                char, char*) const;
template <>
ZT_ORVEX_EXPORT void std::numpunct<char16_t>::_M_initialize_numpunct(__c_locale);
template <>
ZT_ORVEX_EXPORT std::numpunct<char16_t>::~numpunct();
#endif
#endif

namespace zt::orvex {

/// The classic locale with the facets that streams of 16-bit characters need: `std::ctype`,
/// `std::numpunct` and `std::num_put` for `char16_t`.
///
/// The standard library provides none of them. The library's own inserters work without, but on
/// such a stream `std::endl`, `std::setfill` and a single `char` throw std::bad_cast, and padding
/// and numbers set `badbit`. Imbue the stream with this locale:
///
///     std::basic_ostringstream<char16_t> out;
///     out.imbue(zt::orvex::getChar16Locale());
///     out << std::setfill(u'*') << std::setw(4) << 42 << std::endl;
///
/// Only ASCII characters are classified, change case and have a narrow form; a byte above 0x7F
/// widens to U+FFFD. Numbers look as in the classic locale; a locale derived from this one can have
/// another `std::numpunct<char16_t>`.
///
/// Returns the same object on every call, from any thread, and using that object never changes it.
/// The library never sets the global locale. An imbued stream must not outlive the library if that
/// is unloaded. Include this header before the first use of a stream of 16-bit characters. On
/// Windows, a source file that hasn't seen it has facets of its own, and the locale is of no use
/// there.
ZT_ORVEX_EXPORT const std::locale& getChar16Locale();

} // namespace zt::orvex
