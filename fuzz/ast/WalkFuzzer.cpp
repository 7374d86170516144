// Input: the decisions from which a tree of nodes of any kinds in any places is grown. Both walkers
// are compared with a plain walk.
#include "Require.h"
#include "ast/AnyTree.h"
#include "ast/ForEachForStatementIn.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <vector>

using namespace zt::orvex;
using fuzz::require;

namespace {

std::vector<NodeView> loopsIn(const std::vector<NodeView>& nodes) {
    std::vector<NodeView> loops;
    std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(loops),
                 [](const NodeView& node) { return node.getKind() == NodeKind::ForStatement; });
    return loops;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    testing::Random random(data, size);
    testing::AnyTree tree(random);
    const NodeView root = tree.make();
    const std::vector<NodeView> expected = testing::walkPlainly(tree.ast, root);

    std::vector<NodeView> visited;
    forEachNodeIn(root, [&](const NodeView& node) { visited.push_back(node); });
    require(visited == expected, "the walk visits what the plain walk visits");

    std::vector<NodeView> loops;
    internal::forEachForStatementIn(root, [&](const NodeView& node) { loops.push_back(node); });
    require(loops == loopsIn(expected), "the walk over loops visits the loops of the plain walk");
    return 0;
}
