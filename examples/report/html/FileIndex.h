#pragma once

#include "report/model/Report.h"

#include <array>
#include <cstddef>
#include <iosfwd>
#include <string>

namespace ostrel::report {

/// The totals of a report, and a row for each of its files.
///
/// Memory: the text of the rows; a row has the file's path, some figures, and the codes and roles
/// that occur in the file, however large that is.
class FileIndex {
public:
    void add(const File& file);

    /// Writes the totals and, where there is a choice, the filter and the rows.
    void write(std::ostream& out) const;

private:
    void writeFilter(std::ostream& out) const;

    std::string rows;
    std::size_t files = 0;
    std::size_t constructs = 0;
    std::size_t errors = 0;
    std::size_t remarks = 0;

    // The numbers of files that have something.
    std::size_t withErrors = 0;
    std::size_t withRemarks = 0;
    std::size_t notRead = 0;
    std::array<std::size_t, 8> withCode{};  ///< By `RemarkCode`.
    std::array<std::size_t, 10> withRole{}; ///< By `Role`.
};

/// Such as `1 file` and `2 files`.
std::string counted(std::size_t count, const char* what);

} // namespace ostrel::report
