#include "RunReport.h"

#include "testing/Random.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace ostrel::report::testing {

namespace {

using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using Json = nlohmann::ordered_json;

constexpr const char* GOOD = "parfor k = 1:3, x(k) = 1; end\n";
constexpr const char* BAD = "x = ;\nparfor k = 1:3, x(k) = 1; end\n";

TEST(OrvexReport, FileWithoutErrorsExitsWith0) {
    const ScratchFolder scratch;
    const Outcome outcome = runReport({scratch.file("good.ost", GOOD)});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("good.ost:1:1: parfor over k\n"));
    EXPECT_EQ(outcome.errors, "");
}

TEST(OrvexReport, FileWithErrorsExitsWith1AndIsReported) {
    const ScratchFolder scratch;
    const Outcome outcome = runReport({scratch.file("bad.ost", BAD)});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, AllOf(HasSubstr("bad.ost:1:5: error: "), HasSubstr("over k")));
    EXPECT_EQ(outcome.errors, "");
}

TEST(OrvexReport, CheckOfACorrectTreeChangesNothing) {
    const ScratchFolder scratch;
    for (const std::string& path : {scratch.file("good.ost", GOOD), scratch.file("bad.ost", BAD)}) {
        const Outcome unchecked = runReport({path});
        const Outcome checked = runReport({"--check-tree", path});
        EXPECT_EQ(checked.status, unchecked.status);
        EXPECT_EQ(checked.output, unchecked.output);
        EXPECT_EQ(checked.errors, "");
    }
}

TEST(OrvexReport, MinusReadsStandardInput) {
    const Outcome outcome = runReport({"--format", "json", "-"}, GOOD);
    EXPECT_EQ(outcome.status, 0);
    const Json file = Json::parse(outcome.output)["files"][0];
    EXPECT_EQ(file["path"], "-");
    EXPECT_EQ(file["constructs"][0]["variable"], "k");
}

TEST(OrvexReport, StandardInputCanBeReadOnlyOnce) {
    const Outcome outcome = runReport({"-", "-"}, GOOD);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.errors, "orvex-report: standard input can be read only once\n");
}

