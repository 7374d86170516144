#pragma once

#include <boost/unordered/unordered_flat_map.hpp>

#include <cstdint>

namespace zt::orvex::kit::internal {

/// A set of handles. Neighbours share a word, since the handles of most trees are indexes, and the
/// next handle is often a neighbour of the last.
class HandleSet {
public:
    /// Returns false if the handle was in the set.
    bool insert(std::uint64_t handle) {
        const std::uint64_t key = handle >> 6;
        if (last == nullptr || key != lastKey) {
            last = &words[key];
            lastKey = key;
        }
        const std::uint64_t bit = std::uint64_t{1} << (handle & 63);
        if ((*last & bit) != 0) return false;
        *last |= bit;
        return true;
    }

private:
    boost::unordered_flat_map<std::uint64_t, std::uint64_t> words;
    std::uint64_t lastKey = 0;
    std::uint64_t* last = nullptr; ///< The word of `lastKey`, until another one is looked up.
};

} // namespace zt::orvex::kit::internal
