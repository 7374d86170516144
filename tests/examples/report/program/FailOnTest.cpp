#include "report/program/FailOn.h"

#include "RunReport.h"

#include "report/program/Run.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

constexpr const char* CLEAN = "parfor k = 1:3, x(k) = 1; end\n";
constexpr const char* PRAGMA = "%#nonsense\n";
constexpr const char* BROKEN = "x = ;\n";

TEST(FailOn, ListNamesCodes) {
    RemarkCodes codes;
    EXPECT_EQ(addCodes("carried,used-after", codes), std::nullopt);
    EXPECT_EQ(addCodes("ans", codes), std::nullopt);
    EXPECT_THAT(codes,
                UnorderedElementsAre(RemarkCode::Carried, RemarkCode::UsedAfter, RemarkCode::Ans));
}

TEST(FailOn, AnyNamesAllCodes) {
    RemarkCodes codes;
    EXPECT_EQ(addCodes("any", codes), std::nullopt);
    EXPECT_EQ(codes.size(), remarkRules().size());
}

TEST(FailOn, ListWithAnUnknownCodeAddsNothing) {
    for (const char* list :
         {"", "carried,", ",carried", "carried,unknown", "Carried", " carried"}) {
        RemarkCodes codes;
        EXPECT_NE(addCodes(list, codes), std::nullopt) << list;
        EXPECT_THAT(codes, IsEmpty()) << list;
    }
}

TEST(FailOn, FileFailsForARemarkWithSuchACode) {
    File file;
    Options options;
    EXPECT_FALSE(fails(file, options));
    file.remarks.emplace_back().code = RemarkCode::Shared;
    EXPECT_FALSE(fails(file, options));
    options.failOn = {RemarkCode::Carried};
    EXPECT_FALSE(fails(file, options));
    options.failOn = {RemarkCode::Carried, RemarkCode::Shared};
    EXPECT_TRUE(fails(file, options));
}

TEST(FailOn, OptionDecidesTheExitStatusInEachFormat) {
    const ScratchFolder scratch;
    const std::string path = scratch.file("pragma.ost", PRAGMA);
    for (const std::string& format : formatNames()) {
        const auto statusWith = [&](std::vector<std::string> arguments) {
            arguments.insert(arguments.end(), {"--format", format, path});
            return runReport(arguments).status;
        };
        EXPECT_EQ(statusWith({}), 0);
        EXPECT_EQ(statusWith({"--fail-on", "carried"}), 0);
        EXPECT_EQ(statusWith({"--fail-on", "carried,unknown-pragma"}), 1);
        EXPECT_EQ(statusWith({"--fail-on=any"}), 1);
        EXPECT_EQ(statusWith({"--fail-on", "carried", "--fail-on", "unknown-pragma"}), 1);
        EXPECT_EQ(statusWith({"--quiet", "--fail-on", "any"}), 1);
    }
}

TEST(FailOn, OptionTakesOneWordAndLeavesTheFiles) {
    const ScratchFolder scratch;
    const std::string clean = scratch.file("clean.ost", CLEAN);
    EXPECT_EQ(runReport({"--fail-on", "any", clean}).status, 0);
    EXPECT_THAT(runReport({"--fail-on", "any", clean}).output, HasSubstr("clean.ost:1:1: parfor"));
}

TEST(FailOn, HighestStatusWins) {
    const ScratchFolder scratch;
    const std::string pragma = scratch.file("pragma.ost", PRAGMA);
    const std::string none = scratch.path("none.ost");
    EXPECT_EQ(runReport({"--fail-on", "any", pragma, none}).status, 2);
    EXPECT_EQ(runReport({"--fail-on", "carried", scratch.file("broken.ost", BROKEN)}).status, 1);
}

TEST(FailOn, UnknownCodeIsWrongUsageAndTheCodesAreListed) {
    const ScratchFolder scratch;
    const Outcome outcome =
        runReport({"--fail-on", "carried,colour", scratch.file("clean.ost", CLEAN)});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.errors, AllOf(StartsWith("orvex-report: --fail-on: "),
                                      HasSubstr("no remark has the code 'colour'; known are "
                                                "carried, shared, used-after, "
                                                "loop-variable-written, leaves-parallel, ans, "
                                                "restricted, unknown-pragma, any\n")));
}

TEST(Quiet, CleanFilesPrintNothing) {
    const ScratchFolder scratch;
    const Outcome outcome = runReport({"--quiet", scratch.file("clean.ost", CLEAN)});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "");
}

TEST(Quiet, RemarksAreStillPrinted) {
    const ScratchFolder scratch;
    const Outcome outcome = runReport({"--quiet", scratch.file("pragma.ost", PRAGMA)});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("pragma.ost:1:1: remark: "));
}

TEST(Quiet, OtherFormatsDoNotCare) {
    const ScratchFolder scratch;
    const std::string clean = scratch.file("clean.ost", CLEAN);
    EXPECT_EQ(runReport({"--quiet", "--format", "json", clean}).output,
              runReport({"--format", "json", clean}).output);
}

} // namespace

} // namespace ostrel::report::testing
