// The program in a process of its own whose address space is limited: it ends with the whole report
// or with an error that says why there is none.
#include "RunReport.h"
#include "testing/Emulated.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <regex>
#include <string>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr std::size_t KIB_OF_MIB = 1024;
constexpr std::size_t ENOUGH = 1024 * KIB_OF_MIB;
constexpr int STATUS_OF_LOADER = 127;

#if defined(NDEBUG)
constexpr std::size_t MANY_STATEMENTS = 300'000;
#else
constexpr std::size_t MANY_STATEMENTS = 30'000; // ten times slower, so ten times fewer
#endif

std::string parforOf(std::size_t statements) {
    std::string text = "parfor k = 1:n\n";
    for (std::size_t i = 0; i < statements; ++i)
        text += "  t" + std::to_string(i % 50) + " = a(k) + " + std::to_string(i) + ";\n";
    return text + "end\n";
}

class OrvexReportMemoryLimit : public ::testing::Test {
protected:
    void SetUp() override {
        if (!HAS_POSIX_SHELL) GTEST_SKIP() << "no shell to limit the address space";
        if (zt::orvex::testing::IS_EMULATED)
            GTEST_SKIP()
                << "an emulator takes address space itself, and more than the limit leaves";
    }
};

/// The least address space, in steps of 64 KiB, with which the program says its version.
std::size_t kibToStart() {
    std::size_t kib = 2 * KIB_OF_MIB;
    while (kib < ENOUGH && runReportWithin(kib, {"--version"}).status != 0)
        kib += 64;
    return kib;
}

/// From `first` to `last`, each the same multiple of the one before.
std::vector<std::size_t> geometricSteps(std::size_t first, std::size_t last, std::size_t count) {
    const double ratio = static_cast<double>(last) / static_cast<double>(first);
    std::vector<std::size_t> steps;
    for (std::size_t i = 0; i < count; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(count - 1);
        steps.push_back(static_cast<std::size_t>(
            std::lround(static_cast<double>(first) * std::pow(ratio, part))));
    }
    return steps;
}

/// The whole report, or an error and nothing that could be taken for the whole report.
void expectReportOrError(const Outcome& outcome, const std::string& wholeReport) {
    if (outcome.status == 0) {
        EXPECT_EQ(outcome.output, wholeReport);
        EXPECT_EQ(outcome.errors, "");
    } else {
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.errors, StartsWith("orvex-report: "));
        EXPECT_THAT(wholeReport, StartsWith(outcome.output));
        EXPECT_NE(outcome.output, wholeReport);
    }
}

TEST_F(OrvexReportMemoryLimit, AnyAddressSpaceGivesAReportOrAnError) {
    const ScratchFolder scratch;
    const std::string program = scratch.file("long.ost", parforOf(MANY_STATEMENTS));
    const Outcome unlimited = runReport({program});
    ASSERT_EQ(unlimited.status, 0) << unlimited.errors;

    const std::size_t first = kibToStart();
    std::vector<int> statuses;
    for (const std::size_t kib : geometricSteps(first, ENOUGH, 20)) {
        SCOPED_TRACE(std::to_string(kib) + " KiB");
        const Outcome outcome = runReportWithin(kib, {program});
        expectReportOrError(outcome, unlimited.output);
        statuses.push_back(outcome.status);
    }
    EXPECT_EQ(statuses.front(), 2);
    EXPECT_EQ(statuses.back(), 0);
}

/// The report on `short.ost` if there isn't enough memory to read it.
std::string reportOnFailure(const ScratchFolder& scratch, const std::string& format) {
    const Outcome outcome = runReport({"--format", format, scratch.path("shart.ost")});
    std::string text = std::regex_replace(outcome.output, std::regex("shart"), "short");
    return std::regex_replace(text, std::regex("No such file or directory"), "not enough memory");
}

// In every step of a much shorter report, reading, analysing and writing in each format.
TEST_F(OrvexReportMemoryLimit, EveryFormatGivesAReportOrAnError) {
    const ScratchFolder scratch;
    const std::string program = scratch.file("short.ost", parforOf(2'000));
    const std::size_t first = kibToStart();
    for (const std::string format : {"text", "json", "sarif", "html"}) {
        const Outcome unlimited = runReport({"--format", format, program});
        ASSERT_EQ(unlimited.status, 0) << unlimited.errors;
        // A report that says why it is without the file is complete, but not the whole report.
        const std::string empty = reportOnFailure(scratch, format);
        for (const std::size_t kib : geometricSteps(first, 8 * first, 40)) {
            SCOPED_TRACE(format + " within " + std::to_string(kib) + " KiB");
            Outcome outcome = runReportWithin(kib, {"--format", format, program});
            if (outcome.output == empty) outcome.output.clear();
            expectReportOrError(outcome, unlimited.output);
        }
        EXPECT_EQ(runReportWithin(8 * first, {"--format", format, program}).status, 0);
    }
}

TEST_F(OrvexReportMemoryLimit, AddressSpaceThatIsTooSmallToStartIsTheLoadersError) {
    const Outcome outcome = runReportWithin(kibToStart() - KIB_OF_MIB, {"--version"});
    EXPECT_EQ(outcome.status, STATUS_OF_LOADER);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.errors, HasSubstr("error while loading shared libraries"));
}

} // namespace

} // namespace ostrel::report::testing
