#pragma once

#include "testing/TreeBuilder.h"

#include <cstddef>
#include <vector>

namespace zt::orvex::testing {

/// The expected class of a kind. A clause is of the class "other" and is a control flow node.
enum class KindClass { Other, Clause, Statement, Expression, Method };

/// A small tree and everything that happens when it is walked, in order:
///
///   a label    the kind of the node was asked
///   !          the callback was called with that node
///   getX       an accessor of the parent was asked
///   #          the size of the range was asked
///   @1         element 1 of the range was asked
struct WalkTrace {
    using Build = NodeView (*)(TreeBuilder& t);

    WalkTrace(NodeKind ofKind, KindClass itsClass, Build toBuild, const char* toExpect)
        : kind(ofKind), kindClass(itsClass), build(toBuild), expected(toExpect) {}
    WalkTrace(NodeKind ofKind, Build toBuild, const char* toExpect)
        : WalkTrace(ofKind, KindClass::Other, toBuild, toExpect) {}

    NodeKind kind;
    KindClass kindClass; ///< Only in FULL_TRACES.
    Build build;
    const char* expected;
};

/// A trace for every kind, with all parts present and two elements in each range. In the order of
/// the kinds' numbers, from 1.
extern const std::vector<WalkTrace> FULL_TRACES;

/// A trace for every kind with optional children or ranges, with all of these absent or empty.
extern const std::vector<WalkTrace> BARE_TRACES;

/// The expected class of the kind with that number; unknown kinds are other.
inline KindClass expectedClass(std::size_t number) {
    if (number == 0 || number > FULL_TRACES.size()) return KindClass::Other;
    return FULL_TRACES[number - 1].kindClass;
}

} // namespace zt::orvex::testing
