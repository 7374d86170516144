#pragma once

#include <boost/unordered/unordered_flat_map.hpp>

#include <cstdint>

namespace zt::orvex::kit::internal {

/// A set of handles. Neighbours share a word: the handles of most trees are indexes.
class HandleSet {
public:
    /// Returns false if the handle was in the set.
    bool insert(std::uint64_t handle) {
        std::uint64_t& word = words[handle >> 6];
        const std::uint64_t bit = std::uint64_t{1} << (handle & 63);
        if ((word & bit) != 0) return false;
        word |= bit;
        return true;
    }

    bool contains(std::uint64_t handle) const {
        const auto found = words.find(handle >> 6);
        return found != words.end() && (found->second >> (handle & 63) & 1) != 0;
    }

private:
    boost::unordered_flat_map<std::uint64_t, std::uint64_t> words;
};

} // namespace zt::orvex::kit::internal
