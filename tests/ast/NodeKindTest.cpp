#include "KindList.h"
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
    for (const testing::ListedKind& listed : testing::KIND_LIST)
        EXPECT_EQ(static_cast<int>(listed.kind), expected++) << listed.kind;
}

TEST(GetAllNodeKinds, HoldsAllKindsAscendingAndNotInvalid) {
    const std::set<NodeKind>& kinds = getAllNodeKinds();
    ASSERT_EQ(kinds.size(), testing::KIND_COUNT);
    int expected = 1;
    for (const NodeKind kind : kinds)
        EXPECT_EQ(static_cast<int>(kind), expected++);
}

TEST(GetAllNodeKinds, GivesTheSameObjectAtEveryCall) {
    EXPECT_EQ(&getAllNodeKinds(), &getAllNodeKinds());
}

} // namespace
} // namespace zt::orvex
