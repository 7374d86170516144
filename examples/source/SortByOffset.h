#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace ostrel {

/// Sorts `items` by what `offsetOf` says of each. Those at one offset keep their order.
///
/// std::stable_sort does the same, but the standard library of g++ allocates its buffer by a function
/// that it declares deprecated, and clang 19 reports that use in whoever sorts.
template <typename Item, typename OffsetOf>
void sortByOffset(std::vector<Item>& items, OffsetOf offsetOf) {
    std::vector<std::pair<std::size_t, std::size_t>> order; // offset and old index
    order.reserve(items.size());
    for (const Item& item : items)
        order.emplace_back(offsetOf(item), order.size());
    std::sort(order.begin(), order.end());

    std::vector<Item> sorted;
    sorted.reserve(items.size());
    for (const auto& [offset, index] : order)
        sorted.push_back(std::move(items[index]));
    items = std::move(sorted);
}

} // namespace ostrel
