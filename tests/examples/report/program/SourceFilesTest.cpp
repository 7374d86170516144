#include "report/program/SourceFiles.h"

#include "RunReport.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace ostrel::report::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using Kind = SourceFile::Kind;

/// The paths that arguments stand for, relative to the folder; the ones that stand for no file are
/// marked.
std::vector<std::string> found(const ScratchFolder& scratch,
                               const std::vector<std::string>& arguments) {
    std::vector<std::string> paths;
    for (const SourceFile& file : findSourceFiles(arguments)) {
        const char* const mark = file.kind == Kind::UnreadableFolder ? "unreadable "
                                 : file.kind == Kind::EmptyFolder    ? "empty "
                                                                     : "";
        const std::string folder = scratch.path("");
        const bool isInside = file.path.rfind(folder, 0) == 0;
        paths.push_back(mark + (isInside ? file.path.substr(folder.size()) : file.path));
    }
    return paths;
}

std::vector<std::string> foundIn(const ScratchFolder& scratch) {
    return found(scratch, {scratch.path("")});
}

} // namespace

TEST(SourceFiles, ArgumentStandsForItselfEvenIfThereIsNoSuchFile) {
    const ScratchFolder scratch;
    EXPECT_THAT(found(scratch, {"none.ost", "-", scratch.file("a.txt", "")}),
                ElementsAre("none.ost", "-", "a.txt"));
}

TEST(SourceFiles, FolderStandsForItsFilesAtAnyDepthSortedByTheBytesOfTheirPaths) {
    const ScratchFolder scratch;
    fs::create_directories(scratch.path("b/c/d"));
    for (const char* const name : {"b.ost", "a.ost", "B.ost", "b/c/d/x.ost", "b/a.ost", "b-.ost",
                                   "\xC3\xA9.ost", "z.txt", "ost", "a.ost.txt", "a.OST"})
        scratch.file(name, "");
    EXPECT_THAT(foundIn(scratch), ElementsAre("B.ost", "a.ost", "b-.ost", "b.ost", "b/a.ost",
                                              "b/c/d/x.ost", "\xC3\xA9.ost"));
}

TEST(SourceFiles, ArgumentsKeepTheirOrder) {
    const ScratchFolder scratch;
    fs::create_directories(scratch.path("x"));
    fs::create_directories(scratch.path("a"));
    scratch.file("x/2.ost", "");
    scratch.file("x/1.ost", "");
    scratch.file("a/3.ost", "");
    EXPECT_THAT(found(scratch, {scratch.path("x"), "-", scratch.path("a")}),
                ElementsAre("x/1.ost", "x/2.ost", "-", "a/3.ost"));
}

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

TEST(SourceFiles, FolderMayBeNamedLikeAFile) {
    const ScratchFolder scratch;
    fs::create_directory(scratch.path("folder.ost"));
    scratch.file("folder.ost/a.ost", "");
    EXPECT_THAT(foundIn(scratch), ElementsAre("folder.ost/a.ost"));
}

TEST(SourceFiles, PipeIsNoFile) {
    const ScratchFolder scratch;
    scratch.file("a.ost", "");
    fs::create_directory(scratch.path("sub"));
    ASSERT_EQ(mkfifo(scratch.path("sub/pipe.ost").c_str(), 0600), 0);
    EXPECT_THAT(foundIn(scratch), ElementsAre("a.ost"));
}

TEST(SourceFiles, FolderWithoutFilesHasAnEntry) {
    const ScratchFolder scratch;
    fs::create_directories(scratch.path("empty/sub"));
    scratch.file("a.ost", "");
    EXPECT_THAT(found(scratch, {scratch.path("empty"), scratch.path("a.ost")}),
                ElementsAre("empty empty", "a.ost"));
    EXPECT_THAT(foundIn(scratch), ElementsAre("a.ost")) << "one with a file anywhere has none";
}

TEST(SourceFiles, FolderThatCannotBeReadHasAnEntryAndTheRestIsSearched) {
    const ScratchFolder scratch;
    for (const char* const name : {"a", "secret", "z"})
        fs::create_directory(scratch.path(name));
    scratch.file("a/a.ost", "");
    scratch.file("secret/b.ost", "");
    scratch.file("z/c.ost", "");
    fs::permissions(scratch.path("secret"), fs::perms::none);
    if (geteuid() == 0) GTEST_SKIP() << "the superuser may read everything";
    EXPECT_THAT(foundIn(scratch), ElementsAre("a/a.ost", "unreadable secret", "z/c.ost"));
    EXPECT_EQ(findSourceFiles({scratch.path("")})[1].reason, "Permission denied");
    fs::permissions(scratch.path("secret"), fs::perms::owner_all);
}

} // namespace ostrel::report::testing
