#pragma once

#include <zt_orvex/support/Export.h>

#include <boost/utility/string_ref.hpp>

#include <cstddef>
#include <string>

namespace zt::orvex {

/// `text` enclosed in `quoteChar`, with each `quoteChar` inside it doubled.
///
///     quote(u"it's", u'\'');  // 'it''s'
ZT_ORVEX_EXPORT std::u16string quote(boost::basic_string_ref<char16_t> text, char16_t quoteChar);

/// Undoes `quote` in place and returns the new length. `text[length]` must exist and be the
/// terminating zero, which moves along with the text.
///
/// Outside brackets a quoted run loses its enclosing quote characters, and each doubled one in it
/// becomes one; runs and other text may follow each other freely, and a run that isn't closed
/// extends to the end of the text. Inside `(...)`, `[...]` and `{...}` nothing changes; brackets in
/// a quoted run don't count. Nothing is an error.
///
///     a'b c'd  becomes  ab cd
///     f('x')   stays    f('x')
///     )'a'     becomes  )a, since only an open bracket protects what follows
///
/// If the buffer would extend past the top of the address space, nothing is touched and the result
/// is the largest size. A quote character of 0 is of little use: outside brackets the terminating
/// zero then opens a run and is dropped, so the result is one less than the number of characters
/// kept, or the largest size if there are none.
///
/// Takes one pass and allocates nothing.
ZT_ORVEX_EXPORT std::size_t unquote(char16_t* text, std::size_t length, char16_t quoteChar);

} // namespace zt::orvex
