#pragma once

#include "report/model/Report.h"
#include "terminal/TextStyle.h"

#include <cstddef>
#include <ostream>
#include <string>

namespace ostrel::report {

/// Writes what each variable of a construct is: its name, its role, and why, in columns. Variables
/// that only the head names are left out.
class VariableTable {
public:
    /// The stream must outlive the table.
    VariableTable(std::ostream& stream, const TextStyle& textStyle)
        : out(stream), style(textStyle) {}

    void write(const Construct& construct);

private:
    /// The widths of the first two columns.
    struct Columns {
        std::size_t name = 0;
        std::size_t role = 0;
    };

    void writeRow(const Variable& variable, const Columns& columns);
    void writeNote(const std::string& note, std::size_t column);

    std::ostream& out;
    TextStyle style;
};

} // namespace ostrel::report
