// Checks logs against the schema of the format, with a validator that runs on Node.
#include "HandMadeReport.h"
#include "RunReport.h"
#include "report/sarif/SarifReport.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;

constexpr int PACKAGE_MISSING = 2;

class SarifSchema : public ::testing::Test {
protected:
    void SetUp() override {
        if (runProgram("node", {"--version"}).status != 0) GTEST_SKIP() << "no node";
        if (validate({}) == PACKAGE_MISSING)
            GTEST_SKIP() << "no validator: run scripts/install-sarif-check.sh";
    }

    /// The exit status of the validator; what it says is in `said`.
    int validate(const std::vector<std::string>& files) {
        std::vector<std::string> arguments{SARIF_VALIDATOR, SARIF_CHECK_FOLDER};
        arguments.insert(arguments.end(), files.begin(), files.end());
        const Outcome outcome = runProgram("node", arguments);
        said = outcome.errors;
        return outcome.status;
    }

    void expectValid(const std::string& log) {
        EXPECT_EQ(validate({scratch.file("log.sarif", log)}), 0) << said << log;
    }

    const ScratchFolder scratch;
    std::string said;
};

TEST_F(SarifSchema, AcceptsTheReportsOnTheExamplePrograms) {
    std::vector<std::string> logs;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(OSTREL_PROGRAMS_FOLDER)) {
        if (entry.path().extension() != ".ost") continue;
        const Outcome outcome = runReport({"--format", "sarif", entry.path().string()});
        logs.push_back(scratch.file(entry.path().stem().string() + ".sarif", outcome.output));
    }
    EXPECT_GE(logs.size(), 16U);
    EXPECT_EQ(validate(logs), 0) << said;
}

TEST_F(SarifSchema, AcceptsEveryKindOfRemarkErrorsAndHostileNames) {
    Report report;
    report.files.push_back(fileWithEveryRemark());
    report.files.push_back(fileWithEveryRemark());
    report.files.back().path = HOSTILE_PATH;
    report.files.push_back(reportOf("x = ;\n)\nx = 0x1G\n'\x1b"));
    report.files.emplace_back();
    report.files.back().path = HOSTILE_PATH;
    report.files.back().failure = "No such file or directory";
    std::ostringstream log;
    writeSarifReport(log, report);
    expectValid(log.str());
}

TEST_F(SarifSchema, AcceptsTheReportOnNothing) {
    std::ostringstream log;
    writeSarifReport(log, Report());
    expectValid(log.str());
}

TEST_F(SarifSchema, RefusesALogThatIsWrong) {
    std::ostringstream log;
    Report report;
    report.files.push_back(fileWithEveryRemark());
    writeSarifReport(log, report);
    std::string wrong = log.str();
    const std::string key = "\"startLine\"";
    wrong.replace(wrong.find(key), key.size(), "\"firstLine\"");
    EXPECT_EQ(validate({scratch.file("log.sarif", wrong)}), 1);
    EXPECT_THAT(said, HasSubstr("additional properties"));
}

} // namespace

} // namespace ostrel::report::testing
