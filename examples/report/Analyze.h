#pragma once

#include "frontend/ParsedFile.h"
#include "report/ReportModel.h"

namespace ostrel::report {

/// What there is to say about a parsed file. Asks the library about every construct.
///
/// A construct that the library cannot analyse (it throws) becomes an error at the construct's
/// place, and is left out. Takes the file's text over; the tree is not needed afterwards.
File analyze(ParsedFile parsed);

} // namespace ostrel::report
