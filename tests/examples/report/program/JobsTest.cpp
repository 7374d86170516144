#include "RunReport.h"

#include "testing/Random.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;

/// A program of up to 200 statements, sometimes with an error.
std::string randomProgram(zt::orvex::testing::Random& random) {
    std::string text = random.below(5) == 0 ? "x = ;\n" : "";
    text += "parfor k = 1:n\n";
    const std::size_t length = random.pick(std::vector<std::size_t>{1, 5, 20, 200});
    for (std::size_t i = 0; i < length; ++i)
        text += "  t" + std::to_string(random.below(20)) + " = t" +
                std::to_string(random.below(20)) + " + a(k);\n";
    return text + "end\n";
}

/// 200 files in folders, of which some can't be read.
class Jobs : public ::testing::Test {
protected:
    void SetUp() override {
        SCOPED_TRACE(random.describe());
        for (const char* const folder : {"a", "b", "c", "c/d", "empty"})
            std::filesystem::create_directory(scratch.path(folder));
        for (int i = 0; i < 200; ++i) {
            const std::string folder = random.pick(std::vector<std::string>{"a", "b", "c", "c/d"});
            const std::string text = i % 20 == 7 ? "\xFF" : randomProgram(random);
            scratch.file(folder + "/f" + std::to_string(i) + ".ost", text);
        }
    }

    Outcome report(const std::string& format, const std::string& jobs) const {
        return runReport({"--format", format, "--jobs", jobs, "b", "none.ost", "empty", "a", "c"},
                         "", scratch.path(""));
    }

    zt::orvex::testing::Random random;
    const ScratchFolder scratch;
};

TEST_F(Jobs, DoNotChangeWhatIsPrinted) {
    SCOPED_TRACE(random.describe());
    for (const std::string format : {"text", "json", "sarif", "html"}) {
        const Outcome one = report(format, "1");
        EXPECT_EQ(one.status, 2);
        EXPECT_THAT(one.errors, HasSubstr("cannot read 'none.ost'"));
        for (const std::string jobs : {"2", "8", "0"}) {
            const Outcome several = report(format, jobs);
            EXPECT_EQ(several.status, 2);
            EXPECT_TRUE(several.output == one.output) << format << " with " << jobs << " jobs";
            EXPECT_EQ(several.errors, one.errors);
        }
    }
}

TEST_F(Jobs, MessagesHaveTheOrderOfTheFiles) {
    const Outcome outcome = report("json", "8");
    std::istringstream lines(outcome.errors);
    std::vector<std::string> folders;
    for (std::string line; std::getline(lines, line);) {
        const std::string word = line.substr(line.find('\'') + 1, 1);
        if (folders.empty() || folders.back() != word) folders.push_back(word);
    }
    EXPECT_EQ(folders, (std::vector<std::string>{"b", "n", "e", "a", "c"})) << outcome.errors;
}

TEST(JobsAlone, DeepNestingIsReadWithinTheStackOfAnyThread) {
    const ScratchFolder scratch;
    std::vector<std::string> arguments{"--jobs", "4"};
    const std::size_t depth = 1'900;
    const std::string text =
        "x = " + std::string(depth, '(') + "1" + std::string(depth, ')') + ";\n";
    for (int i = 0; i < 8; ++i)
        arguments.push_back(scratch.file("deep" + std::to_string(i) + ".ost", text));
    const Outcome outcome = runReport(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
}

TEST(JobsAlone, StandardInputIsOneOfTheFiles) {
    const ScratchFolder scratch;
    const std::string file = scratch.file("a.ost", "spmd, end\n");
    const Outcome outcome = runReport({"--jobs", "4", file, "-", file}, "parfor k = 1:2, end\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("-:1:1: parfor over k"));
    EXPECT_THAT(outcome.output, HasSubstr("3 files: 3 constructs"));
}

} // namespace

} // namespace ostrel::report::testing
