#include "examples/RunProgram.h"
#include "testing/Emulated.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using ostrel::testing::Outcome;
using ostrel::testing::runProgram;
using Arguments = std::vector<std::string>;

/// Runs the built program. What goes to standard error is in `output`, too.
Outcome run(const Arguments& arguments, const std::string& input = "") {
    Outcome outcome = runProgram(ORVEX_MATCH_PROGRAM, arguments, input);
    outcome.output += outcome.errors;
    return outcome;
}

std::string program(const std::string& name) {
    return std::string(OSTREL_PROGRAMS_FOLDER) + "/" + name + ".ost";
}

/// A file with a text, which is removed in the end.
class Scratch {
public:
    explicit Scratch(const std::string& text) : path(folder.file("program.ost", text)) {}

private:
    const ostrel::testing::ScratchFolder folder;

public:
    const std::string path;
};

} // namespace

TEST(OrvexMatch, EquivalentProgramsExitWith0AndNoOutput) {
    const Outcome outcome = run({program("kmeans"), program("kmeans")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
}

TEST(OrvexMatch, DifferentProgramsExitWith1AndAllDifferences) {
    const Scratch first("x = 1;\ny = 2;\n");
    const Scratch second("x = 3;\ny = 2;\nz = 4;\n");
    const Outcome outcome = run({first.path, second.path});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, first.path +
                                  ":1:5: difference: the number 1 here\n"
                                  "    1 | x = 1;\n"
                                  "      |     ^\n" +
                                  second.path +
                                  ":1:5: the number 3 there\n"
                                  "    1 | x = 3;\n"
                                  "      |     ^\n"
                                  "\n" +
                                  second.path +
                                  ":3:1: difference: an AssignmentStatement only here\n"
                                  "    3 | z = 4;\n"
                                  "      | ^~~~~\n" +
                                  first.path +
                                  ":2:1: there, it would follow this\n"
                                  "    2 | y = 2;\n"
                                  "      | ^~~~~\n"
                                  "\n"
                                  "2 differences\n");
}

TEST(OrvexMatch, LogFollowsTheDifferencesOnRequest) {
    const Scratch first("x = 1;\n");
    const Scratch second("x = 1\n");
    const std::string log = "1 difference\n\nMatching Program at 1:1 against Program at 1:1\n";
    EXPECT_EQ(run({first.path, second.path}).output.find("Matching"), std::string::npos);
    EXPECT_NE(run({"--log", first.path, second.path}).output.find(log), std::string::npos);
    EXPECT_EQ(run({"--log", first.path, first.path}).output, "");
}

TEST(OrvexMatch, ColorsAreUsedOnRequest) {
    const Scratch first("x = 1;\n");
    const Scratch second("x = 2;\n");
    const auto isColored = [&](const char* choice) {
        const Outcome outcome = run({"--color", choice, first.path, second.path});
        return outcome.output.find("\x1B[") != std::string::npos;
    };
    EXPECT_TRUE(isColored("always"));
    EXPECT_FALSE(isColored("never"));
    EXPECT_FALSE(isColored("auto"));
    EXPECT_EQ(run({"--color", "sometimes", first.path, second.path}).status, 2);
}

TEST(OrvexMatch, StandardInputCanBeReadOnce) {
    const Scratch file("x = 1;\n");
    EXPECT_EQ(run({"-", file.path}, "x = 1;\n").status, 0);
    const Outcome twice = run({"-", "-"}, "x = 1;\n");
    EXPECT_EQ(twice.status, 2);
    EXPECT_EQ(twice.output, "orvex-match: standard input can be read only once\n");
}

TEST(OrvexMatch, MissingFileAndDirectoryExitWith2) {
    EXPECT_EQ(run({program("kmeans"), "/nowhere/at/all.ost"}).status, 2);
    EXPECT_EQ(run({program("kmeans"), OSTREL_PROGRAMS_FOLDER}).status, 2);
}

TEST(OrvexMatch, ProgramWithErrorsExitsWith2AndSaysWhereAndWhy) {
    const Scratch wrong("if x = 3\nend\n");
    const Outcome outcome = run({wrong.path, program("kmeans")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, wrong.path +
                                  ":1:6: error: '=' assigns and can't be part of a condition\n"
                                  "    1 | if x = 3\n"
                                  "      |      ^\n"
                                  "      help: did you mean '=='?\n");
}

TEST(OrvexMatch, WrongUsageExitsWith2) {
    EXPECT_EQ(run({}).status, 2);
    EXPECT_EQ(run({"--nonsense", "a", "b"}).status, 2);
}

#if !ZT_ORVEX_TEST_SANITIZED // A sanitizer reserves more address space than the limit leaves.
TEST(OrvexMatch, TooLittleMemoryExitsWith2AndAMessage) {
    if (!ostrel::testing::HAS_POSIX_SHELL) GTEST_SKIP() << "no shell to limit the address space";
    if (zt::orvex::testing::IS_EMULATED)
        GTEST_SKIP() << "an emulator takes address space itself, and more than the limit leaves";
    std::string text;
    for (int i = 0; i < 100'000; ++i)
        text += "x = y + 1;\n";
    const Scratch file(text);
    const Outcome outcome = runProgram("sh", {"-c", "ulimit -v 20000 && exec \"$@\"", "sh",
                                              ORVEX_MATCH_PROGRAM, file.path, file.path});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.errors, "orvex-match: not enough memory\n");
}
#endif

TEST(OrvexMatch, HelpAndVersionExitWith0) {
    EXPECT_EQ(run({"--help"}).status, 0);
    EXPECT_EQ(run({"--version"}).status, 0);
}
