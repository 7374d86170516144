#pragma once

#include <zt_orvex/ast/NodeKind.h>

#include <set>

namespace ostrel::testing {

/// The kinds that the parser makes from source text.
inline std::set<zt::orvex::NodeKind> kindsInText() {
    std::set<zt::orvex::NodeKind> kinds = zt::orvex::getAllNodeKinds();
    kinds.erase(zt::orvex::NodeKind::AnyExpression); // Only trees of patterns have it.
    return kinds;
}

} // namespace ostrel::testing
