#pragma once

#include "support/PerItem.h"
#include "support/Random.h"
#include "support/Register.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zt::orvex::benchmarks {

// The rows of one bit set class. `Set` adapts the class: a constructor from a number of bits,
// `insert`, `unite`, `intersect`, `subtract`, `equals`, `isSubsetOf`, and `sum`, which adds up the
// indices of the members.

constexpr std::size_t SET_SIZES[] = {64, 1000, 64000, 1000000};

/// All classes compare with the same function of the C library, whose speed depends on alignment:
/// enough placements for each class to meet a fast one.
constexpr int PLACES_OF_EQUALS = 21;

/// Pairs of equal sets with the given density. Small ones are used in turn, so that no operation
/// waits for the stores of the previous one.
template <typename Set>
struct SetPairs {
    SetPairs(std::size_t bits, std::uint32_t perMille) {
        const std::size_t count = bits <= 1024 ? 64 : 1;
        Random random(9);
        for (std::size_t pair = 0; pair < count; ++pair) {
            left.push_back(newSet(bits));
            right.push_back(newSet(bits));
            for (std::size_t bit = 0; bit < bits; ++bit) {
                if (random.below(1000) >= perMille) continue;
                left.back()->insert(bit);
                right.back()->insert(bit);
                sum += bit;
            }
        }
    }

    std::vector<std::unique_ptr<Set>> left;
    std::vector<std::unique_ptr<Set>> right;
    std::uint64_t sum = 0; ///< of the indices of all members on one side

private:
    /// The speed of a loop also depends on the alignment of its sets, and on their distance: each
    /// set of each measurement gets a new place.
    std::unique_ptr<Set> newSet(std::size_t bits) {
        static Random places(10);
        spacers.emplace_back(new char[places.below(static_cast<std::uint32_t>(bits / 8))]);
        return std::make_unique<Set>(bits);
    }

    std::vector<std::unique_ptr<char[]>> spacers;
};

/// `operation` returns a number for each pair; their sum must be `expected`.
template <typename Set, typename Operation>
void measureSets(benchmark::State& state, SetPairs<Set>& pairs, std::uint64_t expected,
                 Operation operation) {
    std::uint64_t result = 0;
    for (auto _ : state) {
        result = 0;
        for (std::size_t i = 0; i < pairs.left.size(); ++i)
            result += operation(*pairs.left[i], *pairs.right[i]);
        benchmark::DoNotOptimize(result);
        benchmark::ClobberMemory();
    }
    if (result != expected) state.SkipWithError("wrong answer");
    reportPerItem(state, static_cast<double>(pairs.left.size()));
}

template <typename Set>
void registerSetRows(const std::string& who) {
    for (const std::size_t bits : SET_SIZES) {
        const std::string end = "/" + who + "/bits:" + std::to_string(bits);
        const auto row = [&](const char* name, auto operation, bool isTest) {
            return registerRow(std::string("bitset/") + name + end, [=](benchmark::State& state) {
                SetPairs<Set> pairs(bits, 500);
                measureSets(state, pairs, isTest ? pairs.left.size() : 0, operation);
            });
        };
        row(
            "union", [](Set& a, Set& b) { return a.unite(b), 0u; }, false);
        row(
            "intersection", [](Set& a, Set& b) { return a.intersect(b), 0u; }, false);
        row(
            "difference", [](Set& a, Set& b) { return a.subtract(b), 0u; }, false);
        row(
            "equality", [](Set& a, Set& b) { return a.equals(b) ? 1u : 0u; }, true)
            ->Repetitions(PLACES_OF_EQUALS);
        row(
            "subset", [](Set& a, Set& b) { return a.isSubsetOf(b) ? 1u : 0u; }, true);
        for (const std::uint32_t perMille : {1u, 10u, 100u, 500u}) {
            if (bits * perMille < 10000) continue;
            registerRow("bitset/iteration_" + std::to_string(perMille) + "_per_mille" + end,
                        [=](benchmark::State& state) {
                            SetPairs<Set> pairs(bits, perMille);
                            measureSets(state, pairs, pairs.sum,
                                        [](const Set& a, const Set&) { return a.sum(); });
                        });
        }
    }
}

} // namespace zt::orvex::benchmarks
