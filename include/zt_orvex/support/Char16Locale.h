#pragma once

#include <zt_orvex/support/Export.h>

#include <locale>

#if defined(__GLIBCXX__)
// One object for each facet, in the library. Without these declarations every module would make
// its own, and a locale built by one module could lack the facet in the eyes of another.
template <>
ZT_ORVEX_EXPORT std::locale::id std::ctype<char16_t>::id;
template <>
ZT_ORVEX_EXPORT std::locale::id std::numpunct<char16_t>::id;
template <>
ZT_ORVEX_EXPORT std::locale::id std::num_put<char16_t>::id;
#endif

namespace zt::orvex {

/// The classic locale with what streams of 16-bit characters lack: `std::ctype`, `std::numpunct`
/// and `std::num_put` for `char16_t`.
///
/// The standard library has none of them. Without them the library's own inserters work, but on
/// such a stream `std::endl`, `std::setfill` and a lone `char` throw std::bad_cast, and padding and
/// numbers set `badbit`. Imbue the stream to have them:
///
///   std::basic_ostringstream<char16_t> out;
///   out.imbue(zt::orvex::getChar16Locale());
///   out << std::setfill(u'*') << std::setw(4) << 42 << std::endl;
///
/// Only ASCII is classified, changes case and has a narrow form; a byte above 0x7F widens to
/// U+FFFD. Numbers look as in the classic locale; a locale derived from this one can carry another
/// `std::numpunct<char16_t>`.
///
/// The same object at every call, from any thread. The library never sets the global locale. A
/// stream that is imbued must not outlive the library, should that be unloaded. Include this header
/// before the first use of a stream of 16-bit characters.
ZT_ORVEX_EXPORT const std::locale& getChar16Locale();

} // namespace zt::orvex
