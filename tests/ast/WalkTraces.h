#pragma once

#include "testing/TreeBuilder.h"

#include <vector>

namespace zt::orvex::testing {

/// A small tree and everything that happens when it is walked, in order:
///
///   a label    the kind of the node was asked
///   !          the callback was called with that node
///   getX       an accessor of the parent was asked
///   #          the size of the range was asked
///   @1         element 1 of the range was asked
struct WalkTrace {
    NodeKind kind;
    NodeView (*build)(TreeBuilder& t);
    const char* expected;
};

/// A trace for every kind, with all parts present and two elements in each range. In the order of
/// the kinds.
extern const std::vector<WalkTrace> FULL_TRACES;

/// A trace for every kind with optional children or ranges, with all of these absent or empty.
extern const std::vector<WalkTrace> BARE_TRACES;

} // namespace zt::orvex::testing
