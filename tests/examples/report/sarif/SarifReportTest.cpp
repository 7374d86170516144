#include "report/sarif/SarifReport.h"

#include "HandMadeReport.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using Json = nlohmann::ordered_json;

std::string textOf(std::vector<File> files) {
    Report report;
    report.files = std::move(files);
    std::ostringstream out;
    writeSarifReport(out, report);
    return out.str();
}

Json runOf(std::vector<File> files) {
    const Json log = Json::parse(textOf(std::move(files)));
    EXPECT_EQ(log["version"], "2.1.0");
    EXPECT_EQ(log["runs"].size(), 1U);
    return log["runs"][0];
}

Json resultsOf(std::string_view program) { return runOf({reportOf(program)})["results"]; }

Json regionOf(const Json& location) { return location["physicalLocation"]["region"]; }

} // namespace

TEST(SarifReport, HasARuleForEachCodeAndOneForErrors) {
    const Json driver = runOf({})["tool"]["driver"];
    EXPECT_EQ(driver["name"], "orvex-report");
    EXPECT_EQ(driver["version"], ORVEX_REPORT_VERSION);
    const Json& rules = driver["rules"];
    ASSERT_EQ(rules.size(), remarkRules().size() + 1);
    for (std::size_t i = 0; i < remarkRules().size(); ++i) {
        EXPECT_EQ(rules[i]["id"], remarkRules()[i].name);
        EXPECT_EQ(rules[i]["shortDescription"]["text"], remarkRules()[i].summary);
        EXPECT_EQ(rules[i]["defaultConfiguration"]["level"], "warning");
    }
    EXPECT_EQ(rules.back()["id"], "syntax-error");
    EXPECT_EQ(rules.back()["defaultConfiguration"]["level"], "error");
}

TEST(SarifReport, EachRemarkIsAResultOfItsRule) {
    const Json run = runOf({fileWithEveryRemark()});
    const Json& results = run["results"];
    ASSERT_EQ(results.size(), remarkRules().size());
    for (std::size_t i = 0; i < results.size(); ++i) {
        EXPECT_EQ(results[i]["ruleId"], remarkRules()[i].name);
        const std::size_t index = results[i]["ruleIndex"];
        EXPECT_EQ(run["tool"]["driver"]["rules"][index]["id"], results[i]["ruleId"]);
        EXPECT_EQ(results[i]["level"], "warning");
    }
}

TEST(SarifReport, MessageIsASentenceAndTheHelpAnother) {
    const Json result = runOf({fileWithEveryRemark()})["results"][0];
    EXPECT_EQ(result["message"]["text"], "Something is wrong with 's'. Do something about it.");
}

TEST(SarifReport, ErrorIsAResult) {
    const Json results = resultsOf("x = ;\n");
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0]["ruleId"], "syntax-error");
    EXPECT_EQ(results[0]["level"], "error");
    EXPECT_EQ(regionOf(results[0]["locations"][0])["startColumn"], 5);
}

TEST(SarifReport, HelpOfAnErrorIsASentenceToo) {
    File file = reportOf("");
    file.diagnostics.push_back(
        {file.source.place(0, 0), Severity::Error, "'=' assigns", "did you mean '=='?"});
    EXPECT_EQ(runOf({std::move(file)})["results"][0]["message"]["text"],
              "'=' assigns. Did you mean '=='?");
}

TEST(SarifReport, ColumnsAreCodePointsAndTheEndIsExclusive) {
    const Json run = runOf({reportOf("spmd, x = '\xF0\x9F\x98\x80', eval(x); end\n")});
    EXPECT_EQ(run["columnKind"], "unicodeCodePoints");
    EXPECT_EQ(regionOf(run["results"][0]["locations"][0]),
              Json::parse(R"({"startLine": 1, "startColumn": 16, "endLine": 1, "endColumn": 20})"));
}

TEST(SarifReport, ResultInAFunctionNamesIt) {
    const Json results = resultsOf("spmd, eval('a'); end\nfunction f\nspmd, eval('b'); end\nend\n");
    ASSERT_EQ(results.size(), 2U);
    EXPECT_FALSE(results[0]["locations"][0].contains("logicalLocations"));
    EXPECT_EQ(results[1]["locations"][0]["logicalLocations"],
              Json::parse(R"([{"name": "f", "kind": "function"}])"));
}

