#pragma once

#include <cstddef>
#include <optional>

namespace zt::orvex::testing {

/// How much of the stack an optimised build may take, for each level of a tree, and how many of the
/// levels in docs/limits.md it has to reach.
struct StackBounds {
    std::size_t bytesOfWalk;
    std::size_t bytesOfExpression;
    std::size_t percentOfDepths; ///< The page is about g++ on x86-64; clang's frames are larger.
};

/// The bounds on this processor; none if nobody has measured yet. The frames of s390x are larger: each
/// begins with 160 bytes for the registers that the called function saves.
constexpr std::optional<StackBounds> stackBounds() {
#if defined(_WIN32) // has a calling convention of its own, with larger frames
    return std::nullopt;
#elif defined(__x86_64__) && defined(__clang__)
    return StackBounds{160, 320, 60};
#elif defined(__x86_64__)
    return StackBounds{160, 320, 80};
#elif defined(__aarch64__)
    return StackBounds{160, 320, 60};
#elif defined(__s390x__)
    return StackBounds{240, 450, 20};
#else
    return std::nullopt;
#endif
}

constexpr const char* NO_STACK_BOUNDS = "nobody has measured frames on this platform yet";

} // namespace zt::orvex::testing
