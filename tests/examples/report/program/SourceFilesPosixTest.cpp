// What only systems with POSIX files have: links and pipes.
#include "report/program/SourceFiles.h"

#include "FoundFiles.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <sys/stat.h>

namespace ostrel::report::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

} // namespace

TEST(SourceFiles, LinksToFilesCountAndLinksToFoldersDoNot) {
    const ScratchFolder scratch;
    fs::create_directory(scratch.path("sub"));
    scratch.file("sub/a.ost", "");
    fs::create_symlink("..", scratch.path("sub/loop"));
    fs::create_symlink("sub", scratch.path("again.ost"));
    fs::create_symlink("sub/a.ost", scratch.path("link.ost"));
    fs::create_symlink("nowhere", scratch.path("broken.ost"));
    EXPECT_THAT(foundIn(scratch), ElementsAre("link.ost", "sub/a.ost"));
}

TEST(SourceFiles, LinkToAFolderMayBeAnArgument) {
    const ScratchFolder scratch;
    fs::create_directory(scratch.path("sub"));
    scratch.file("sub/a.ost", "");
    fs::create_symlink("sub", scratch.path("link"));
    EXPECT_THAT(found(scratch, {scratch.path("link")}), ElementsAre("link/a.ost"));
}

TEST(SourceFiles, PipeIsNoFile) {
    const ScratchFolder scratch;
    scratch.file("a.ost", "");
    fs::create_directory(scratch.path("sub"));
    ASSERT_EQ(mkfifo(scratch.path("sub/pipe.ost").c_str(), 0600), 0);
    EXPECT_THAT(foundIn(scratch), ElementsAre("a.ost"));
}

} // namespace ostrel::report::testing
