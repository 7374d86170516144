#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <memory_resource>

namespace zt::orvex::flow::internal {

/// A growable array of pointers in memory that is freed all at once, so that a system with many
/// short sequences needs no allocation, and no destruction, for each. A copy shares the elements.
template <typename Pointer>
class PooledSequence {
public:
    PooledSequence() = default;

    /// Adds the elements of a range of pointers at the end. Nothing changes if `memory` throws.
    void append(const Pointer* begin, const Pointer* end, std::pmr::memory_resource& memory) {
        const auto added = static_cast<std::uint32_t>(end - begin);
        if (count + added > capacity) grow(std::max(count + added, 2 * count), memory);
        std::uninitialized_copy(begin, end, elements + count);
        count += added;
    }

    const Pointer* begin() const { return elements; }
    const Pointer* end() const { return elements + count; }
    std::size_t size() const { return count; }
    bool empty() const { return count == 0; }
    Pointer operator[](std::size_t index) const { return elements[index]; }

private:
    void grow(std::uint32_t room, std::pmr::memory_resource& memory) {
        auto* const grown =
            static_cast<Pointer*>(memory.allocate(room * sizeof(Pointer), alignof(Pointer)));
        std::uninitialized_copy(elements, elements + count, grown);
        elements = grown;
        capacity = room;
    }

    Pointer* elements = nullptr;
    std::uint32_t count = 0;
    std::uint32_t capacity = 0;
};

} // namespace zt::orvex::flow::internal
