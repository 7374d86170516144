#pragma once

#include <zt_orvex/support/Export.h>

#include <string>
#include <unordered_set>

namespace zt::orvex {

/// The names of the external functions that are restricted, such as `eval` and `load`: 18 of them.
///
/// The library only holds the table, and none of its analyses asks it. Look-ups are exact: `Eval`
/// is no member. The same object at every call, built at the first one; any thread may read it.
///
///   if (getRestrictedExternals().count(u"eval") != 0) refuse();
ZT_ORVEX_EXPORT const std::unordered_set<std::u16string>& getRestrictedExternals();

} // namespace zt::orvex
