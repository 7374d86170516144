// Input: a universe's size, a system of equations over it, and what happens between solutions:
// values that are moved, swapped and replaced, equations that are extended, a universe that grows.
// The evaluator of sets is compared with that of terms.
#include "StopAtFailure.h"
#include "flow/internal/EvaluatorTwins.h"

#include <cstddef>
#include <cstdint>

using zt::orvex::testing::Random;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zt::orvex::fuzz::stopAtFailure();
    constexpr int SIZES[] = {1, 63, 64, 65, 193, 256, 448, 960, 1024};
    Random random(data, size);
    zt::orvex::flow::internal::EvaluatorTwins twins(random, random.pick(SIZES));
    twins.solveAndCompare();
    for (int round = 0; round < 12 && !random.isUsedUp(); ++round) {
        for (std::size_t mishaps = random.between(1, 3); mishaps > 0; --mishaps)
            twins.mishap();
        twins.solveAndCompare();
    }
    return 0;
}