TEST(OrvexReport, HelpAndVersionGoToStandardOutput) {
    const Outcome help = runReport({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.output,
                AllOf(HasSubstr("--format"), HasSubstr("--output"), HasSubstr("--color"),
                      HasSubstr("--check-tree"), HasSubstr("FILE"), HasSubstr("Exit status")));
    EXPECT_EQ(help.errors, "");
    const Outcome version = runReport({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, "orvex-report " ORVEX_REPORT_VERSION "\n");
}

TEST(OrvexReport, WrongUsageExitsWith2AndAMessage) {
    const ScratchFolder scratch;
    const std::string good = scratch.file("good.ost", GOOD);
    const std::vector<std::vector<std::string>> wrong{
        {},
        {"--format", "xml", good},
        {"--format"},
        {"--color", "sometimes", good},
        {"--output", "", good},
        {"--unknown", good},
        {"--format", "json"},
        {"--jobs", "-1", good},
        {"--jobs", "1025", good},
        {"--jobs", "two", good},
    };
    for (const std::vector<std::string>& arguments : wrong) {
        const Outcome outcome = runReport(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.output, "");
        EXPECT_THAT(outcome.errors, StartsWith("orvex-report: "));
    }
}

TEST(OrvexReport, MissingFileExitsWith2AndTheOthersAreReported) {
    const ScratchFolder scratch;
    const Outcome outcome = runReport({scratch.path("none.ost"), scratch.file("bad.ost", BAD)});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.errors, "orvex-report: cannot read '" + scratch.path("none.ost") +
                                  "': No such file or directory\n");
    EXPECT_THAT(outcome.output, HasSubstr("bad.ost:2:1: parfor over k"));
}

TEST(OrvexReport, FolderStandsForItsFiles) {
    const ScratchFolder scratch;
    std::filesystem::create_directory(scratch.path("sub"));
    scratch.file("b.ost", GOOD);
    scratch.file("sub/a.ost", BAD);
    const Outcome outcome = runReport({scratch.path("")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, runReport({scratch.path("b.ost"), scratch.path("sub/a.ost")}).output);
}

TEST(OrvexReport, FolderWithoutFilesExitsWith0AndAMessage) {
    const ScratchFolder scratch;
    scratch.file("a.txt", BAD);
    const Outcome outcome = runReport({"--format", "json", scratch.path("")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "orvex-report: no .ost file in '" + scratch.path("") + "'\n");
    EXPECT_EQ(Json::parse(outcome.output)["files"], Json::array());
}

TEST(OrvexReport, FileThatCannotBeReadIsListedWithTheReason) {
    const ScratchFolder scratch;
    const Outcome outcome = runReport({"--format", "json", scratch.path("none.ost")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(Json::parse(outcome.output)["files"],
              (Json::array({{{"path", scratch.path("none.ost")},
                             {"failure", "No such file or directory"}}})));
}

TEST(OrvexReport, UnreadableFileExitsWith2) {
    const ScratchFolder scratch;
    const std::string path = scratch.file("secret.ost", GOOD);
    std::filesystem::permissions(path, std::filesystem::perms::none);
    if (std::ifstream(path)) GTEST_SKIP() << "this user may read everything";
    const Outcome outcome = runReport({path});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors, HasSubstr("Permission denied"));
}

TEST(OrvexReport, InvalidUtf8ExitsWith2AndTheOthersAreReported) {
    const ScratchFolder scratch;
    const Outcome outcome =
        runReport({scratch.file("latin.ost", "x = 'a\xE4';\n"), scratch.file("good.ost", GOOD)});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors,
                AllOf(StartsWith("orvex-report: cannot read '"),
                      HasSubstr("latin.ost': line 1, column 7: "), HasSubstr("UTF-8")));
    EXPECT_THAT(outcome.output, HasSubstr("good.ost:1:1: parfor over k"));
}

TEST(OrvexReport, FileTooLargeForOffsetsIsRefusedUnread) {
    const ScratchFolder scratch;
    const std::string large = scratch.file("large.ost", GOOD);
    std::error_code error;
    std::filesystem::resize_file(large, std::uintmax_t{5} << 30, error); // takes no room
    if (error) GTEST_SKIP() << "no file of 5 GiB: " << error.message();
    const Outcome outcome = runReport({large, scratch.file("good.ost", GOOD)});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors, HasSubstr("large.ost': the file is larger than 1 GiB\n"));
    EXPECT_THAT(outcome.output, HasSubstr("good.ost:1:1: parfor over k"));
}

TEST(OrvexReport, NothingOfANameReachesTheTerminalAsAControl) {
    const ScratchFolder scratch;
    const std::string path = scratch.file("a\x1b[31m\xE2\x80\xAE\xFF.ost", BAD);
    for (const Outcome& outcome : {runReport({path}), runReport({path + "\n"})}) {
        const std::string all = outcome.output + outcome.errors;
        EXPECT_THAT(all, HasSubstr("a\xEF\xBF\xBD[31m<U+202E>\xEF\xBF\xBD.ost"));
        EXPECT_THAT(all, Not(AnyOf(HasSubstr("\x1b"), HasSubstr("\xE2\x80\xAE"), HasSubstr("\xFF"),
                                   HasSubstr(".ost\n'"))));
    }
}

TEST(OrvexReport, EmptyFileIsAProgram) {
    const ScratchFolder scratch;
    const Outcome outcome = runReport({scratch.file("empty.ost", "")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("empty.ost: no parfor or spmd statement"));
}

TEST(OrvexReport, OutputWritesAFileWithoutColour) {
    const ScratchFolder scratch;
    const std::string good = scratch.file("good.ost", GOOD);
    const Outcome outcome = runReport({"--output", scratch.path("report.txt"), good});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(readFile(scratch.path("report.txt")), runReport({good}).output);
}

TEST(OrvexReport, OutputThatCannotBeOpenedExitsWith2) {
    const ScratchFolder scratch;
    const std::string good = scratch.file("good.ost", GOOD);
    const Outcome outcome = runReport({"--output", scratch.path("no/such/folder"), good});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors, StartsWith("orvex-report: cannot write '"));
    EXPECT_EQ(runReport({"--output", scratch.path(""), good}).status, 2);
}

TEST(OrvexReport, OutputThatCannotBeWrittenExitsWith2) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no device that is always full";
    const ScratchFolder scratch;
    const Outcome outcome = runReport({"--output", "/dev/full", scratch.file("good.ost", GOOD)});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors, HasSubstr("cannot write '/dev/full'"));
}

TEST(OrvexReport, OutputDoesNotOverwriteASourceFile) {
    const ScratchFolder scratch;
    const std::string good = scratch.file("good.ost", GOOD);
    const Outcome outcome = runReport({"--output", scratch.path("./good.ost"), good});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors, HasSubstr("would overwrite"));
    EXPECT_EQ(readFile(good), GOOD);
}

