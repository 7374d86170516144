#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <cstddef>

namespace zt::orvex::kit {

/// Elements that somebody else holds, side by side.
template <typename T>
class Span {
public:
    Span(const T* from, const T* to) : first(from), last(to) {}

    const T* begin() const { return first; }
    const T* end() const { return last; }
    std::size_t size() const { return static_cast<std::size_t>(last - first); }
    bool empty() const { return first == last; }
    /// `index` must be below `size()`; that isn't checked.
    const T& operator[](std::size_t index) const { return first[index]; }

private:
    const T* first;
    const T* last;
};

} // namespace zt::orvex::kit
