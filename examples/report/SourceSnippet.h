#pragma once

#include "report/ReportModel.h"
#include "source/SourceText.h"

#include <cstddef>
#include <string>

namespace ostrel::report {

/// A line of the source, and a line that marks a place in it.
struct SourceSnippet {
    std::string source; ///< UTF-8.
    std::string marker; ///< Blanks, then `^`, and a `~` for each further column of the place.
};

/// The line of `place` in at most `width` columns (or 20, if that is more); what is cut off becomes
/// `...`. The mark ends with the line. Cost: does not depend on the length of the line, as long as
/// that fits into memory.
SourceSnippet cutSnippet(const SourceText& source, const Place& place, std::size_t width);

} // namespace ostrel::report
