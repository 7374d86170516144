#pragma once

#include "tree/Tree.h"

#include <string>

namespace ostrel {

/// The program as source text in UTF-8, in a layout of its own: one statement per line, blocks
/// indented.
///
/// If the program had no errors, parsing the text yields the same tree again. Discarded nodes print
/// as text that is discarded again. Comments aren't in the tree and are lost.
std::string printSource(const Tree& tree);

} // namespace ostrel
