#pragma once

#include "report/model/Report.h"

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>

namespace ostrel::report {

/// Writes what is wrong with a line below it in the source.
void writeBelowLine(std::ostream& out, const Diagnostic& diagnostic);

/// Likewise; a click shows the path of the remark that has this id in its list.
void writeBelowLine(std::ostream& out, const Remark& remark, const std::string& id);

/// Writes the list of a file's errors, and of remarks that belong to no construct. `number` is the
/// file's number in the report.
void writeFileMessages(std::ostream& out, const File& file, std::size_t number);

/// Writes an item for a remark: its place, message, code and help, and its paths.
void writeItem(std::ostream& out, const Remark& remark, std::size_t file, std::size_t index);

} // namespace ostrel::report
