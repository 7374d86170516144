// Input: operations on four bit sets and on values of a power-set lattice over a universe that
// grows. Each set is compared with a std::set of indices.
#include "StopAtFailure.h"
#include "flow/BitSetDuel.h"

#include <zt_orvex/flow/PowerSetLattice.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>

using namespace zt::orvex::flow;
using zt::orvex::testing::Random;

namespace {

/// Two values of the lattice, each beside a plain set.
class LatticeDuel {
public:
    explicit LatticeDuel(Random& from)
        : random(from), universe(numbers(random.pick(SIZES))), lattice(universe),
          a(lattice.bottom()), b(lattice.bottom()) {}

    void step() {
        switch (random.below(8)) {
        case 0:
            lattice.setToBottom(a);
            plainA.clear();
            break;
        case 1:
            lattice.assign(a, b);
            plainA = plainB;
            break;
        case 2:
            lattice.joinInto(a, b);
            plainA = unionOf(plainA, plainB);
            break;
        case 3:
            lattice.meetInto(a, b);
            plainA = intersectionOf(plainA, plainB);
            break;
        case 4:
            lattice.minusInto(a, b);
            plainA = differenceOf(plainA, plainB);
            break;
        case 5:
            ASSERT_EQ(lattice.isLessOrEqual(a, b),
                      std::includes(plainB.begin(), plainB.end(), plainA.begin(), plainA.end()));
            break;
        case 6:
            growTo(universe, static_cast<int>(universe.size() + random.below(70)));
            addElement();
            break;
        default:
            addElement();
        }
        std::swap(a, b);
        std::swap(plainA, plainB);
    }

    void check() const {
        ASSERT_EQ(indicesOf(a), plainA);
        ASSERT_EQ(indicesOf(b), plainB);
    }

private:
    /// Also so many that words are gone over in blocks, and more than are decided on at once.
    static constexpr int SIZES[] = {0, 1, 63, 64, 140, 1024, 1100, 4100, 8300};

    void addElement() {
        if (universe.size() == 0) return;
        const auto index = static_cast<int>(random.below(universe.size()));
        a.add(number(index));
        plainA.insert(index);
    }

    Random& random;
    OrderedSet<int> universe;
    PowerSetLattice<int> lattice;
    BitSet<int> a;
    BitSet<int> b;
    std::set<int> plainA;
    std::set<int> plainB;
};

template <typename Duel>
void play(Random& random) {
    Duel duel(random);
    for (int step = 0; step < 300 && !random.isUsedUp(); ++step)
        duel.step();
    duel.check();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zt::orvex::fuzz::stopAtFailure();
    Random random(data, size);
    if (random.below(4) == 3) {
        play<LatticeDuel>(random);
    } else {
        play<BitSetDuel>(random);
    }
    return 0;
}
