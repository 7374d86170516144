#include <zt_orvex/flow/VariableFamily.h>

#include "flow/ExpectThrows.h"
#include "flow/TestSystem.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <stdexcept>
#include <vector>

namespace zt::orvex::flow {
namespace {

using testing::expectThrows;

NodeView node(std::uint64_t handle, std::uintptr_t view = 0) {
    return NodeView{handle, reinterpret_cast<const IAstView*>(view)};
}

using Family = SystemTest;

TEST_F(Family, SameNodeAlwaysYieldsTheSameVariable) {
    auto family = builder.createVariableFamily("liveIn", false);
    IntVariable* const first = family.at(node(1));
    IntVariable* const second = family.at(node(2));
    EXPECT_NE(first, second);
    std::set<IntVariable*> all = {first, second};
    for (std::uint64_t handle = 3; handle < 1000; ++handle)
        all.insert(family.at(node(handle)));
    EXPECT_EQ(all.size(), 999u);
    EXPECT_EQ(family.at(node(1)), first);
    EXPECT_EQ(family.at(node(2)), second);
}

TEST_F(Family, NodesAreToldApartByHandleAlone) {
    auto family = builder.createVariableFamily("liveIn", false);
    EXPECT_EQ(family.at(node(1, 0x10)), family.at(node(1, 0x20)));
    EXPECT_NE(family.at(node(1, 0x10)), family.at(node(2, 0x10)));
}

TEST_F(Family, FamiliesShareNoVariables) {
    auto liveIn = builder.createVariableFamily("same name", false);
    auto liveOut = builder.createVariableFamily("same name", false);
    EXPECT_NE(liveIn.at(node(1)), liveOut.at(node(1)));
}

TEST_F(Family, VariablesBeginAtBottomInBothHalves) {
    auto family = builder.createVariableFamily("gen", false);
    const IntVariable* const x = family.at(node(1));
    EXPECT_TRUE(x->value().isEmpty());
    EXPECT_TRUE(x->previousValue().isEmpty());
    EXPECT_EQ(x->currentHalf(), 0);
    EXPECT_FALSE(builder.hasEquation(x));
}

TEST_F(Family, NodeNeverSeenBeforeGivesBottomAlsoAfterSolving) {
    auto family = builder.createVariableFamily("liveIn", false);
    add(family.at(node(1)), {constant({1})});
    solve();
    EXPECT_EQ(valueOf(family.at(node(1))), Indices({1}));
    EXPECT_EQ(valueOf(family.at(node(2))), Indices());
}

TEST_F(Family, CreatorIsCalledOnceForEachNode) {
    std::vector<std::uint64_t> created;
    internal::Factory<IntSet> factory;
    VariableFamily<IntSet> family("f", [&](NodeView made) {
        created.push_back(made.node);
        return factory.createVariable("", lattice.bottom());
    });
    EXPECT_TRUE(created.empty());
    for (const std::uint64_t handle : std::vector<std::uint64_t>({7, 8, 7, 9, 8}))
        family.at(node(handle));
    EXPECT_EQ(created, std::vector<std::uint64_t>({7, 8, 9}));
}

TEST_F(Family, FailedCreationIsForgotten) {
    int calls = 0;
    IntVariable* const x = variable();
    VariableFamily<IntSet> family("f", [&](NodeView) {
        if (++calls == 1) throw std::runtime_error("no variable");
        return x;
    });
    expectThrows<std::runtime_error>([&] { family.at(node(1)); }, "no variable");
    EXPECT_EQ(family.at(node(1)), x);
    EXPECT_EQ(calls, 2);
}

} // namespace
} // namespace zt::orvex::flow
