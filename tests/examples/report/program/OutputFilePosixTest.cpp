// What only systems with POSIX files have: permissions, links, pipes, and names of standard output.
#include "report/program/OutputFile.h"

#include "RunReport.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <future>
#include <string>
#include <sys/stat.h>

namespace ostrel::report::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

bool writeTo(const std::string& path, const std::string& text) {
    OutputFile output(path);
    output.stream() << text;
    return output.finish();
}

unsigned permissionsOf(const std::string& path) {
    return static_cast<unsigned>(fs::status(path).permissions());
}

} // namespace

TEST(OutputFile, NewFileHasThePermissionsOfAnyNewFile) {
    const ScratchFolder scratch;
    const mode_t mask = umask(027);
    EXPECT_TRUE(writeTo(scratch.path("report.txt"), ""));
    umask(mask);
    EXPECT_EQ(permissionsOf(scratch.path("report.txt")), 0640U);
}

TEST(OutputFile, ReplacedFileKeepsItsPermissions) {
    const ScratchFolder scratch;
    const std::string path = scratch.file("report.txt", "");
    fs::permissions(path, fs::perms(0604));
    EXPECT_TRUE(writeTo(path, "new"));
    EXPECT_EQ(permissionsOf(path), 0604U);
    EXPECT_EQ(readFile(path), "new");
}

TEST(OutputFile, LinkStaysALink) {
    const ScratchFolder scratch;
    fs::create_directory(scratch.path("sub"));
    scratch.file("sub/report.txt", "former");
    fs::create_symlink("sub/report.txt", scratch.path("link"));
    EXPECT_TRUE(writeTo(scratch.path("link"), "new"));
    EXPECT_TRUE(fs::is_symlink(scratch.path("link")));
    EXPECT_EQ(readFile(scratch.path("sub/report.txt")), "new");
}

TEST(OutputFile, PipeIsWrittenDirectly) {
    const ScratchFolder scratch;
    const std::string pipe = scratch.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::future<std::string> read = std::async(std::launch::async, readFile, pipe);
    EXPECT_TRUE(writeTo(pipe, "text"));
    EXPECT_EQ(read.get(), "text");
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST(OutputFile, NameOfStandardOutputIsWrittenDirectlyEvenIfItIsAFile) {
    const ScratchFolder scratch;
    const std::string good = scratch.file("good.ost", "parfor k = 1:3, x(k) = 1; end\n");
    const std::string out = scratch.file("out", "");
    const std::string command = std::string("{ echo before; '") + ORVEX_REPORT_PROGRAM +
                                "' --output /dev/stdout '" + good + "'; echo after; } >>'" + out +
                                "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_THAT(readFile(out), HasSubstr("good.ost:1:1: parfor over k"));
    EXPECT_THAT(readFile(out), HasSubstr("after\n"));
}

} // namespace ostrel::report::testing
