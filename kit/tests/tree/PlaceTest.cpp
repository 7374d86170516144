#include <zt_orvex_kit/tree/Place.h>

#include "testing/TreeBuilder.h"

#include <gtest/gtest.h>

namespace zt::orvex::kit {
namespace {

class PlaceText : public ::testing::Test, protected testing::TreeBuilder {};

TEST_F(PlaceText, NamesKindsAccessorsAndIndexes) {
    const auto condition = id("c");
    const auto loop = parforLoop(id("k"), id("n"),
                                 {breakStatement(), breakStatement(), ifStatement(condition, {})});
    EXPECT_EQ(toText(*findPlace(loop, condition)),
              "ParforStatement.getParforBody[2] > IfStatement.getIfCondition");
}

TEST_F(PlaceText, OfTheRootIsRoot) {
    const auto root = id("a");
    EXPECT_EQ(toText(*findPlace(root, root)), "root");
}

TEST_F(PlaceText, OfADeepNodeLeavesTheMiddleOut) {
    const auto leaf = id("a");
    NodeView root = leaf;
    for (int i = 0; i < 65; ++i)
        root = parenthesized(root);
    const std::string text = toText(*findPlace(root, leaf));
    const std::string step = "ParenthesizedExpression.getParenthesizedInner";
    std::string expected = step;
    for (int i = 1; i < 32; ++i)
        expected += " > " + step;
    expected += " > (2 more)";
    for (int i = 0; i < 31; ++i)
        expected += " > " + step;
    EXPECT_EQ(text, expected);
}

TEST_F(PlaceText, OfSixtyFourStepsIsWhole) {
    const auto leaf = id("a");
    NodeView root = leaf;
    for (int i = 0; i < 64; ++i)
        root = parenthesized(root);
    EXPECT_EQ(toText(*findPlace(root, leaf)).find("more"), std::string::npos);
}

TEST_F(PlaceText, NodeOutsideTheTreeHasNoPlace) {
    EXPECT_FALSE(findPlace(assign(id("x"), id("a")), id("b")).has_value());
}

} // namespace
} // namespace zt::orvex::kit
