#include <zt_orvex/flow/BitSet.h>

#include "flow/BitSetDuel.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace zt::orvex::flow {
namespace {

using testing::Random;
using testing::rounds;

TEST(BitSetRandom, AgreesWithStdSetWhileTheUniverseGrows) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t game = 0; game < rounds(200); ++game) {
        BitSetDuel duel(random);
        for (int step = 0; step < 300; ++step) {
            duel.step();
            if (::testing::Test::HasFailure()) FAIL() << "game " << game << ", step " << step;
        }
        duel.check();
        if (::testing::Test::HasFailure()) FAIL() << "game " << game;
    }
}

} // namespace
} // namespace zt::orvex::flow
