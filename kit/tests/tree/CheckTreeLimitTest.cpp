#include "lying/CheckTreeFixture.h"

#include <zt_orvex/ast/BasicAstView.h>

#include <gtest/gtest.h>

#include <cstddef>

// Trees without an end, and the limits that end the check.
namespace zt::orvex::kit {
namespace {

/// Each node has a new child: an expression in parentheses, in parentheses, and so on.
class EndlessTree : public BasicAstView {
public:
    NodeKind getNodeKind(std::uint64_t) const override { return NodeKind::ParenthesizedExpression; }
    NodeView getParenthesizedInner(std::uint64_t node) const override { return {node + 1, this}; }
};

/// Each node has two new children.
class EndlesslyBranchingTree : public BasicAstView {
public:
    NodeKind getNodeKind(std::uint64_t) const override { return NodeKind::BinaryOperation; }
    BinaryOperator getBinaryOperator(std::uint64_t) const override { return BinaryOperator::Add; }
    NodeView getBinaryLhs(std::uint64_t node) const override { return {2 * node, this}; }
    NodeView getBinaryRhs(std::uint64_t node) const override { return {2 * node + 1, this}; }
};

class CheckTreeLimit : public CheckTreeFixture {
protected:
    std::vector<Finding> check(const NodeView& root) const { return checkTree(root, options); }
};

TEST_F(CheckTreeLimit, EndlessPathEndsAtTheLimitOfDepth) {
    const EndlessTree tree;
    const auto all = check({0, &tree});
    ASSERT_EQ(all.size(), 1u);
    EXPECT_EQ(all[0].code, FindingCode::TooDeep);
    EXPECT_EQ(all[0].node->node, options.maxDepth);
    EXPECT_NE(all[0].place.find("(999937 more)"), std::string::npos);
}

TEST_F(CheckTreeLimit, EndlessTreeEndsAtTheLimitOfNodes) {
    const EndlesslyBranchingTree tree;
    options.maxNodes = 10'000;
    options.maxDepth = 20;
    options.maxFindings = 1'000'000;
    const auto all = check({1, &tree});
    EXPECT_EQ(all.back().code, FindingCode::TooManyNodes);
}

TEST_F(CheckTreeLimit, TreeAtTheLimitsIsFine) {
    const NodeView root = lying.view(parenthesized(parenthesized(id("a"))));
    options.maxNodes = 3;
    options.maxDepth = 3;
    EXPECT_EQ(findings(root), "");
    options.maxNodes = 2;
    EXPECT_EQ(findings(root), "too-many-nodes at ParenthesizedExpression.getParenthesizedInner > "
                              "ParenthesizedExpression.getParenthesizedInner");
    options.maxNodes = 3;
    options.maxDepth = 1;
    EXPECT_EQ(findings(root), "too-deep at ParenthesizedExpression.getParenthesizedInner");
}

TEST_F(CheckTreeLimit, FindingsEndAtTheirLimitWithOneMore) {
    lying.onKind = [](const Call&, NodeKind& kind) {
        if (kind == NodeKind::Identifier) kind = NodeKind::Invalid;
    };
    options.maxFindings = 3;
    const auto all = check(lying.view(loop));
    ASSERT_EQ(all.size(), 4u);
    EXPECT_EQ(all[2].code, FindingCode::KindUnknown);
    EXPECT_EQ(all[3].code, FindingCode::TooManyFindings);
}

TEST_F(CheckTreeLimit, AsManyFindingsAsTheLimitAreAll) {
    answerKind(sum, NodeKind::Invalid);
    options.maxFindings = 1;
    EXPECT_EQ(check(lying.view(loop)).size(), 1u);
}

TEST_F(CheckTreeLimit, UniverseIsNotHeldAgainstAPartOfATree) {
    universe.add({symbol("unused").symbol, &lying});
    options.universe = &universe;
    options.maxDepth = 2;
    EXPECT_EQ(findings().find("universe-symbol-unused"), std::string::npos);
}

// The stack has 8 MiB, and a recursive walk takes 60 bytes a level at least.
TEST_F(CheckTreeLimit, DepthTakesNoStack) {
    NodeView root = id("a");
    for (std::size_t i = 1; i < options.maxDepth; ++i)
        root = parenthesized(root);
    EXPECT_EQ(findings(lying.view(root)), "");
}

} // namespace
} // namespace zt::orvex::kit
