#pragma once

#include "report/analysis/ConstructFacts.h"
#include "report/analysis/OwnElements.h"

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex_kit/reasons/Explanation.h>

#include <boost/optional.hpp>

namespace ostrel::report {

/// Why an iteration of a `parfor` may read what another one has written to a variable; nothing if
/// none may.
///
/// Prefers a plain read that another iteration's value may reach to a write of a part, which keeps
/// the rest: in `u(i) = u(i) + u(i-1)` that is `u(i-1)`, since at `u(i)` an iteration meets only what
/// it has written itself.
boost::optional<zt::orvex::kit::CarriedValue> explainCarriedValue(const ConstructFacts& facts,
                                                                  const OwnElements& own,
                                                                  zt::orvex::SymbolView variable);

} // namespace ostrel::report