TEST(OrvexReport, OnlyTerminalsGetColourByDefault) {
    const ScratchFolder scratch;
    const std::string good = scratch.file("good.ost", GOOD);
    const std::string escape = "\x1b[";
    EXPECT_THAT(runReport({good}).output, Not(HasSubstr(escape)));
    EXPECT_THAT(runReport({"--color", "always", good}).output, HasSubstr(escape));
    if (!HAS_TERMINAL) GTEST_SKIP() << "no terminal that a test could open";
    EXPECT_THAT(runReportAtTerminal({good}, 80).output, HasSubstr(escape));
    EXPECT_THAT(runReportAtTerminal({"--color=never", good}, 80).output, Not(HasSubstr(escape)));
    EXPECT_THAT(runReportAtTerminal({"--format=json", good}, 80).output, Not(HasSubstr(escape)));
    const std::vector<std::string> toFile{"--output", scratch.path("report.txt"), good};
    EXPECT_EQ(runReportAtTerminal(toFile, 80).status, 0);
    EXPECT_THAT(readFile(scratch.path("report.txt")), Not(HasSubstr(escape)));
}

TEST(OrvexReport, EnvironmentCanForceColourAndForbidIt) {
    if (!HAS_POSIX_SHELL) GTEST_SKIP() << "no env to start the program by";
    const ScratchFolder scratch;
    const std::string good = scratch.file("good.ost", GOOD);
    const auto isColoredWith = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {ORVEX_REPORT_PROGRAM, good});
        return runProgram("env", arguments).output.find('\x1b') != std::string::npos;
    };
    EXPECT_FALSE(isColoredWith({}));
    EXPECT_TRUE(isColoredWith({"FORCE_COLOR=1"}));
    EXPECT_TRUE(isColoredWith({"CLICOLOR_FORCE=1"}));
    EXPECT_FALSE(isColoredWith({"FORCE_COLOR=0", "CLICOLOR_FORCE=0"}));
    EXPECT_FALSE(isColoredWith({"FORCE_COLOR=1", "NO_COLOR=1"}));
    EXPECT_TRUE(isColoredWith({"FORCE_COLOR=1", "TERM=dumb"}));
}

TEST(OrvexReport, TextFitsTheWidthOfTheTerminal) {
    if (!HAS_TERMINAL) GTEST_SKIP() << "no terminal that a test could open";
    const ScratchFolder scratch;
    const std::string path = scratch.file("s.ost", "s = 0;\nparfor k = 1:3, s = s / k; end\n");
    for (const unsigned columns : {50U, 70U, 200U}) {
        const Outcome outcome =
            runReportAtTerminal({"--color=never", path}, static_cast<unsigned short>(columns));
        std::istringstream lines(outcome.output);
        std::size_t longest = 0;
        for (std::string line; std::getline(lines, line);) {
            while (!line.empty() && line.back() == '\r')
                line.pop_back();
            if (line.find(path) != 0) longest = std::max(longest, line.size());
        }
        EXPECT_LE(longest, columns);
        EXPECT_GT(longest, 40U);
    }
}

TEST(OrvexReport, TenMegabytesOfOpenParenthesesAreAnError) {
    const ScratchFolder scratch;
    const Outcome outcome = runReport({scratch.file("open.ost", std::string(10'000'000, '('))});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("open.ost:1:"));
    EXPECT_THAT(outcome.output, HasSubstr(": error: "));
    EXPECT_LT(outcome.output.size(), 10'000U);
}

TEST(OrvexReport, RandomBytesNeverCrashIt) {
    zt::orvex::testing::Random random;
    SCOPED_TRACE(random.describe());
    const ScratchFolder scratch;
    for (int i = 0; i < 20; ++i) {
        std::string bytes(random.below(3000), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random.below(i % 2 == 0 ? 256 : 128));
        const Outcome outcome = runReport({scratch.file("noise.ost", bytes)});
        EXPECT_THAT(outcome.status, AnyOf(0, 1, 2));
        EXPECT_NE(outcome.status == 2, outcome.errors.empty());
    }
}

TEST(OrvexReport, ProgramsCutOffAnywhereNeverCrashIt) {
    zt::orvex::testing::Random random;
    SCOPED_TRACE(random.describe());
    const ScratchFolder scratch;
    for (const auto& entry : std::filesystem::directory_iterator(OSTREL_PROGRAMS_FOLDER)) {
        if (entry.path().extension() != ".ost") continue;
        std::string text = readFile(entry.path().string());
        text.resize(random.below(text.size()));
        for (int i = 0; i < 5 && !text.empty(); ++i)
            text[random.below(text.size())] = random.pick(std::string("()[]{}'\"%;,=\n\t@."));
        const Outcome outcome = runReport({scratch.file("cut.ost", text)});
        EXPECT_THAT(outcome.status, AnyOf(0, 1, 2)) << text;
    }
}

} // namespace

} // namespace ostrel::report::testing
