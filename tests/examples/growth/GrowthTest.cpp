#include "Cost.h"
#include "Shapes.h"

#include "frontend/ParsedFile.h"
#include "report/analysis/Analyze.h"
#include "report/analysis/TreeCheck.h"
#include "report/html/HtmlReport.h"
#include "report/json/JsonReport.h"
#include "report/text/TextReport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <map>
#include <ostream>
#include <streambuf>
#include <string>
#include <utility>

namespace ostrel::testing {
namespace {

/// Counts what is written to it, and keeps nothing.
class CountingBuffer : public std::streambuf {
public:
    std::size_t bytes = 0;

protected:
    int overflow(int next) override {
        ++bytes;
        return next == EOF ? 0 : next;
    }
    std::streamsize xsputn(const char*, std::streamsize count) override {
        bytes += static_cast<std::size_t>(count);
        return count;
    }
};

/// What one stage costs for one program, and how much it writes.
struct Measured {
    Cost cost;
    std::size_t written = 0;
};

using Stages = std::map<std::string, Measured>;

Measured writing(const std::function<void(std::ostream&)>& write) {
    CountingBuffer buffer;
    std::ostream out(&buffer);
    Measured measured;
    measured.cost = costOf([&] { write(out); });
    measured.written = buffer.bytes;
    return measured;
}

Stages measure(const std::string& program) {
    using namespace report;
    Stages stages;
    ParsedFile parsed;
    stages["parsing"].cost = costOf([&] { parsed = parseOstrel("test.ost", program); });
    stages["check of the tree"] = writing([&](std::ostream& out) { isTreeCorrect(parsed, out); });
    Report report;
    stages["analysis"].cost = costOf([&] { report.files.push_back(analyze(std::move(parsed))); });
    stages["text"] = writing([&](std::ostream& out) { writeTextReport(out, report, {}); });
    stages["json"] = writing([&](std::ostream& out) { writeJsonReport(out, report); });
    stages["html"] = writing([&](std::ostream& out) { writeHtmlReport(out, report); });
    return stages;
}

/// Half as much again as the growth that is due, which leaves room for sorting and for hash tables.
constexpr double SLACK = 1.5;

/// Costs that don't depend on the size don't count.
constexpr std::size_t FIXED_STEPS = 2000;
constexpr std::size_t FIXED_BYTES = 4096;

double growth(std::size_t small, std::size_t large, std::size_t fixed) {
    return static_cast<double>(large) / static_cast<double>(small + fixed);
}

void expectLinear(const Shape& shape) {
    const Stages small = measure(shape.program(shape.size));
    const Stages large = measure(shape.program(4 * shape.size));
    for (const auto& [stage, before] : small) {
        const Measured& after = large.at(stage);
        const bool isOfText = stage == "parsing" || stage == "check of the tree";
        double due = isOfText ? 4 : static_cast<double>(shape.analysisGrowth);
        due = std::max(due, growth(before.written, after.written, 0));
        const double steps = growth(before.cost.steps, after.cost.steps, FIXED_STEPS);
        const double peak = growth(before.cost.peak, after.cost.peak, FIXED_BYTES);
        EXPECT_LE(steps, SLACK * due) << shape.name << ": steps of " << stage << ", "
                                      << before.cost.steps << " and " << after.cost.steps;
        EXPECT_LE(peak, SLACK * due) << shape.name << ": memory of " << stage << ", "
                                     << before.cost.peak << " and " << after.cost.peak;
    }
}

void expectLinear(const std::vector<Shape>& shapes) {
    for (const Shape& shape : shapes)
        expectLinear(shape);
}

TEST(Growth, RunsOfEachTokenInAScriptAreLinear) { expectLinear(runsOfTokens("@")); }
TEST(Growth, RunsOfEachTokenInAFunctionAreLinear) { expectLinear(runsOfTokens("function f\n@\n")); }
TEST(Growth, RunsOfEachTokenInAConstructAreLinear) {
    expectLinear(runsOfTokens("parfor k = 1:3\nx = 1\n@\nend\n"));
}
TEST(Growth, RunsOfEachTokenInParenthesesAreLinear) { expectLinear(runsOfTokens("x = f(@);\n")); }
TEST(Growth, RunsOfEachTokenInBracketsAreLinear) { expectLinear(runsOfTokens("x = [@];\n")); }
TEST(Growth, RunsOfEachTokenInACommandAreLinear) { expectLinear(runsOfTokens("hold @\n")); }
TEST(Growth, RunsOfEachTokenInAClassAreLinear) { expectLinear(runsOfTokens("class A\n@\nend\n")); }
TEST(Growth, RunsOfEachTokenInAMethodAreLinear) {
    expectLinear(runsOfTokens("class A\nmethods\nfunction f\n@\nend\nend\nend\n"));
}
TEST(Growth, RunsOfLinesAndStatementsAreLinear) { expectLinear(runsOfPieces()); }
TEST(Growth, NestingIsLinear) { expectLinear(nestings()); }
TEST(Growth, CountsThatGrowTogetherAreLinear) { expectLinear(products()); }

} // namespace
} // namespace ostrel::testing
