// Input: commands for an OrderedSet, two SmallOrderedSets and a VariableFamily. Each is compared
// with a vector in order of first insertion. Elements are few at first, and many later, so that
// tables grow.
#include "Require.h"
#include "testing/Random.h"

#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/SmallOrderedSet.h>
#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace zt::orvex;
using fuzz::require;
using testing::Random;

namespace {

using Plain = std::vector<std::uint64_t>;

/// A number below 256, or a rarer one anywhere.
std::uint64_t elementFrom(Random& random) {
    const std::size_t below = random.below(256);
    return below == 255 ? random.next() : below % 24;
}

std::size_t placeOf(const Plain& plain, std::uint64_t element) {
    return static_cast<std::size_t>(std::find(plain.begin(), plain.end(), element) - plain.begin());
}

bool isIn(const Plain& plain, std::uint64_t element) {
    return placeOf(plain, element) < plain.size();
}

void insert(Plain& plain, std::uint64_t element) {
    if (!isIn(plain, element)) plain.push_back(element);
}

template <typename Set>
bool areEqual(const Set& set, const Plain& plain) {
    return set.size() == plain.size() && std::equal(set.begin(), set.end(), plain.begin());
}

template <typename T>
T elementOf(std::uint64_t number);
template <>
std::uint64_t elementOf(std::uint64_t number) {
    return number;
}
template <>
NodeView elementOf(std::uint64_t number) {
    return NodeView{number, nullptr};
}
template <>
std::string elementOf(std::uint64_t number) {
    return std::to_string(number);
}

template <typename T>
void playOrderedSet(Random& random) {
    flow::OrderedSet<T> set;
    Plain plain;
    while (!random.isUsedUp()) {
        const std::uint64_t number = elementFrom(random);
        const T element = elementOf<T>(number);
        const std::size_t place = placeOf(plain, number);
        switch (random.below(6)) {
        case 0:
            require(set.contains(element) == (place < plain.size()), "contains");
            break;
        case 1:
            require(set.indexOrSize(element) == place, "indexOrSize");
            break;
        case 2:
            try {
                require(set.indexOf(element) == place && place < plain.size(), "indexOf");
            } catch (const std::invalid_argument& error) {
                require(place == plain.size() && error.what() == std::string("element not found"),
                        "only a missing element is not found");
            }
            break;
        case 3:
            set.reserve(random.below(300));
            break;
        default:
            require(set.add(element) == place, "add returns the place");
            insert(plain, number);
        }
    }
    require(set.size() == plain.size(), "equal size");
    for (std::size_t i = 0; i < plain.size(); ++i)
        require(set.elementAt(i) == elementOf<T>(plain[i]), "elementAt");
    const flow::OrderedSet<T> copy(set.begin(), set.end());
    require(copy.size() == plain.size() && std::equal(copy.begin(), copy.end(), set.begin()),
            "a copy has the same order");
}

void playSmallOrderedSets(Random& random) {
    flow::SmallOrderedSet<std::uint64_t> sets[2];
    Plain plains[2];
    while (!random.isUsedUp()) {
        const std::uint64_t element = elementFrom(random);
        flow::SmallOrderedSet<std::uint64_t>& set = sets[element % 2];
        flow::SmallOrderedSet<std::uint64_t>& other = sets[1 - element % 2];
        Plain& plain = plains[element % 2];
        Plain& otherPlain = plains[1 - element % 2];
        switch (random.below(12)) {
        case 0:
            set.insertAll(other);
            for (const std::uint64_t member : otherPlain)
                insert(plain, member);
            break;
        case 1:
            set.merge(other);
            if (otherPlain.size() > plain.size()) std::swap(plain, otherPlain);
            for (const std::uint64_t member : otherPlain)
                insert(plain, member);
            otherPlain.clear();
            break;
        case 2:
            set.merge(set);
            break;
        case 3:
            set.clear();
            plain.clear();
            break;
        case 4:
            require(set.contains(element) == isIn(plain, element), "contains");
            break;
        case 5:
            std::swap(set, other);
            std::swap(plain, otherPlain);
            break;
        case 6:
            set = other;
            plain = otherPlain;
            break;
        default:
            set.insert(element);
            insert(plain, element);
        }
        require(areEqual(set, plain) && set.empty() == plain.empty(), "equal elements");
        require(areEqual(other, otherPlain), "equal elements of the other");
    }
}

void playFamily(Random& random) {
    using Lattice = flow::PowerSetLattice<int>;
    const flow::OrderedSet<int> universe({1, 2, 3});
    Lattice lattice(universe);
    flow::SystemOfEquationsBuilder<Lattice> builder(lattice, nullptr);
    auto family = builder.createVariableFamily("live", random.oneIn(2));
    std::vector<std::pair<std::uint64_t, flow::Variable<flow::BitSet<int>>*>> known;
    std::set<void*> variables;
    while (!random.isUsedUp()) {
        const std::uint64_t node = elementFrom(random);
        if (random.oneIn(16)) family.reserve(random.below(300));
        auto* const variable = family.at(NodeView{node, nullptr});
        require(variable != nullptr && variable->value().isEmpty(), "a variable begins at bottom");
        require(variable->toString() == "<names omitted in non-asserted builds>", "the fixed name");
        const auto isOfNode = [&](const auto& entry) { return entry.first == node; };
        const auto found = std::find_if(known.begin(), known.end(), isOfNode);
        if (found == known.end()) {
            require(variables.insert(variable).second, "another node has another variable");
            known.emplace_back(node, variable);
        } else {
            require(found->second == variable, "a node keeps its variable");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Random random(data, size);
    switch (random.below(5)) {
    case 0:
        playOrderedSet<std::uint64_t>(random);
        break;
    case 1:
        playOrderedSet<NodeView>(random);
        break;
    case 2:
        playOrderedSet<std::string>(random);
        break;
    case 3:
        playSmallOrderedSets(random);
        break;
    default:
        playFamily(random);
    }
    return 0;
}
