#include <zt_orvex/support/PageSize.h>

#include <gtest/gtest.h>

#include <thread>

#if defined(_WIN32)
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace zt::orvex::internal {
namespace {

struct Asked {
    std::size_t pageSize = getPageSize();
};

#if defined(__ELF__)
// Asks before the library's initialisers have run.
__attribute__((init_priority(101))) const Asked beforeInitialisers;
#else
const Asked beforeInitialisers;
#endif

TEST(PageSize, IsAPowerOfTwo) {
    const std::size_t pageSize = getPageSize();
    EXPECT_NE(pageSize, 0U);
    EXPECT_EQ(pageSize & (pageSize - 1), 0U);
}

TEST(PageSize, NeverChanges) {
    EXPECT_EQ(getPageSize(), getPageSize());
    std::size_t elsewhere = 0;
    std::thread([&elsewhere] { elsewhere = getPageSize(); }).join();
    EXPECT_EQ(elsewhere, getPageSize());
}

TEST(PageSize, IsKnownToInitialisersThatRunFirst) {
    EXPECT_EQ(beforeInitialisers.pageSize, getPageSize());
    EXPECT_NE(beforeInitialisers.pageSize, 0U);
}

TEST(PageSize, IsTheUnitInWhichTheSystemHandsOutAddressSpace) {
#if defined(_WIN32)
    SYSTEM_INFO info;
    GetSystemInfo(&info);
    EXPECT_EQ(getPageSize(), info.dwAllocationGranularity);
    EXPECT_NE(getPageSize(), info.dwPageSize);
#else
    EXPECT_EQ(getPageSize(), static_cast<std::size_t>(sysconf(_SC_PAGESIZE)));
#endif
}

} // namespace
} // namespace zt::orvex::internal
