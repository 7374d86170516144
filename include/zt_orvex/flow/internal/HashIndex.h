#pragma once

#include <zt_orvex/flow/internal/ElementKey.h>

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace zt::orvex::flow::internal {

/// Finds the place of an element in an array of distinct elements. The array belongs to the caller;
/// the index holds keys and places alone, and asks for a comparison where a key doesn't identify an
/// element.
///
/// Open addressing with linear probing. A handle is found without a look at the array, which in a
/// large set saves a second miss of the cache (the row "OrderedSet look-up by handle, 1,000,000").
///
/// The layout is part of the library's binary interface: `OrderedSet` holds an index.
template <typename T>
class HashIndex {
public:
    static constexpr std::uint64_t NONE = ~std::uint64_t{0};

    static std::uint64_t keyOf(const T& element) { return Key::of(element); }

    /// The place of the element with this key for which `matches(place)` holds, or NONE.
    template <typename Matches>
    std::uint64_t find(std::uint64_t key, Matches matches) const {
        if (slots.empty()) return NONE;
        const Slot* const table = slots.data();
        for (std::uint64_t at = home(key);; at = next(at)) {
            const std::uint64_t place = table[at].placePlusOne - 1;
            if (table[at].key == key && (Key::IDENTIFIES || place == NONE || matches(place))) {
                return place; // an empty slot has key 0, and NONE as its place
            }
            if (place == NONE) return NONE;
        }
    }

    /// Makes room for `count` elements in all, so that `insert` can't fail. Throws
    /// std::length_error("too many elements") for more than 2^31. Nothing changes if it throws.
    void reserve(std::uint64_t count) {
        if (count > MOST) throw std::length_error("too many elements");
        if (fits(count, slots.size())) return;
        std::uint64_t size = slots.empty() ? SMALLEST : slots.size();
        while (!fits(count, size))
            size *= 2;
        grow(size);
    }

    /// Enters an element that the index doesn't have. `reserve` has made room for it.
    void insert(std::uint64_t key, std::uint64_t place) noexcept { put({key, place + 1}); }

private:
    using Key = ElementKey<T>;

    struct Slot {
        std::uint64_t key;
        std::uint64_t placePlusOne; // 0: empty
    };

    static constexpr std::uint64_t SMALLEST = 8; // slots
    // Twice as many slots are numbered by half a hash.
    static constexpr std::uint64_t MOST = std::uint64_t{1} << 31;

    /// At most half of the slots are in use, so that most lookups end at the first.
    static bool fits(std::uint64_t count, std::uint64_t size) { return count <= size / 2; }

    /// By the upper half of the hash, which multiplication mixes best.
    std::uint64_t home(std::uint64_t key) const { return Key::hashOf(key) >> 32 & mask; }
    std::uint64_t next(std::uint64_t at) const { return (at + 1) & mask; }

    void put(const Slot& slot) noexcept {
        std::uint64_t at = home(slot.key);
        while (slots[at].placePlusOne != 0)
            at = next(at);
        slots[at] = slot;
    }

    void grow(std::uint64_t size) {
        std::vector<Slot> old(size);
        slots.swap(old);
        mask = size - 1;
        for (const Slot& slot : old) {
            if (slot.placePlusOne != 0) put(slot);
        }
    }

    std::vector<Slot> slots; // none, or a power of two
    std::uint64_t mask = 0;  // their number less one
};

} // namespace zt::orvex::flow::internal
