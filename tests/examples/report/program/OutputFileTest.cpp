#include "report/program/OutputFile.h"

#include "RunReport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace ostrel::report::testing {

namespace {

namespace fs = std::filesystem;

std::ptrdiff_t countFiles(const ScratchFolder& scratch) {
    return std::distance(fs::directory_iterator(scratch.path("")), fs::directory_iterator());
}

bool writeTo(const std::string& path, const std::string& text) {
    OutputFile output(path);
    output.stream() << text;
    return output.finish();
}

} // namespace

TEST(OutputFile, AppearsOnlyWhenItIsFinished) {
    const ScratchFolder scratch;
    const std::string path = scratch.path("report.txt");
    OutputFile output(path);
    output.stream() << "whole" << std::flush;
    EXPECT_FALSE(fs::exists(path));
    EXPECT_TRUE(output.finish());
    EXPECT_EQ(readFile(path), "whole");
    EXPECT_EQ(countFiles(scratch), 1);
}

TEST(OutputFile, NotFinishedLeavesTheFormerFileAndNothingElse) {
    const ScratchFolder scratch;
    const std::string path = scratch.file("report.txt", "former");
    {
        OutputFile output(path);
        output.stream() << "half" << std::flush;
    }
    EXPECT_EQ(readFile(path), "former");
    EXPECT_EQ(countFiles(scratch), 1);
}

TEST(OutputFile, FolderIsRefusedAtOnce) {
    const ScratchFolder scratch;
    OutputFile output(scratch.path(""));
    EXPECT_FALSE(output.isGood());
    EXPECT_EQ(output.reason(), "Is a directory");
    EXPECT_FALSE(output.finish());
}

TEST(OutputFile, MissingFolderIsRefusedAtOnce) {
    const ScratchFolder scratch;
    OutputFile output(scratch.path("none/report.txt"));
    EXPECT_FALSE(output.isGood());
    EXPECT_EQ(output.reason(), "No such file or directory");
}

TEST(OutputFile, FileThatMayNotBeWrittenIsNotReplaced) {
    const ScratchFolder scratch;
    const std::string path = scratch.file("report.txt", "former");
    fs::permissions(path, fs::perms(0444));
    if (std::ofstream(path, std::ios::app)) GTEST_SKIP() << "this user may write everything";
    OutputFile output(path);
    EXPECT_FALSE(output.isGood());
    EXPECT_EQ(output.reason(), "Permission denied");
    EXPECT_FALSE(output.finish());
    EXPECT_EQ(readFile(path), "former");
}

TEST(OutputFile, DeviceIsWrittenDirectly) {
#if defined(_WIN32)
    const std::string device = "NUL";
#else
    const std::string device = "/dev/null";
#endif
    EXPECT_TRUE(writeTo(device, "text"));
    EXPECT_FALSE(fs::is_regular_file(device));
}

TEST(OutputFile, DeviceThatIsFullIsAnError) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "no device that is always full";
    OutputFile output("/dev/full");
    output.stream() << "text";
    EXPECT_FALSE(output.finish());
    EXPECT_EQ(output.reason(), "No space left on device");
}

} // namespace ostrel::report::testing
