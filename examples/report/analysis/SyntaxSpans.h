#pragma once

#include "report/model/SyntaxSpan.h"

#include <vector>

namespace ostrel {
struct ParsedFile;
}

namespace ostrel::report {

/// The keywords, numbers, quoted texts, command words and comments of a file, in source order and
/// without overlap. Linear in the text.
std::vector<SyntaxSpan> findSyntaxSpans(const ParsedFile& file);

} // namespace ostrel::report
