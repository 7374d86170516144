#pragma once

#include <cstddef>

namespace ostrel {

/// How deep an expression may nest: operators, brackets and calls together, as levels of the tree.
/// Longer chains get an error: `a + a + ... + a` is a tree as deep as it has operators, and the
/// library's walkers recurse on it.
constexpr std::size_t MAX_EXPRESSION_HEIGHT = 1000;

/// How deep statements may nest in each other. A block takes up to three levels of the tree.
constexpr std::size_t MAX_BLOCK_NESTING = 250;

/// No tree that the parser builds is higher; see README.md for how much stack that takes.
constexpr std::size_t MAX_TREE_HEIGHT = MAX_EXPRESSION_HEIGHT + 3 * MAX_BLOCK_NESTING + 10;

} // namespace ostrel
