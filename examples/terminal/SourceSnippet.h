#pragma once

#include "source/Place.h"
#include "source/SourceText.h"

#include <cstddef>
#include <string>

namespace ostrel {

/// A line of source, and a line that marks a place in it.
struct SourceSnippet {
    std::string source; ///< UTF-8.
    std::string marker; ///< Blanks, `^`, and a `~` for each further column of the place.
};

/// The line of `place` in at most `width` columns (but at least 20); what is cut off becomes `...`.
/// The mark ends at the end of the line. Cost: independent of the length of the line.
SourceSnippet cutSnippet(const SourceText& source, const Place& place, std::size_t width);

} // namespace ostrel
