#include "AnyTree.h"
#include "WalkTraces.h"
#include "ast/ForEachForStatementIn.h"
#include "testing/PrintTo.h"
#include "testing/Random.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <vector>

namespace zt::orvex::testing {
namespace {

TEST(RandomWalk, BothWalkersAgreeWithAPlainOne) {
    Random random;
    SCOPED_TRACE(random.describe());
    std::map<NodeKind, int> kindsSeen;
    for (std::size_t round = 0; round < rounds(5000); ++round) {
        AnyTree tree(random);
        const NodeView root = tree.make();
        const std::vector<NodeView> expected = walkPlainly(tree.ast, root);
        std::vector<NodeView> expectedLoops;
        for (const NodeView& node : expected) {
            ++kindsSeen[node.getKind()];
            if (node.getKind() == NodeKind::ForStatement) expectedLoops.push_back(node);
        }

        std::vector<NodeView> visited;
        forEachNodeIn(root, [&](const NodeView& node) { visited.push_back(node); });
        ASSERT_EQ(visited, expected) << "round " << round;
        std::vector<NodeView> loops;
        internal::forEachForStatementIn(root, [&](const NodeView& node) { loops.push_back(node); });
        ASSERT_EQ(loops, expectedLoops) << "round " << round;
    }
    EXPECT_EQ(kindsSeen.size(), FULL_TRACES.size()) << "not all kinds were seen";
}

} // namespace
} // namespace zt::orvex::testing
