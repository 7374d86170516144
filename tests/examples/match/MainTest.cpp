#include "testing/Emulated.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Outcome {
    int status;
    std::string output; // with what goes to standard error
};

Outcome run(const std::string& arguments, const std::string& prefix = "") {
    const std::string command = prefix + ORVEX_MATCH_PROGRAM + " " + arguments + " 2>&1";
    Outcome outcome{-1, ""};
    std::FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return outcome;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe))
        outcome.output.append(buffer, count);
    const int status = pclose(pipe);
    if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
    return outcome;
}

std::string program(const std::string& name) {
    return std::string("'") + OSTREL_PROGRAMS_FOLDER + "/" + name + ".ost'";
}

/// A file with a text, which is removed in the end.
struct Scratch {
    explicit Scratch(const std::string& text)
        : path(::testing::TempDir() + "orvex-match-" + std::to_string(getpid()) + "-" +
               std::to_string(++count) + ".ost") {
        std::ofstream(path) << text;
    }
    ~Scratch() { std::remove(path.c_str()); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    const std::string path;
    static inline int count = 0;
};

} // namespace

TEST(OrvexMatch, EquivalentProgramsExitWith0AndNoOutput) {
    const Outcome outcome = run(program("kmeans") + " " + program("kmeans"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
}

TEST(OrvexMatch, DifferentProgramsExitWith1AndAllDifferences) {
    const Scratch first("x = 1;\ny = 2;\n");
    const Scratch second("x = 3;\ny = 2;\nz = 4;\n");
    const Outcome outcome = run(first.path + " " + second.path);
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
    const std::string files = first.path + " " + second.path;
    const std::string log = "1 difference\n\nMatching Program at 1:1 against Program at 1:1\n";
    EXPECT_EQ(run(files).output.find("Matching"), std::string::npos);
    EXPECT_NE(run("--log " + files).output.find(log), std::string::npos);
    EXPECT_EQ(run("--log " + first.path + " " + first.path).output, "");
}

TEST(OrvexMatch, ColorsAreUsedOnRequest) {
    const Scratch first("x = 1;\n");
    const Scratch second("x = 2;\n");
    const std::string files = " " + first.path + " " + second.path;
    EXPECT_NE(run("--color always" + files).output.find("\x1B["), std::string::npos);
    EXPECT_EQ(run("--color never" + files).output.find("\x1B["), std::string::npos);
    EXPECT_EQ(
        run("--color auto" + files, "env -u FORCE_COLOR -u CLICOLOR_FORCE ").output.find("\x1B["),
        std::string::npos);
    EXPECT_EQ(run("--color sometimes" + files).status, 2);
}

TEST(OrvexMatch, StandardInputCanBeReadOnce) {
    const Scratch file("x = 1;\n");
    EXPECT_EQ(run("- " + file.path, "echo 'x = 1;' | ").status, 0);
    const Outcome twice = run("- -", "echo 'x = 1;' | ");
    EXPECT_EQ(twice.status, 2);
    EXPECT_EQ(twice.output, "orvex-match: standard input can be read only once\n");
}

TEST(OrvexMatch, MissingFileAndDirectoryExitWith2) {
    EXPECT_EQ(run(program("kmeans") + " /nowhere/at/all.ost").status, 2);
    EXPECT_EQ(run(program("kmeans") + " '" OSTREL_PROGRAMS_FOLDER "'").status, 2);
}

TEST(OrvexMatch, ProgramWithErrorsExitsWith2AndSaysWhereAndWhy) {
    const Scratch wrong("if x = 3\nend\n");
    const Outcome outcome = run(wrong.path + " " + program("kmeans"));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, wrong.path +
                                  ":1:6: error: '=' assigns and can't be part of a condition\n"
                                  "    1 | if x = 3\n"
                                  "      |      ^\n"
                                  "      help: did you mean '=='?\n");
}

TEST(OrvexMatch, WrongUsageExitsWith2) {
    EXPECT_EQ(run("").status, 2);
    EXPECT_EQ(run("--nonsense a b").status, 2);
}

#if !ZT_ORVEX_TEST_SANITIZED // A sanitizer reserves more address space than the limit leaves.
TEST(OrvexMatch, TooLittleMemoryExitsWith2AndAMessage) {
    if (zt::orvex::testing::IS_EMULATED)
        GTEST_SKIP() << "an emulator takes address space itself, and more than the limit leaves";
    std::string text;
    for (int i = 0; i < 100'000; ++i)
        text += "x = y + 1;\n";
    const std::string path = ::testing::TempDir() + "orvex-match-long.ost";
    std::ofstream(path) << text;
    const Outcome outcome = run("'" + path + "' '" + path + "'", "ulimit -v 20000 && exec ");
    std::remove(path.c_str());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "orvex-match: not enough memory\n");
}
#endif

TEST(OrvexMatch, HelpAndVersionExitWith0) {
    EXPECT_EQ(run("--help").status, 0);
    EXPECT_EQ(run("--version").status, 0);
}
