// The tables of docs/limits.md: that they are those that scripts/measure-limits.sh writes, and that
// the depths in them still hold.
#include "limits/LimitTables.h"
#include "limits/Nestings.h"
#include "limits/StackProbe.h"
#include "testing/StackBounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace zt::orvex::testing {
namespace {

constexpr const char* BEGIN_MARKER = "<!-- begin: scripts/measure-limits.sh -->\n";
constexpr const char* END_MARKER = "\n<!-- end: scripts/measure-limits.sh -->";

/// What stands between the two markers of the page.
std::string measuredPart() {
    std::ifstream file(ZT_ORVEX_LIMITS_PAGE);
    const std::string page{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::size_t begin = page.find(BEGIN_MARKER);
    const std::size_t end = page.find(END_MARKER);
    if (begin == std::string::npos || end == std::string::npos) return "no markers";
    const std::size_t first = begin + std::string(BEGIN_MARKER).size();
    return page.substr(first, end - first);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// The cells of a line of a table without their blanks; none of a line of another kind.
std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    if (line.empty() || line[0] != '|') return cells;
    std::istringstream stream(line.substr(1));
    for (std::string cell; std::getline(stream, cell, '|');) {
        const std::size_t first = cell.find_first_not_of(' ');
        const std::size_t last = cell.find_last_not_of(' ');
        cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
    }
    return cells;
}

/// The text with a `#` in each cell but those of the first column, the heads and the rulers.
std::string withoutFigures(const std::string& text) {
    std::string result;
    std::size_t lineOfTable = 0;
    for (const std::string& line : linesOf(text)) {
        const std::vector<std::string> cells = cellsOf(line);
        lineOfTable = cells.empty() ? 0 : lineOfTable + 1;
        if (lineOfTable <= 2) {
            result += line + '\n';
            continue;
        }
        result += "| " + cells[0] + " |";
        for (std::size_t i = 1; i < cells.size(); ++i)
            result += cells[i].empty() ? "  |" : " # |";
        result += '\n';
    }
    return result;
}

TEST(LimitsPage, HasTheTablesThatTheCommandWrites) {
    std::ostringstream written;
    writeLimitTables(written, Cells::LeftOut);
    EXPECT_EQ(withoutFigures(measuredPart()), written.str())
        << "run scripts/measure-limits.sh, which rewrites the tables";
}

struct Depths {
    std::size_t on8MiB;
    std::size_t on1MiB;
};

std::size_t numberIn(std::string cell) {
    cell.erase(std::remove(cell.begin(), cell.end(), ','), cell.end());
    return std::stoul(cell);
}

/// The rows of the table of depths, by their labels.
std::map<std::string, Depths> documentedDepths() {
    std::map<std::string, Depths> depths;
    bool isInTable = false;
    std::size_t lineOfTable = 0;
    for (const std::string& line : linesOf(measuredPart())) {
        if (line.rfind("### ", 0) == 0) isInTable = line == std::string("### ") + DEPTH_HEADING;
        const std::vector<std::string> cells = cellsOf(line);
        lineOfTable = cells.empty() ? 0 : lineOfTable + 1;
        if (isInTable && lineOfTable > 2)
            depths[cells.at(0)] = {numberIn(cells.at(1)), numberIn(cells.at(2))};
    }
    return depths;
}

TEST(LimitsPage, DocumentedDepthsHold) {
#if !defined(NDEBUG)
    GTEST_SKIP() << "the depths are those of an optimised build";
#endif
    if (!stackBounds()) GTEST_SKIP() << NO_STACK_BOUNDS;
    // Fewer than on the page, since the frames of other compilers and processors differ.
    const auto mostOf = [](std::size_t documentedDepth) {
        return documentedDepth * stackBounds()->percentOfDepths / 100;
    };
    const std::map<std::string, Depths> documented = documentedDepths();
    EXPECT_EQ(documented.size(), allNestings().size());
    for (const Nesting& nesting : allNestings()) {
        SCOPED_TRACE(nesting.name);
        ASSERT_EQ(documented.count(nesting.name), 1U);
        const Depths& depths = documented.at(nesting.name);
        EXPECT_TRUE(isAnswered(nesting, mostOf(depths.on8MiB), 8 * MIB));
        EXPECT_TRUE(isAnswered(nesting, mostOf(depths.on1MiB), MIB));
    }
}

TEST(StackProbe, OverflowIsSeenAndIsNotThatOfTheTest) {
    const Nesting& nesting = allNestings().front();
    EXPECT_TRUE(isAnswered(nesting, 100, MIB));
    EXPECT_FALSE(isAnswered(nesting, 200'000, MIB));
}

TEST(StackProbe, LargestNumberIsFoundToThePercent) {
    const auto upTo = [](std::size_t most) {
        return [most](std::size_t number) { return number <= most; };
    };
    EXPECT_EQ(largestThat(upTo(997), 2000, 0), 997U);
    EXPECT_EQ(largestThat(upTo(5000), 2000, 0), 2000U);
    EXPECT_EQ(largestThat(upTo(17), 2000, 0), 17U);
    EXPECT_EQ(largestThat(upTo(7), 2000, 0), 7U);
    const std::size_t about = largestThat(upTo(123'456), 1'000'000, 1);
    EXPECT_LE(about, 123'456U);
    EXPECT_GE(about, 122'000U);
}

} // namespace
} // namespace zt::orvex::testing
