// Calls the completions as bash does.
#include "RunCommand.h"

#include "report/model/Remark.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace ostrel::testing {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Words = std::vector<std::string>;

class Completion : public ::testing::Test {
protected:
    void SetUp() override {
        if (std::system("bash --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "no bash";
    }
};

/// What completes the last of the words, which are the command line as bash splits it, sorted.
Words completionsOf(const Words& words, const std::string& folder = ".") {
    std::string function = "_" + words.front();
    std::replace(function.begin(), function.end(), '-', '_');
    std::string quoted;
    for (const std::string& word : words)
        quoted += " \"" + word + "\"";
    const std::string script =
        "cd \"" + folder + "\" && . \"" OSTREL_EXAMPLES_FOLDER "/completions/" + words.front() +
        "\" && COMP_WORDS=(" + quoted + ") && COMP_CWORD=" + std::to_string(words.size() - 1) +
        " && " + function + "; printf \"%s\\n\" \"${COMPREPLY[@]}\"";
    std::istringstream lines(outputOf("bash -c '" + script + "'"));
    Words completions;
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty()) completions.push_back(line);
    }
    std::sort(completions.begin(), completions.end());
    return completions;
}

TEST_F(Completion, KnowsEachOption) {
    Words options = optionsOf(ORVEX_REPORT_PROGRAM);
    std::sort(options.begin(), options.end());
    EXPECT_EQ(completionsOf({"orvex-report", "--"}), options);
    for (const std::string& option : optionsOf(ORVEX_MATCH_PROGRAM))
        EXPECT_THAT(completionsOf({"orvex-match", "--"}), Contains(option));
}

TEST_F(Completion, KnowsTheFormats) {
    EXPECT_THAT(completionsOf({"orvex-report", "--format", ""}),
                ElementsAre("html", "json", "sarif", "text"));
    EXPECT_THAT(completionsOf({"orvex-report", "--format", "=", "s"}), ElementsAre("sarif"));
    EXPECT_THAT(completionsOf({"orvex-report", "--format", "="}), Contains("text"));
}

TEST_F(Completion, KnowsWhenToColour) {
    for (const char* const program : {"orvex-report", "orvex-match"})
        EXPECT_THAT(completionsOf({program, "--color", "a"}), ElementsAre("always", "auto"));
}

TEST_F(Completion, KnowsEachCode) {
    Words codes{"any"};
    for (const report::RemarkRule& rule : report::remarkRules())
        codes.emplace_back(rule.name);
    std::sort(codes.begin(), codes.end());
    EXPECT_EQ(completionsOf({"orvex-report", "--fail-on", ""}), codes);
    EXPECT_THAT(completionsOf({"orvex-report", "--fail-on", "carried,sh"}),
                ElementsAre("carried,shared"));
}

TEST_F(Completion, OffersSourceFilesAndFolders) {
    const std::string folder = ::testing::TempDir() + "orvex-completion";
    std::filesystem::create_directories(folder + "/a folder");
    for (const char* const name : {"/a file.ost", "/b.ost", "/a.txt"})
        outputOf("touch '" + folder + name + "'");
    for (const char* const program : {"orvex-report", "orvex-match"}) {
        EXPECT_THAT(completionsOf({program, ""}, folder),
                    ElementsAre("a file.ost", "a folder", "b.ost"));
        EXPECT_THAT(completionsOf({program, "a"}, folder), ElementsAre("a file.ost", "a folder"));
    }
    EXPECT_THAT(completionsOf({"orvex-report", "--output", "a."}, folder), ElementsAre("a.txt"));
    EXPECT_THAT(completionsOf({"orvex-report", "z"}, folder), IsEmpty());
    std::filesystem::remove_all(folder);
}

} // namespace

} // namespace ostrel::testing
