#include "match/Alignment.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace ostrel {

namespace {

using Numbers = std::vector<std::uint32_t>;

/// The largest table for the best alignment, in cells. Each element costs at most its square root.
constexpr std::size_t MOST_CELLS = 1 << 16;

/// Worth more than all that pairs of unequal elements in such a table can add up to.
constexpr int EQUAL = (1 << 8) * MAX_LIKENESS + 1;

/// How often a stretch is cut at the elements that both sequences have once.
constexpr int MOST_CUTS = 8;

/// A stretch of both sequences.
struct Stretch {
    std::size_t firstBegin;
    std::size_t firstEnd;
    std::size_t secondBegin;
    std::size_t secondEnd;

    std::size_t firstSize() const { return firstEnd - firstBegin; }
    std::size_t secondSize() const { return secondEnd - secondBegin; }
};

class Aligner {
public:
    Aligner(const Numbers& a, const Numbers& b, const Likeness& like)
        : first(a), second(b), likeness(like) {}

    std::vector<AlignedPair> run() {
        align({0, first.size(), 0, second.size()}, MOST_CUTS);
        return std::move(pairs);
    }

private:
    void align(Stretch stretch, int cutsLeft) {
        while (stretch.firstSize() > 0 && stretch.secondSize() > 0 &&
               first[stretch.firstBegin] == second[stretch.secondBegin])
            pairs.push_back({stretch.firstBegin++, stretch.secondBegin++});
        std::size_t equalAtEnd = 0;
        while (stretch.firstSize() > 0 && stretch.secondSize() > 0 &&
               first[stretch.firstEnd - 1] == second[stretch.secondEnd - 1]) {
            --stretch.firstEnd;
            --stretch.secondEnd;
            ++equalAtEnd;
        }
        alignMiddle(stretch, cutsLeft);
        for (std::size_t i = 0; i < equalAtEnd; ++i)
            pairs.push_back({stretch.firstEnd + i, stretch.secondEnd + i});
    }

    void alignMiddle(const Stretch& stretch, int cutsLeft) {
        if (stretch.firstSize() == 0 || stretch.secondSize() == 0) return pairInOrder(stretch);
        if (stretch.firstSize() <= MOST_CELLS / stretch.secondSize()) return alignBest(stretch);
        std::vector<AlignedPair> cuts;
        if (cutsLeft > 0) cuts = uniquePairs(stretch);
        if (cuts.empty()) return pairInOrder(stretch);
        Stretch next = stretch;
        for (const AlignedPair& cut : cuts) {
            next.firstEnd = cut.first;
            next.secondEnd = cut.second;
            align(next, cutsLeft - 1);
            pairs.push_back(cut);
            next.firstBegin = cut.first + 1;
            next.secondBegin = cut.second + 1;
        }
        next.firstEnd = stretch.firstEnd;
        next.secondEnd = stretch.secondEnd;
        align(next, cutsLeft - 1);
    }

    void pairInOrder(const Stretch& stretch) {
        for (std::size_t i = 0; i < std::max(stretch.firstSize(), stretch.secondSize()); ++i) {
            pairs.push_back(
                {i < stretch.firstSize() ? stretch.firstBegin + i : AlignedPair::NONE,
                 i < stretch.secondSize() ? stretch.secondBegin + i : AlignedPair::NONE});
        }
    }

    /// The alignment of the highest worth, by dynamic programming from the ends.
    void alignBest(const Stretch& stretch) {
        const std::size_t rows = stretch.firstSize();
        const std::size_t columns = stretch.secondSize();
        const std::size_t width = columns + 1;
        worths.assign((rows + 1) * width, 0);
        for (std::size_t i = rows; i-- > 0;) {
            for (std::size_t j = columns; j-- > 0;) {
                const int paired = worths[(i + 1) * width + j + 1] + worth(stretch, i, j);
                const int alone = std::max(worths[(i + 1) * width + j], worths[i * width + j + 1]);
                worths[i * width + j] = std::max(paired, alone);
            }
        }
        std::size_t i = 0;
        std::size_t j = 0;
        while (i < rows && j < columns) {
            const int best = worths[i * width + j];
            if (best == worths[(i + 1) * width + j + 1] + worth(stretch, i, j)) {
                pairs.push_back({stretch.firstBegin + i++, stretch.secondBegin + j++});
            } else if (best == worths[(i + 1) * width + j]) {
                pairs.push_back({stretch.firstBegin + i++, AlignedPair::NONE});
            } else {
                pairs.push_back({AlignedPair::NONE, stretch.secondBegin + j++});
            }
        }
        pairInOrder(
            {stretch.firstBegin + i, stretch.firstEnd, stretch.secondBegin + j, stretch.secondEnd});
    }

    int worth(const Stretch& stretch, std::size_t i, std::size_t j) const {
        const std::size_t a = stretch.firstBegin + i;
        const std::size_t b = stretch.secondBegin + j;
        return first[a] == second[b] ? EQUAL : likeness(a, b);
    }

    /// The pairs of equal elements that both stretches have exactly once: as many as are in the
    /// same order in both.
    std::vector<AlignedPair> uniquePairs(const Stretch& stretch) const {
        struct Places {
            std::size_t inFirst = 0;
            std::size_t inSecond = 0;
            std::size_t second = 0;
        };
        std::unordered_map<std::uint32_t, Places> places;
        for (std::size_t i = stretch.firstBegin; i < stretch.firstEnd; ++i)
            ++places[first[i]].inFirst;
        for (std::size_t i = stretch.secondBegin; i < stretch.secondEnd; ++i) {
            Places& place = places[second[i]];
            ++place.inSecond;
            place.second = i;
        }
        std::vector<AlignedPair> unique;
        for (std::size_t i = stretch.firstBegin; i < stretch.firstEnd; ++i) {
            const Places& place = places[first[i]];
            if (place.inFirst == 1 && place.inSecond == 1) unique.push_back({i, place.second});
        }
        return longestIncreasing(unique);
    }

    /// The longest part of `from` that increases in `second`; it does in `first`.
    static std::vector<AlignedPair> longestIncreasing(const std::vector<AlignedPair>& from) {
        std::vector<std::size_t> ends; // For each length, where the lowest part of it ends.
        std::vector<std::size_t> previous(from.size(), AlignedPair::NONE);
        for (std::size_t i = 0; i < from.size(); ++i) {
            const auto end = std::lower_bound(
                ends.begin(), ends.end(), from[i].second,
                [&](std::size_t index, std::size_t value) { return from[index].second < value; });
            if (end != ends.begin()) previous[i] = *std::prev(end);
            if (end == ends.end()) {
                ends.push_back(i);
            } else {
                *end = i;
            }
        }
        std::vector<AlignedPair> result;
        if (ends.empty()) return result;
        for (std::size_t i = ends.back(); i != AlignedPair::NONE; i = previous[i])
            result.push_back(from[i]);
        std::reverse(result.begin(), result.end());
        return result;
    }

    const Numbers& first;
    const Numbers& second;
    const Likeness& likeness;
    std::vector<AlignedPair> pairs;
    std::vector<int> worths;
};

} // namespace

std::vector<AlignedPair> align(const Numbers& first, const Numbers& second,
                               const Likeness& likeness) {
    return Aligner(first, second, likeness).run();
}

} // namespace ostrel
