#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <cstddef>

namespace zt::orvex::kit {

/// Elements that somebody else holds, side by side. Lasts as long as they do.
template <typename T>
class Span {
public:
    /// The elements from `from` on, up to the one before `to`.
    Span(const T* from, const T* to) : first(from), last(to) {}

    /// At the first element.
    const T* begin() const { return first; }
    /// After the last element.
    const T* end() const { return last; }
    /// The number of elements.
    std::size_t size() const { return static_cast<std::size_t>(last - first); }
    /// Whether the span is empty.
    bool empty() const { return first == last; }
    /// The element at `index`, which must be below `size()`; that isn't checked.
    const T& operator[](std::size_t index) const { return first[index]; }

private:
    const T* first;
    const T* last;
};

} // namespace zt::orvex::kit
