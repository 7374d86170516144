#pragma once

#include <cstddef>

namespace ostrel {

// How deep a program may nest. The parser, the walkers, the analyses and the printer recurse on the
// tree, so its height is bounded, and text beyond the bound is an error. A default stack of 8 MiB
// must hold the recursion on the highest tree that the limits admit, in a debug build and under
// AddressSanitizer too; ParsedFileRobustnessTest has such trees.

/// How deep an expression may nest, in levels of the tree: operators, brackets and calls together.
/// A chain such as `a + a + ... + a` has a level for each operator.
constexpr std::size_t MAX_EXPRESSION_HEIGHT = 2000;

/// How deep statements may nest. A block takes up to three levels of the tree.
constexpr std::size_t MAX_BLOCK_NESTING = 400;

/// The height that no tree from the parser exceeds.
constexpr std::size_t MAX_TREE_HEIGHT = MAX_EXPRESSION_HEIGHT + 3 * MAX_BLOCK_NESTING + 10;

} // namespace ostrel
