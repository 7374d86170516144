#pragma once

#include "testing/TreeBuilder.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace zt::orvex::testing {

/// A way in which a program nests, and a question whose answer recurses that deep.
struct Nesting {
    const char* name;
    /// A tree with that many levels of it.
    NodeView (*build)(TreeBuilder& builder, std::size_t depth);
    void (*ask)(TreeBuilder& builder, const NodeView& root);
};

const std::vector<Nesting>& allNestings();

/// Whether the question about `depth` levels is answered on a stack of that many bytes.
bool isAnswered(const Nesting& nesting, std::size_t depth, std::size_t stackBytes);

} // namespace zt::orvex::testing
