#pragma once

#include "frontend/ParsedFile.h"
#include "report/analysis/Analyze.h"
#include "report/analysis/PathSteps.h"
#include "report/model/Report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace ostrel::report::testing {

inline File reportOf(std::string_view text) { return analyze(parseOstrel("test.ost", text)); }

/// The report on one program.
inline Report singleReport(std::string_view text) {
    Report report;
    report.files.push_back(reportOf(text));
    return report;
}

/// The variable of that name in a construct; fails the test if there is none.
inline Variable variableOf(const Construct& construct, std::string_view name) {
    const auto found =
        std::find_if(construct.variables.begin(), construct.variables.end(),
                     [&](const Variable& variable) { return variable.name == name; });
    if (found != construct.variables.end()) return *found;
    ADD_FAILURE() << "no variable " << name;
    return {};
}

/// The role of a variable in the first construct of a program.
inline Role roleIn(std::string_view text, std::string_view name) {
    const File file = reportOf(text);
    EXPECT_FALSE(file.hasErrors()) << file.diagnostics.front().message;
    return variableOf(file.constructs.at(0), name).role;
}

} // namespace ostrel::report::testing
