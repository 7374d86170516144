#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace zt::orvex::testing {

/// A table of docs/limits.md. What stands in a cell is measured when the table is written.
struct LimitTable {
    using Cell = std::function<std::string()>;
    struct Row {
        std::string label;
        std::vector<Cell> cells;
    };

    std::string heading;
    std::string explanation;
    std::vector<std::string> columns; ///< The first is that of the labels.
    std::vector<Row> rows;
};

std::vector<LimitTable> allLimitTables();

enum class Cells {
    Measured,
    LeftOut, ///< A `#` in each cell.
};

/// Writes the tables in Markdown.
void writeLimitTables(std::ostream& out, Cells cells);

/// A number with commas between the thousands, as documents have it.
std::string grouped(std::size_t number);

/// The heading of the table whose rows are `allNestings()`, with the columns 8 MiB and 1 MiB.
constexpr const char* DEPTH_HEADING = "Depth of nesting";

} // namespace zt::orvex::testing
