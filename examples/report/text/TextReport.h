#pragma once

#include "report/model/Report.h"

#include <cstddef>
#include <ostream>

namespace ostrel::report {

struct TextStyle {
    bool isColored = false;
    std::size_t width = 100; ///< In columns; messages, paths and names may be wider.
};

/// Writes the report for a person at a terminal: errors, then each construct with its variables and
/// its warnings, then the other warnings; for several files, a summary at the end.
void writeTextReport(std::ostream& out, const Report& report, const TextStyle& style);

} // namespace ostrel::report
