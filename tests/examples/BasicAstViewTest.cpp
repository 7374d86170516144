#include "base/BasicAstView.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace ostrel {
namespace {

struct OneLeaf : BasicAstView {
    zt::orvex::NodeKind getNodeKind(std::uint64_t) const override {
        return zt::orvex::NodeKind::End;
    }
};

TEST(BasicAstView, OperationThatIsNotOverriddenNamesItself) {
    const OneLeaf tree;
    try {
        tree.getIfCondition(1);
        FAIL();
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "getIfCondition was asked, and this tree does not override it");
    }
}

TEST(BasicAstView, UnsettledOperationsAnswerZero) {
    const OneLeaf tree;
    EXPECT_EQ(tree.reservedOperation4(), 0U);
    EXPECT_EQ(tree.getNumberOperation6(1), 0U);
    EXPECT_EQ(tree.getStringLiteralText(1), 0U);
}

TEST(BasicAstView, PseudoNodesDiffer) {
    const OneLeaf tree;
    EXPECT_NE(tree.getEntryNode(), tree.getExitNode());
}

TEST(BasicAstView, RangesOfAllFamiliesLeadToTwoOperations) {
    struct Ranges : BasicAstView {
        zt::orvex::NodeView rangeElement(std::uint64_t index, std::uint64_t first,
                                         std::uint64_t) const override {
            return {first + index, this};
        }
        std::uint64_t rangeSize(std::uint64_t, std::uint64_t second) const override {
            return second;
        }
    };
    const Ranges tree;
    const zt::orvex::RowRangeView rows{7, 2, &tree};
    EXPECT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1].node, 8U);
    const zt::orvex::StatementRangeView statements{3, 1, &tree};
    EXPECT_EQ(statements.size(), 1U);
    EXPECT_EQ(statements[0].node, 3U);
}

} // namespace
} // namespace ostrel
