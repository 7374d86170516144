#pragma once

#include "frontend/ParsedFile.h"
#include "report/model/Report.h"

namespace ostrel::report {

/// Whether to find what only a page that shows the source needs: `File::syntax`.
enum class Highlighting { Wanted, Unwanted };

/// The report on a parsed file. Asks the library about every construct.
///
/// If the library throws for a construct, the construct is left out, and an error at its place says
/// why. Takes over the file's text; the result doesn't refer to the tree.
File analyze(ParsedFile parsed, Highlighting highlighting = Highlighting::Wanted);

} // namespace ostrel::report
