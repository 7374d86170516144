// Input: requests of two allocators. Their counters are compared with plain numbers.
#include "Require.h"
#include "testing/Random.h"

#include <zt_orvex/support/AllocatorStatistics.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

using namespace zt::orvex;
using fuzz::require;

namespace {

using Plain = std::array<std::uint64_t, 4>;

Plain countersOf(const AllocatorStatistics& statistics) {
    return {statistics.getNumberOfCallsToAllocate(), statistics.getTotalBytesRequested(),
            statistics.getNumberOfSystemMemoryAllocations(),
            statistics.getTotalBytesAllocatedFromSystem()};
}

Plain sumOf(const Plain& a, const Plain& b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2], a[3] + b[3]};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    testing::Random random(data, size);
    AllocatorStatistics statistics[2];
    Plain plain[2] = {};
    while (!random.isUsedUp()) {
        const std::size_t which = random.below(2);
        AllocatorStatistics& self = statistics[which];
        AllocatorStatistics& other = statistics[1 - which];
        const std::size_t bytes = random.oneIn(4) ? random.next() : random.below(256);
        switch (random.below(6)) {
        case 0:
            self = other;
            plain[which] = plain[1 - which];
            break;
        case 1:
            self = std::move(other); // copies
            plain[which] = plain[1 - which];
            break;
        case 2:
            self = AllocatorStatistics(self + other);
            plain[which] = sumOf(plain[0], plain[1]);
            break;
        case 3:
            self.recordSystemMemoryAllocation(bytes);
            plain[which] = sumOf(plain[which], {0, 0, 1, bytes});
            break;
        default:
            self.recordAllocationRequest(bytes);
            plain[which] = sumOf(plain[which], {1, bytes, 0, 0});
        }
        require(countersOf(self) == plain[which] && countersOf(other) == plain[1 - which],
                "the counters");
        require((self == other) == (plain[0] == plain[1]), "equal");
        require((self != other) != (self == other), "or unequal");
    }
    return 0;
}
