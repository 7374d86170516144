#pragma once

#include <cstddef>

namespace ostrel {

// How deep a program may nest. Parser, walkers, analyses and printer recurse on the tree, so its
// height is bounded; what goes beyond gets an error. The highest tree that these limits admit is
// read, analysed and printed within 2 MiB of stack in an ordinary debug build and within 3 MiB
// under AddressSanitizer (measured); 8 MiB is what a thread has by default.

/// How deep an expression may nest: operators, brackets and calls together, as levels of the tree.
/// A chain counts as well: `a + a + ... + a` is a tree as high as it has operators.
constexpr std::size_t MAX_EXPRESSION_HEIGHT = 2000;

/// How deep statements may nest in each other. A block takes up to three levels of the tree.
constexpr std::size_t MAX_BLOCK_NESTING = 400;

/// No tree that the parser builds is higher.
constexpr std::size_t MAX_TREE_HEIGHT = MAX_EXPRESSION_HEIGHT + 3 * MAX_BLOCK_NESTING + 10;

} // namespace ostrel
