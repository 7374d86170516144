#pragma once

#include "report/model/Report.h"

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace ostrel::report {

/// Writes the cards of one file: for each construct its table of variables and its remarks.
class Cards {
public:
    /// `file` must outlive the cards; `number` is its number in the report.
    Cards(std::ostream& out, const File& file, std::size_t number);

    void write(std::size_t construct);

private:
    void writeHeading(std::size_t construct);
    void writeTable(std::size_t construct);
    void writeRow(std::size_t construct, std::size_t variable);
    void writeReason(const Variable& variable, std::size_t construct);
    void writeRead(const Variable& variable);
    void writeRemarks(std::size_t construct);

    std::ostream& out;
    const File& file;
    const std::size_t number;
    std::vector<std::vector<std::size_t>> remarksOf; ///< By construct.

    /// The first remark on a variable of a construct that has a path.
    std::map<std::pair<std::size_t, std::string>, std::size_t> proofs;
};

} // namespace ostrel::report
