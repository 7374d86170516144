#pragma once

#include "frontend/ParsedFile.h"

#include <iosfwd>

namespace ostrel::report {

/// Whether the tree of a file keeps what `IAstView` promises. Writes a line to `errors` for each
/// finding of `kit::checkTree` that says otherwise:
///
///     orvex-report: the tree of 'sum.ost' is wrong: node-shared at Program.getProgramNodes[1] ...
///
/// A mistake is the front end's and not the file's, so it has no line and column. The variables of
/// each scope, and its `ans`, are held against the scope's constructs. Cost: linear in the tree.
bool isTreeCorrect(const ParsedFile& file, std::ostream& errors);

} // namespace ostrel::report
