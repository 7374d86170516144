#pragma once

#include <zt_orvex/flow/WordPool.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace zt::orvex::flow::internal {

/// A growable array of pointers whose storage comes from a `WordPool` and goes with it.
///
/// Sixteen bytes and nothing to destroy, where an ordinary vector would take an allocation for each
/// of the many short sequences of a system. A copy shares the elements.
template <typename Pointer>
class PooledSequence {
    static_assert(sizeof(Pointer) == sizeof(std::uint64_t), "an element takes one word");

public:
    PooledSequence() = default;

    /// Adds the elements of a range of pointers at the end.
    void append(const Pointer* begin, const Pointer* end, WordPool& pool) {
        const auto added = static_cast<std::uint32_t>(end - begin);
        if (count + added > capacity) grow(std::max(count + added, 2 * count), pool);
        std::copy(begin, end, elements + count);
        count += added;
    }

    const Pointer* begin() const { return elements; }
    const Pointer* end() const { return elements + count; }
    std::size_t size() const { return count; }
    bool empty() const { return count == 0; }
    Pointer operator[](std::size_t index) const { return elements[index]; }

private:
    void grow(std::uint32_t room, WordPool& pool) {
        auto* const grown = pool.template allocateArray<Pointer>(room);
        std::copy(elements, elements + count, grown);
        elements = grown;
        capacity = room;
    }

    Pointer* elements = nullptr;
    std::uint32_t count = 0;
    std::uint32_t capacity = 0;
};

} // namespace zt::orvex::flow::internal
