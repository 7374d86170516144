#include "RunCommand.h"

#include "report/model/Remark.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <string>

namespace ostrel::testing {

namespace {

using ::testing::HasSubstr;

std::string pageOf(const std::string& program) {
    return OSTREL_EXAMPLES_FOLDER "/man/" + program + ".1";
}

void expectEachOption(const std::string& program, const std::string& path) {
    const std::string page = contentOf(pageOf(program));
    const std::vector<std::string> options = optionsOf(path);
    EXPECT_GE(options.size(), 2U);
    for (const std::string& option : options) {
        const std::string macro = "Fl " + option.substr(1);
        EXPECT_TRUE(page.find("\n.It " + macro) != std::string::npos ||
                    page.find(".It Fl h , " + option.substr(1)) != std::string::npos)
            << program << " " << option;
    }
}

} // namespace

TEST(Manual, DescribesEachOption) {
    expectEachOption("orvex-report", ORVEX_REPORT_PROGRAM);
    expectEachOption("orvex-match", ORVEX_MATCH_PROGRAM);
}

TEST(Manual, DescribesEachCodeOfARemark) {
    const std::string page = contentOf(pageOf("orvex-report"));
    for (const report::RemarkRule& rule : report::remarkRules())
        EXPECT_THAT(page, HasSubstr(".It Cm " + std::string(rule.name) + "\n"));
}

TEST(Manual, IsFormattedWithoutAWarning) {
    if (std::system("man --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "no man";
    for (const char* const program : {"orvex-report", "orvex-match"}) {
        const std::string command = "LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z '" +
                                    pageOf(program) + "' 2>&1 >/dev/null";
        EXPECT_EQ(outputOf(command), "");
    }
}

} // namespace ostrel::testing
