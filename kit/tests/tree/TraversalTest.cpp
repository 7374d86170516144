#include <zt_orvex_kit/tree/Traversal.h>

#include "analysis/RandomTree.h"
#include "testing/FakeAst.h"
#include "testing/PrintTo.h"
#include "testing/Random.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace zt::orvex::kit {
namespace {

using testing::label;

class Traversal : public ::testing::Test, protected testing::TreeBuilder {
protected:
    /// Logs each call as "+label" and "-label". `enter` decides what comes next.
    template <typename Enter>
    std::string logOf(const NodeView& root, const Enter& enter) {
        std::string log;
        isComplete =
            traverse(root, {[&](const Visit& visit) {
                                log += " +" + label(visit.node());
                                return enter(visit);
                            },
                            [&](const Visit& visit) { log += " -" + label(visit.node()); }});
        return log.substr(log.empty() ? 0 : 1);
    }
    std::string logOf(const NodeView& root) {
        return logOf(root, [](const Visit&) { return Next::Descend; });
    }

    bool isComplete = false;
};

TEST_F(Traversal, EntersBeforeTheChildrenAndLeavesAfterThem) {
    EXPECT_EQ(logOf(assign(id("x"), parenthesized(id("a")))),
              "+AssignmentStatement +x -x +ParenthesizedExpression +a -a "
              "-ParenthesizedExpression -AssignmentStatement");
    EXPECT_TRUE(isComplete);
}

TEST_F(Traversal, SkippedNodeIsLeftWithoutItsChildren) {
    const auto skip = [](const Visit& visit) {
        return visit.kind() == NodeKind::ParenthesizedExpression ? Next::Skip : Next::Descend;
    };
    EXPECT_EQ(logOf(assign(parenthesized(id("x")), id("a")), skip),
              "+AssignmentStatement +ParenthesizedExpression -ParenthesizedExpression +a -a "
              "-AssignmentStatement");
    EXPECT_TRUE(isComplete);
}

TEST_F(Traversal, StopLeavesNoNodeAnyMore) {
    const auto stop = [](const Visit& visit) {
        return label(visit.node()) == "x" ? Next::Stop : Next::Descend;
    };
    EXPECT_EQ(logOf(assign(id("x"), id("a")), stop), "+AssignmentStatement +x");
    EXPECT_FALSE(isComplete);
}

TEST_F(Traversal, StopAtTheRootIsTheEnd) {
    EXPECT_EQ(logOf(id("x"), [](const Visit&) { return Next::Stop; }), "+x");
    EXPECT_FALSE(isComplete);
}

TEST_F(Traversal, UnknownKindIsSkippedSilently) {
    EXPECT_EQ(logOf(row({unknown(0), id("a"), unknown(200)})), "+Row +a -a -Row");
    EXPECT_EQ(logOf(unknown(0)), "");
    EXPECT_TRUE(isComplete);
}

TEST_F(Traversal, NeedsNoCallbacks) { EXPECT_TRUE(traverse(assign(id("x"), id("a")), {})); }

TEST_F(Traversal, VisitKnowsDepthParentsAndRoles) {
    const auto inner = id("a");
    const auto middle = parenthesized(inner);
    const auto root = program({middle});
    std::vector<std::string> lines;
    traverse(root, {[&](const Visit& visit) {
                        std::ostringstream line;
                        line << visit.depth() << ' ' << visit.role();
                        lines.push_back(line.str());
                        return Next::Descend;
                    },
                    [&](const Visit& visit) {
                        if (visit.node() != inner) return;
                        EXPECT_EQ(visit.ancestor(1), std::optional<NodeView>(middle));
                        EXPECT_EQ(visit.ancestor(2), std::optional<NodeView>(root));
                        EXPECT_EQ(visit.ancestor(3), std::nullopt);
                        EXPECT_EQ(toText(visit.place()), "Program.getProgramNodes[0] > "
                                                         "ParenthesizedExpression."
                                                         "getParenthesizedInner");
                    }});
    EXPECT_EQ(lines,
              (std::vector<std::string>{"0 ", "1 getProgramNodes[0]", "2 getParenthesizedInner"}));
}

TEST_F(Traversal, RoleIsKnownWhenLeavingToo) {
    std::ostringstream roles;
    traverse(ifStatement(id("c"), {breakStatement()}),
             {{}, [&](const Visit& visit) { roles << visit.role() << ';'; }});
    EXPECT_EQ(roles.str(), "getIfCondition;getIfBody[0];;");
}

TEST(TraversalOfRandomTrees, VisitsWhatForEachNodeInVisitsInItsOrder) {
    testing::Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < testing::rounds(500); ++round) {
        testing::TreeBuilder t;
        testing::RandomTreeShape shape;
        shape.isWeird = random.oneIn(2);
        const NodeView root = t.program(testing::RandomTree(t, random, shape).statements());
        std::vector<NodeView> expected;
        forEachNodeIn(root, [&](NodeView node) { expected.push_back(node); });
        std::vector<NodeView> entered;
        std::size_t left = 0;
        EXPECT_TRUE(traverse(root, {[&](const Visit& visit) {
                                        entered.push_back(visit.node());
                                        return Next::Descend;
                                    },
                                    [&](const Visit&) { ++left; }}));
        ASSERT_EQ(entered, expected);
        ASSERT_EQ(left, expected.size());
    }
}

// The stack has 8 MiB, and a recursive walk takes 60 bytes a level at least.
TEST_F(Traversal, TakesNoStackForDepth) {
    constexpr std::size_t DEPTH = 1'000'000;
    NodeView root = id("a");
    for (std::size_t i = 0; i < DEPTH; ++i)
        root = parenthesized(root);
    std::size_t deepest = 0;
    EXPECT_TRUE(traverse(root, {[&](const Visit& visit) {
                                    deepest = std::max(deepest, visit.depth());
                                    return Next::Descend;
                                },
                                {}}));
    EXPECT_EQ(deepest, DEPTH);
}

} // namespace
} // namespace zt::orvex::kit