TEST(SarifReport, EachPathIsACodeFlow) {
    const Json results = runOf({fileWithEveryRemark()})["results"];
    const Json& flows = results[0]["codeFlows"];
    ASSERT_EQ(flows.size(), 2U);
    const Json& first = flows[0]["threadFlows"][0]["locations"];
    ASSERT_EQ(first.size(), 2U);
    EXPECT_EQ(first[0]["location"]["message"]["text"], "'s' is written.");
    EXPECT_EQ(first[1]["location"]["message"]["text"], "The next iteration.");
    EXPECT_EQ(regionOf(first[0]["location"])["startLine"], 3);
    EXPECT_EQ(regionOf(first[0]["location"])["startColumn"], 5);
    EXPECT_EQ(flows[1]["threadFlows"][0]["locations"].size(), 1U);
    EXPECT_FALSE(results[1].contains("codeFlows"));
}

TEST(SarifReport, PathWithoutStepsIsNoCodeFlow) {
    File file = fileWithEveryRemark();
    file.remarks[0].paths = {{}};
    EXPECT_FALSE(runOf({std::move(file)})["results"][0].contains("codeFlows"));
}

TEST(SarifReport, FingerprintsSurviveTenLinesAboveAndTheMoveOfTheFile) {
    const std::string program = "x = ;\nspmd\n  eval('a'); eval('b');\nend\n";
    const auto fingerprints = [](File file) {
        std::vector<std::string> found;
        const Json run = runOf({std::move(file)});
        for (const Json& result : run["results"])
            found.push_back(result["partialFingerprints"]["orvexReport/v1"]);
        return found;
    };
    File moved = reportOf(std::string(10, '\n') + program);
    moved.path = "elsewhere.ost";
    const std::vector<std::string> before = fingerprints(reportOf(program));
    EXPECT_EQ(before, fingerprints(std::move(moved)));
    ASSERT_EQ(before.size(), 3U);
    EXPECT_NE(before[0], before[1]);
    EXPECT_NE(before[1], before[2]);
}

TEST(SarifReport, FileThatCouldNotBeReadIsANotificationAndTheRunFailed) {
    File unread;
    unread.path = "no such.ost";
    unread.failure = "No such file or directory";
    const Json run = runOf({std::move(unread), reportOf("x = ;\n")});
    EXPECT_EQ(run["results"].size(), 1U);
    const Json& invocation = run["invocations"][0];
    EXPECT_EQ(invocation["executionSuccessful"], false);
    ASSERT_EQ(invocation["toolExecutionNotifications"].size(), 1U);
    const Json& notification = invocation["toolExecutionNotifications"][0];
    EXPECT_EQ(notification["message"]["text"],
              "Cannot read 'no such.ost': No such file or directory.");
    EXPECT_EQ(notification["locations"][0]["physicalLocation"]["artifactLocation"]["uri"],
              "no%20such.ost");
    EXPECT_EQ(notification["descriptor"]["id"], run["tool"]["driver"]["notifications"][0]["id"]);
}

TEST(SarifReport, RunWhoseFilesHaveErrorsSucceeded) {
    const Json invocation = runOf({reportOf("x = ;\n")})["invocations"][0];
    EXPECT_EQ(invocation["executionSuccessful"], true);
    EXPECT_EQ(invocation["toolExecutionNotifications"], Json::array());
}

TEST(SarifReport, HostileNameIsEncodedAndNoControlIsWritten) {
    File file = fileWithEveryRemark();
    file.path = HOSTILE_PATH;
    File unread;
    unread.path = HOSTILE_PATH;
    unread.failure = "why";
    const std::string text = textOf({std::move(file), std::move(unread)});
    EXPECT_THAT(text, HasSubstr(R"("file:///tmp/a%20b%FF%1B%22%25%23%3F%3A%E2%80%AE%C3%A9.ost")"));
    for (const char* const unwanted : {"\x1b", "\xFF", "\xE2\x80\xAE"})
        EXPECT_THAT(text, Not(HasSubstr(unwanted)));
}

TEST(SarifReport, LooksAsIfItWereWrittenAtOnce) {
    const std::string text = textOf({fileWithEveryRemark(), reportOf("x = ;\n")});
    EXPECT_EQ(Json::parse(text).dump(2) + "\n", text);
}

} // namespace ostrel::report::testing
