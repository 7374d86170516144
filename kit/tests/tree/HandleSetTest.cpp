#include "tree/HandleSet.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace zt::orvex::kit::internal {
namespace {

TEST(HandleSet, HandleIsNewOnce) {
    HandleSet set;
    EXPECT_TRUE(set.insert(7));
    EXPECT_FALSE(set.insert(7));
}

TEST(HandleSet, NeighboursAndOppositeEndsAreDifferent) {
    HandleSet set;
    for (const std::uint64_t handle :
         {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{63}, std::uint64_t{64},
          std::uint64_t{1} << 63, UINT64_MAX, UINT64_MAX - 1}) {
        EXPECT_TRUE(set.insert(handle)) << handle;
    }
    EXPECT_FALSE(set.insert(64));
    EXPECT_FALSE(set.insert(UINT64_MAX));
}

} // namespace
} // namespace zt::orvex::kit::internal
