#pragma once

#include <zt_orvex/support/Export.h>

#include <string>
#include <unordered_set>

namespace zt::orvex {

/// The names of the 18 external functions that are restricted: `assignin`, `builtin`, `dbstack`,
/// `eval`, `evalc`, `evalin`, `feval`, `input`, `inputname`, `load`, `nargin`, `narginchk`,
/// `nargout`, `nargoutchk`, `save`, `varargin`, `who` and `whos`.
///
/// The library only holds the table; none of its analyses consults it. Lookups are exact: `Eval`
/// isn't a member. Returns the same object on every call, built by the first; any thread may read
/// it.
///
///     if (getRestrictedExternals().count(u"eval") != 0) refuse();
ZT_ORVEX_EXPORT const std::unordered_set<std::u16string>& getRestrictedExternals();

} // namespace zt::orvex
