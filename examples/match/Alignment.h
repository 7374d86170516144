#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace ostrel {

/// An element of one sequence and its counterpart in another; NONE if it has none.
struct AlignedPair {
    static constexpr std::size_t NONE = static_cast<std::size_t>(-1);
    std::size_t first;
    std::size_t second;
};

/// How well two elements that aren't equal fit each other: from 1 to MAX_LIKENESS.
using Likeness = std::function<int(std::size_t first, std::size_t second)>;
constexpr int MAX_LIKENESS = 100;

/// Aligns two sequences, given as the numbers of their elements, where equal numbers mean equal
/// elements. Returns pairs in the order of both sequences, each element once.
///
/// As many equal elements as possible are paired: a longest common subsequence. Between two such
/// pairs, the elements left over are paired with those that they are most like, so that only what
/// one sequence has more than the other stays alone.
///
/// Cost: linear but for sorting. The best alignment takes quadratic time, so a long stretch without
/// equal ends is first cut at the elements that each sequence has exactly once. Where that leaves a
/// long stretch, its elements are paired in order.
std::vector<AlignedPair> align(const std::vector<std::uint32_t>& first,
                               const std::vector<std::uint32_t>& second, const Likeness& likeness);

} // namespace ostrel
