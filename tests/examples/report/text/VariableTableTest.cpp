#include "ReportOf.h"

#include "report/text/VariableTable.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string tableOf(const Construct& construct, const TextStyle& style = {}) {
    std::ostringstream out;
    VariableTable(out, style).write(construct);
    return out.str();
}

/// The table of the first construct of a program.
std::string tableOf(std::string_view program, const TextStyle& style = {}) {
    return tableOf(reportOf(program).constructs.at(0), style);
}

/// A variable that is read at 2:5 and written at 3:1.
Variable variable(std::string name, Role role, std::string by = "") {
    Variable result;
    result.name = std::move(name);
    result.role = role;
    result.by = std::move(by);
    result.isInBody = true;
    result.firstRead = Place{0, 1, 2, 5, 2, 6};
    result.lastWrite = Place{0, 1, 3, 1, 3, 2};
    return result;
}

Construct construct(std::vector<Variable> variables) {
    Construct result;
    result.variables = std::move(variables);
    return result;
}

TEST(VariableTable, ShowsTheRoleOfEachVariable) {
    EXPECT_EQ(
        tableOf("x = 1:9;\nparfor k = 1:9\n  t = x(k);\n  y(k) = t;\nend"),
        "    k  loop variable\n"
        "    t  temporary          written before it is read in each iteration\n"
        "    x  read from outside  first read at 3:7, on every path; each iteration reads its own"
        " elements\n"
        "    y  sliced             each iteration writes its own elements\n");
}

TEST(VariableTable, SaysWhyAVariableIsCarriedSharedOrCombined) {
    EXPECT_EQ(
        tableOf(
            construct({variable("a", Role::Carried), variable("b", Role::Shared),
                       variable("c", Role::Reduction, "+"), variable("d", Role::Reduction, "[;]"),
                       variable("e", Role::Reduction, "max")})),
        "    a  carried           first read at 2:5; last written at 3:1, for another iteration\n"
        "    b  shared            two iterations may write the same part; last written at 3:1\n"
        "    c  reduction by +    combined by + only\n"
        "    d  reduction by [;]  appended to only\n"
        "    e  reduction by max  combined by max only\n");
}

TEST(VariableTable, ReductionIsColouredAsWhatStopsNothing) {
    EXPECT_THAT(tableOf(construct({variable("s", Role::Reduction, "+")}), {true, 100}),
                HasSubstr("\x1b[32mreduction by +\x1b[0m"));
    EXPECT_THAT(tableOf(construct({variable("s", Role::Shared)}), {true, 100}),
                HasSubstr("\x1b[33mshared\x1b[0m"));
}

TEST(VariableTable, LeavesOutVariablesOfTheHead) {
    EXPECT_THAT(tableOf("n = 1;\nparfor k = 1:n, x = k; end"), Not(HasSubstr("    n ")));
}

TEST(VariableTable, SaysThatABodyNamesNoVariable) {
    EXPECT_EQ(tableOf("spmd, end"), "    The body names no variable.\n");
    EXPECT_EQ(tableOf("parfor k = 1:3, end"), "    k  loop variable  not used in the body\n");
}

TEST(VariableTable, NotesMoveBelowIfThereIsLittleRoom) {
    EXPECT_EQ(tableOf(construct({variable("s", Role::Carried)}), {false, 40}),
              "    s  carried\n"
              "        first read at 2:5; last written\n"
              "        at 3:1, for another iteration\n");
}

TEST(VariableTable, FitsTheWidth) {
    const Construct many = construct({variable("a", Role::Carried), variable("bb", Role::Shared),
                                      variable("ccc", Role::Reduction, "max")});
    for (std::size_t width = 50; width < 130; ++width) {
        std::istringstream lines(tableOf(many, {false, width}));
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), width) << line;
    }
}

} // namespace

} // namespace ostrel::report::testing
