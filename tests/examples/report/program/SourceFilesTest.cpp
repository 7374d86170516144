#include "report/program/SourceFiles.h"

#include "FoundFiles.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

namespace ostrel::report::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

} // namespace

TEST(SourceFiles, ArgumentStandsForItselfEvenIfThereIsNoSuchFile) {
    const ScratchFolder scratch;
    EXPECT_THAT(found(scratch, {"none.ost", "-", scratch.file("a.txt", "")}),
                ElementsAre("none.ost", "-", "a.txt"));
}

TEST(SourceFiles, FolderStandsForItsFilesAtAnyDepthSortedByTheBytesOfTheirPaths) {
    const ScratchFolder scratch;
    fs::create_directories(scratch.path("b/c/d"));
    for (const char* const name : {"b.ost", "a.ost", "C.ost", "b/c/d/x.ost", "b/a.ost", "b-.ost",
                                   "\xC3\xA9.ost", "z.txt", "ost", "a.ost.txt", "d.OST"})
        scratch.file(name, "");
    EXPECT_THAT(foundIn(scratch), ElementsAre("C.ost", "a.ost", "b-.ost", "b.ost", "b/a.ost",
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

TEST(SourceFiles, FolderMayBeNamedLikeAFile) {
    const ScratchFolder scratch;
    fs::create_directory(scratch.path("folder.ost"));
    scratch.file("folder.ost/a.ost", "");
    EXPECT_THAT(foundIn(scratch), ElementsAre("folder.ost/a.ost"));
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
    std::error_code error;
    if (fs::directory_iterator(scratch.path("secret"), error); !error)
        GTEST_SKIP() << "this user may read everything";
    EXPECT_THAT(foundIn(scratch), ElementsAre("a/a.ost", "unreadable secret", "z/c.ost"));
    EXPECT_EQ(findSourceFiles({scratch.path("")})[1].reason, "Permission denied");
    fs::permissions(scratch.path("secret"), fs::perms::owner_all);
}

} // namespace ostrel::report::testing
