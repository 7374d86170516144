#pragma once

#include "testing/FakeAst.h"
#include "testing/Random.h"

#include <cstddef>
#include <vector>

namespace zt::orvex::testing {

/// A random tree: nodes of all kinds, unknown ones included, in any place.
class AnyTree {
public:
    explicit AnyTree(Random& from) : random(from), nodesLeft(random.between(1, 120)) {}

    FakeAst ast;

    NodeView make(int depth = 0);

private:
    std::size_t countFor(bool isOptional, bool isRange);
    NodeView makeInputParameter(int depth);

    Random& random;
    std::size_t nodesLeft;
};

/// The nodes that a walk visits, in order: the plain walk that the library's walk is compared with.
/// It follows the hand-written traces on the lists of the FakeAst.
std::vector<NodeView> walkPlainly(const FakeAst& ast, const NodeView& root);

} // namespace zt::orvex::testing
