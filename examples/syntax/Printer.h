#pragma once

#include "tree/Tree.h"

#include <string>

namespace ostrel {

/// The program as source text in UTF-8, laid out afresh: a statement to a line, blocks indented.
///
/// Parsing the text gives the same tree again, if the program had no errors. What was discarded is
/// printed as something that is discarded again. Comments are not in the tree and are lost.
std::string printSource(const Tree& tree);

} // namespace ostrel
