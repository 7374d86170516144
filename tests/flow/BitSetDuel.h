#pragma once

#include "flow/TestElements.h"
#include "testing/Random.h"

#include <zt_orvex/flow/BitSet.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

namespace zt::orvex::flow {

inline std::set<int> unionOf(const std::set<int>& a, const std::set<int>& b) {
    std::set<int> result;
    std::set_union(a.begin(), a.end(), b.begin(), b.end(), std::inserter(result, result.end()));
    return result;
}

inline std::set<int> intersectionOf(const std::set<int>& a, const std::set<int>& b) {
    std::set<int> result;
    std::set_intersection(a.begin(), a.end(), b.begin(), b.end(),
                          std::inserter(result, result.end()));
    return result;
}

inline std::set<int> differenceOf(const std::set<int>& a, const std::set<int>& b) {
    std::set<int> result;
    std::set_difference(a.begin(), a.end(), b.begin(), b.end(),
                        std::inserter(result, result.end()));
    return result;
}

/// Four sets over one growing universe, each beside a `std::set` of indices.
class BitSetDuel {
public:
    explicit BitSetDuel(testing::Random& randomToUse) : random(randomToUse) {
        growTo(universe, static_cast<int>(random.below(130)));
        for (int i = 0; i < 4; ++i)
            pairs.push_back({BitSet<int>(universe), {}});
    }

    /// One operation on random sets. Growth of the universe is lazy, so between two operations on
    /// a set the universe may have passed several words.
    void step() {
        Pair& self = pairs[random.below(pairs.size())];
        Pair& other = pairs[random.below(pairs.size())];
        const int size = static_cast<int>(universe.size());
        const auto index = static_cast<int>(random.below(universe.size() + 1));
        const bool isKnown = index < size;
        switch (random.below(22)) {
        case 0:
        case 1:
        case 2:
            if (!isKnown) {
                EXPECT_THROW(self.set.add(number(index)), std::invalid_argument);
            } else {
                self.set.add(number(index));
                self.model.insert(index);
            }
            break;
        case 3:
            if (!isKnown) {
                EXPECT_THROW(self.set.remove(number(index)), std::invalid_argument);
            } else {
                self.set.remove(number(index));
                self.model.erase(index);
            }
            break;
        case 4:
            if (!isKnown) {
                EXPECT_THROW((void)self.set.contains(number(index)), std::invalid_argument);
            } else {
                ASSERT_EQ(self.set.contains(number(index)), self.model.count(index) != 0);
            }
            break;
        case 5:
            if (!random.oneIn(4)) break;
            self.set.clear();
            self.model.clear();
            break;
        case 6:
            if (!random.oneIn(4)) break;
            self.set.addAll();
            self.model = allBelow(size);
            break;
        case 7:
            ASSERT_EQ(self.set.isEmpty(), self.model.empty());
            break;
        case 8:
            checkSmallest(self);
            break;
        case 9:
            checkSmallestFrom(self, index);
            break;
        case 10:
            ASSERT_EQ(self.set == other.set, self.model == other.model);
            break;
        case 11:
            ASSERT_EQ(self.set != other.set, self.model != other.model);
            break;
        case 12:
            ASSERT_EQ(self.set.isSubsetOf(other.set),
                      std::includes(other.model.begin(), other.model.end(), self.model.begin(),
                                    self.model.end()));
            break;
        case 13:
            self.set.unionWith(other.set);
            self.model = unionOf(self.model, other.model);
            break;
        case 14:
            self.set.intersectWith(other.set);
            self.model = intersectionOf(self.model, other.model);
            break;
        case 15:
            self.set.subtract(other.set);
            self.model = differenceOf(self.model, other.model);
            break;
        case 16:
            ASSERT_EQ(indicesOf(self.set), self.model);
            break;
        case 17:
            checkComplement(self);
            break;
        case 18:
            self.set.growToUniverse();
            break;
        case 19:
            self.set = other.set;
            self.model = other.model;
            break;
        case 20: {
            BitSet<int> copy(other.set);
            self.set = std::move(copy);
            self.model = other.model;
            break;
        }
        case 21:
            growTo(universe, size + static_cast<int>(random.below(random.oneIn(3) ? 80 : 3)));
        }
    }

    void check() const {
        for (const Pair& pair : pairs)
            ASSERT_EQ(indicesOf(pair.set), pair.model);
    }

private:
    using Indices = std::set<int>;

    /// A set and what it should hold.
    struct Pair {
        BitSet<int> set;
        Indices model;
    };

    static void checkSmallest(const Pair& self) {
        if (self.model.empty()) {
            EXPECT_THROW(self.set.getSmallestElement(), std::invalid_argument);
        } else {
            ASSERT_EQ(self.set.getSmallestElement(), number(*self.model.begin()));
        }
    }

    static void checkSmallestFrom(const Pair& self, int index) {
        const auto position = static_cast<std::uint64_t>(index);
        const auto next = self.model.lower_bound(index);
        if (next == self.model.end()) {
            EXPECT_THROW(self.set.getSmallestElementStartingFromIndex(position), std::logic_error);
        } else {
            ASSERT_EQ(self.set.getSmallestElementStartingFromIndex(position), number(*next));
        }
    }

    void checkComplement(const Pair& self) const {
        Indices complement;
        for (const int element : self.set.toComplementElementSet()) {
            complement.insert((element + 3) / 5);
        }
        ASSERT_EQ(complement,
                  differenceOf(allBelow(static_cast<int>(universe.size())), self.model));
    }

    testing::Random& random;
    OrderedSet<int> universe;
    std::vector<Pair> pairs;
};

} // namespace zt::orvex::flow
