#include "RunReport.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <regex>
#include <string>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* CLEAN = "parfor k = 1:3, x(k) = k; end\n";
constexpr const char* WRONG = "%#nonsense\n";

/// A git repository in a folder of its own, with the hook, and `orvex-report` in the PATH.
class Repository {
public:
    Repository() {
        run("mkdir bin && ln -s '" ORVEX_REPORT_PROGRAM "' bin/orvex-report && git init --quiet .");
        run("mkdir -p .git/hooks && cp '" ORVEX_SOURCES "/examples/hooks/pre-commit' .git/hooks/");
    }

    /// Runs a command of the shell in the repository.
    Outcome run(const std::string& command) const {
        return runProgram("env",
                          {"GIT_CONFIG_GLOBAL=/dev/null", "GIT_CONFIG_SYSTEM=/dev/null",
                           "GIT_AUTHOR_NAME=A", "GIT_AUTHOR_EMAIL=a@example.org",
                           "GIT_COMMITTER_NAME=A", "GIT_COMMITTER_EMAIL=a@example.org", "sh", "-c",
                           "cd '" + scratch.path("") +
                               "' && PATH=\"$PWD/bin:$PATH\" && export PATH && " + command});
    }

    void write(const std::string& name, const std::string& text) const { scratch.file(name, text); }

    Outcome commit() const { return run("git commit --quiet --message m"); }

private:
    ScratchFolder scratch;
};

class PreCommitHook : public ::testing::Test {
protected:
    void SetUp() override {
        if (!HAS_POSIX_SHELL) GTEST_SKIP() << "the hook takes a POSIX shell";
        if (std::system("git --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "there is no git";
    }
};

TEST_F(PreCommitHook, RefusesAFileWithARemarkOrAnError) {
    for (const char* text : {WRONG, "x = ;\n"}) {
        const Repository repository;
        repository.write("a.ost", text);
        repository.run("git add a.ost");
        const Outcome outcome = repository.commit();
        EXPECT_NE(outcome.status, 0);
        EXPECT_THAT(outcome.errors, StartsWith("a.ost:1:")); // as the repository names it
        EXPECT_THAT(outcome.errors, EndsWith("Nothing was committed: see above.\n"));
        EXPECT_NE(repository.run("git rev-parse --verify --quiet HEAD").status, 0);
    }
}

TEST_F(PreCommitHook, LetsCleanFilesPassSilently) {
    const Repository repository;
    repository.write("a.ost", CLEAN);
    repository.write("-b c.ost", CLEAN);
    repository.write("other.txt", WRONG);
    repository.run("git add --all");
    const Outcome outcome = repository.commit();
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(outcome.output + outcome.errors, "");
}

TEST_F(PreCommitHook, ReadsWhatIsStagedRatherThanTheWorkingTree) {
    const Repository repository;
    repository.write("a.ost", CLEAN);
    repository.run("git add a.ost");
    repository.write("a.ost", WRONG);
    EXPECT_EQ(repository.commit().status, 0);
    repository.run("git add a.ost");
    repository.write("a.ost", CLEAN);
    EXPECT_NE(repository.commit().status, 0);
}

TEST_F(PreCommitHook, ChecksOnlyTheFilesOfTheCommit) {
    const Repository repository;
    repository.write("old.ost", WRONG);
    repository.run("git add old.ost");
    EXPECT_EQ(repository.run("git commit --quiet --no-verify --message m").status, 0);
    repository.write("new.ost", CLEAN);
    repository.run("git add new.ost");
    EXPECT_EQ(repository.commit().status, 0);
}

TEST_F(PreCommitHook, LetsFilesBeRemovedAndOtherFilesBeCommitted) {
    const Repository repository;
    repository.write("a.ost", WRONG);
    repository.run("git add a.ost && git commit --quiet --no-verify --message m");
    repository.run("git rm --quiet a.ost");
    EXPECT_EQ(repository.commit().status, 0);
    repository.write("b.txt", "x");
    repository.run("git add b.txt");
    EXPECT_EQ(repository.commit().status, 0);
}

TEST_F(PreCommitHook, LeavesNoFilesAround) {
    const Repository repository;
    repository.write("a.ost", WRONG);
    const Outcome outcome = repository.run("git add a.ost; mkdir tmp; export TMPDIR=\"$PWD/tmp\"; "
                                           "git commit --quiet --message m; ls tmp | wc -l");
    EXPECT_THAT(outcome.errors, HasSubstr("a.ost:1:"));
    EXPECT_EQ(outcome.output, "0\n");
}

/// The arguments that `.pre-commit-hooks.yaml` gives `orvex-report` before the files.
std::vector<std::string> argumentsOfTheSharedHook() {
    const std::string text = readFile(ORVEX_SOURCES "/.pre-commit-hooks.yaml");
    EXPECT_THAT(text, HasSubstr("\n  entry: orvex-report\n"));
    std::smatch found;
    std::vector<std::string> arguments;
    if (!std::regex_search(text, found, std::regex("\n  args: \\[(.*)\\]\n"))) return arguments;
    const std::string list = found[1];
    const std::regex word("[^, ]+");
    for (std::sregex_iterator at(list.begin(), list.end(), word), end; at != end; ++at)
        arguments.push_back(at->str());
    return arguments;
}

TEST(SharedHook, FailsForRemarks) {
    const ScratchFolder scratch;
    const auto statusFor = [&](const char* text) {
        std::vector<std::string> arguments = argumentsOfTheSharedHook();
        arguments.push_back(scratch.file("a.ost", text));
        return runReport(arguments).status;
    };
    EXPECT_EQ(statusFor(CLEAN), 0);
    EXPECT_EQ(statusFor(WRONG), 1);
}

} // namespace

} // namespace ostrel::report::testing
