#include "KindsInText.h"
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

TEST(ParsedFileKindCoverage, SourceTextYieldsEveryKindExceptThoseOfPatterns) {
    zt::orvex::testing::Random random(1);
    std::set<NodeKind> seen;
    const auto collect = [&](const std::string& source) {
        zt::orvex::forEachNodeIn(testing::parse(source).root,
                                 [&](const NodeView& node) { seen.insert(node.getKind()); });
    };
    for (int i = 0; i < 200; ++i)
        collect(zt::orvex::testing::RandomProgram(random).program());
    collect("x = );\ny = 0b2;\n");

    const std::set<NodeKind> expected = testing::kindsInText();
    for (const NodeKind kind : zt::orvex::getAllNodeKinds())
        EXPECT_EQ(seen.count(kind), expected.count(kind)) << kindName(kind);
}

} // namespace
} // namespace ostrel
