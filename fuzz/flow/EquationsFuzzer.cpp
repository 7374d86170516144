// Input: a universe's size and a system of equations. The framework's solution is compared with
// that of plain data, sweep by sweep in the framework's order, which is held to what it promises.
#include "Require.h"
#include "StopAtFailure.h"
#include "flow/RandomSystem.h"
#include "flow/TestSystem.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

using namespace zt::orvex::flow;
using zt::orvex::fuzz::require;
using zt::orvex::testing::Random;

namespace {

using Reads = std::vector<std::set<int>>; // by variable

/// The variables that each variable's equation reads.
Reads readsOf(const PlainSystem& plain) {
    Reads reads(plain.variables.size());
    for (const PlainSystem::Equation& equation : plain.equations) {
        for (const PlainSystem::Term& term : equation.terms) {
            if (term.kind != PlainSystem::Kind::Constant)
                reads[static_cast<std::size_t>(equation.variable)].insert(term.operand);
        }
    }
    return reads;
}

/// Those that it reads through others, too.
Reads closureOf(Reads reads) {
    for (std::size_t through = 0; through < reads.size(); ++through) {
        const std::set<int> further = reads[through];
        for (std::set<int>& from : reads) {
            if (from.count(static_cast<int>(through)) != 0)
                from.insert(further.begin(), further.end());
        }
    }
    return reads;
}

/// Each equation once, and after those that it reads, except around a cycle.
void requireOrder(const PlainSystem& plain, const std::vector<int>& order) {
    std::multiset<int> defined;
    for (const PlainSystem::Equation& equation : plain.equations)
        defined.insert(equation.variable);
    require(std::multiset<int>(order.begin(), order.end()) == defined, "each equation once");

    const Reads reads = readsOf(plain);
    const Reads closure = closureOf(reads);
    for (std::size_t reader = 0; reader < order.size(); ++reader) {
        for (std::size_t later = reader + 1; later < order.size(); ++later) {
            const int a = order[reader];
            const int b = order[later];
            require(reads[static_cast<std::size_t>(a)].count(b) == 0 ||
                        closure[static_cast<std::size_t>(b)].count(a) != 0,
                    "an equation comes after what it reads");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zt::orvex::fuzz::stopAtFailure();
    constexpr int SIZES[] = {128, 256, 1024, 1700};
    Random random(data, size);
    const OrderedSet<int> universe = numbers(random.pick(SIZES));
    IntLattice lattice(universe);
    PlainSystem plain = randomSystem(random, random.between(1, 24));
    BuiltSystem built(plain, universe, lattice);
    const std::vector<int> order = built.evaluationOrder();
    requireOrder(plain, order);
    // The second time the halves hold what the first left there.
    for (int time = 0; time < 2; ++time) {
        require(built.solve() == plain.solve(order), "equal sweeps");
        for (std::size_t i = 0; i < plain.variables.size(); ++i)
            require(built.valueOf(i) == plain.variables[i].value(), "equal values");
    }
    return 0;
}
