#include "report/sarif/Fingerprints.h"

#include "HandMadeReport.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace ostrel::report::testing {

namespace {

/// Those of the remarks of a program, which are made as the log makes them.
std::vector<std::string> fingerprintsOf(const std::string& program) {
    const File file = reportOf(program);
    Fingerprints fingerprints(file);
    std::vector<std::string> found;
    for (const Remark& remark : file.remarks)
        found.push_back(fingerprints.next(nameOf(remark.code), remark.variable, "", remark.place));
    return found;
}

const std::string PROGRAM = "parfor k = 1:3\n  eval('x');\n  eval('x');\n  load(k);\nend\n";

/// One remark on the first line of a text.
std::string fingerprintOf(const std::u16string& text, std::string_view code = "carried",
                          std::string_view variable = "s", std::string_view scope = "f") {
    File file;
    file.source = SourceText(text);
    return Fingerprints(file).next(code, variable, scope, file.source.place(0, 1));
}

} // namespace

TEST(Fingerprints, SurviveTenLinesAbove) {
    const std::vector<std::string> before = fingerprintsOf(PROGRAM);
    const std::vector<std::string> after = fingerprintsOf(std::string(10, '\n') + PROGRAM);
    ASSERT_GE(before.size(), 3U);
    EXPECT_EQ(before, after);
}

TEST(Fingerprints, OfAlikeRemarksDiffer) {
    const std::vector<std::string> all = fingerprintsOf(PROGRAM);
    EXPECT_EQ(std::set<std::string>(all.begin(), all.end()).size(), all.size());
}

TEST(Fingerprints, IndentationDoesNotMatter) {
    EXPECT_EQ(fingerprintOf(u"s = s + k"), fingerprintOf(u"s =\ts  + k \t"));
    EXPECT_NE(fingerprintOf(u"s = s + k"), fingerprintOf(u"s=s + k"));
}

TEST(Fingerprints, DependOnEachPart) {
    const std::string all = fingerprintOf(u"s = 1");
    EXPECT_NE(all, fingerprintOf(u"s = 2"));
    EXPECT_NE(all, fingerprintOf(u"s = 1", "shared"));
    EXPECT_NE(all, fingerprintOf(u"s = 1", "carried", "t"));
    EXPECT_NE(all, fingerprintOf(u"s = 1", "carried", "s", "g"));
    EXPECT_NE(fingerprintOf(u"s = 1", "carried", "sf", ""),
              fingerprintOf(u"s = 1", "carried", "s", "f"));
}

// Computed with another implementation of name-based UUIDs.
TEST(Fingerprints, AreTheSameInEveryVersionOfTheProgram) {
    EXPECT_EQ(fingerprintOf(u"s = s + k"), "d424064f-0e5d-5dd1-a306-43991e29a794");
}

} // namespace ostrel::report::testing
