#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <sys/wait.h>

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

} // namespace

TEST(OrvexMatch, EquivalentProgramsExitWith0AndNoOutput) {
    const Outcome outcome = run(program("kmeans") + " " + program("kmeans"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
}

TEST(OrvexMatch, DifferentProgramsExitWith1AndTheLog) {
    const Outcome outcome = run(program("kmeans") + " " + program("nbody"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output.find("Matching Program at 1:1 against Program at 1:1\n"), 0u);
}

TEST(OrvexMatch, MissingFileAndDirectoryExitWith2) {
    EXPECT_EQ(run(program("kmeans") + " /nowhere/at/all.ost").status, 2);
    EXPECT_EQ(run(program("kmeans") + " '" OSTREL_PROGRAMS_FOLDER "'").status, 2);
}

TEST(OrvexMatch, ProgramWithErrorsExitsWith2AndSaysWhere) {
    const Outcome outcome = run(program("unfinished") + " " + program("kmeans"));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.output.find("unfinished.ost:"), std::string::npos);
    EXPECT_NE(outcome.output.find(": error: "), std::string::npos);
}

TEST(OrvexMatch, WrongUsageExitsWith2) {
    EXPECT_EQ(run("").status, 2);
    EXPECT_EQ(run("--nonsense a b").status, 2);
}

#if !ZT_ORVEX_TEST_SANITIZED // A sanitizer reserves more address space than the limit leaves.
TEST(OrvexMatch, TooLittleMemoryExitsWith2AndAMessage) {
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
