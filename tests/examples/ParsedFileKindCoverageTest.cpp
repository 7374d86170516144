#include "Programs.h"
#include "testing/RandomProgram.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>

#include <gtest/gtest.h>

#include <set>

namespace ostrel {
namespace {

using zt::orvex::NodeKind;
using zt::orvex::NodeView;

TEST(ParsedFileKindCoverage, SourceTextYieldsEveryKindButOne) {
    zt::orvex::testing::Random random(1);
    std::set<NodeKind> seen;
    const auto collect = [&](const std::string& source) {
        zt::orvex::forEachNodeIn(testing::parse(source).root,
                                 [&](const NodeView& node) { seen.insert(node.getKind()); });
    };
    for (int i = 0; i < 200; ++i)
        collect(zt::orvex::testing::RandomProgram(random).program());
    collect("x = );\ny = 0b2;\n");

    std::set<NodeKind> expected = zt::orvex::getAllNodeKinds();
    // No text yields AnyExpression, which only trees of patterns have.
    expected.erase(NodeKind::AnyExpression);
    for (const NodeKind kind : expected)
        EXPECT_EQ(seen.count(kind), 1U) << kindName(kind);
    EXPECT_EQ(seen.count(NodeKind::AnyExpression), 0U);
}

} // namespace
} // namespace ostrel
