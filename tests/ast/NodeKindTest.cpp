#include "WalkTraces.h"
#include "testing/PrintTo.h"

#include <zt_orvex/ast/NodeKind.h>

#include <gtest/gtest.h>

#include <set>
#include <type_traits>

namespace zt::orvex {
namespace {

static_assert(std::is_same_v<std::underlying_type_t<NodeKind>, std::uint8_t>);
static_assert(static_cast<int>(NodeKind{}) == 0 && NodeKind{} == NodeKind::Invalid);

TEST(NodeKind, EveryNameHasItsNumber) {
    int expected = 1;
    for (const testing::WalkTrace& trace : testing::FULL_TRACES)
        EXPECT_EQ(static_cast<int>(trace.kind), expected++) << testing::nameOf(trace.kind);
}

TEST(GetAllNodeKinds, HoldsAllKindsAscendingAndNotInvalid) {
    const std::set<NodeKind>& kinds = getAllNodeKinds();
    ASSERT_EQ(kinds.size(), testing::FULL_TRACES.size());
    int expected = 1;
    for (const NodeKind kind : kinds)
        EXPECT_EQ(static_cast<int>(kind), expected++);
}

TEST(GetAllNodeKinds, GivesTheSameObjectAtEveryCall) {
    EXPECT_EQ(&getAllNodeKinds(), &getAllNodeKinds());
}

} // namespace
} // namespace zt::orvex
