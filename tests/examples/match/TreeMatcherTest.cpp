#include "match/TreeMatcher.h"

#include "Programs.h"
#include "syntax/Printer.h"
#include "testing/RandomProgram.h"

#include <gtest/gtest.h>
#include <zt_orvex/equivalence/EquivalenceFullLogger.h>
#include <zt_orvex/equivalence/EquivalenceNullLogger.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace ostrel::testing {

namespace {

/// The log of a failed match; empty if the programs match.
std::string difference(std::string_view a, std::string_view b) {
    const ParsedFile first = parse(a);
    const ParsedFile second = parse(b);
    zt::orvex::internal::EquivalenceFullLogger logger;
    TreeMatcher matcher({*first.tree, first.source}, {*second.tree, second.source}, logger);
    return matcher.match() ? "" : logger.getLog();
}

bool matches(std::string_view a, std::string_view b) { return difference(a, b).empty(); }

std::string textOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace

TEST(TreeMatcher, LayoutAndCommentsDoNotCount) {
    EXPECT_TRUE(matches("x = 1 + a; % one\n", "\n  x=1+a;"));
}

TEST(TreeMatcher, EmptyProgramsMatch) { EXPECT_TRUE(matches("", "% nothing\n")); }

TEST(TreeMatcher, DistinguishesNamesLiteralsAndOperators) {
    EXPECT_FALSE(matches("x = 1;", "y = 1;"));
    EXPECT_FALSE(matches("x = 1;", "x = 2;"));
    EXPECT_FALSE(matches("x = 'a';", "x = 'b';"));
    EXPECT_FALSE(matches("x = \"a\";", "x = \"b\";"));
    EXPECT_FALSE(matches("x = a + b;", "x = a - b;"));
    EXPECT_FALSE(matches("x = -a;", "x = +a;"));
}

TEST(TreeMatcher, SpellingOfAValueDoesNotCount) {
    EXPECT_TRUE(matches("x = 1.50;", "x = 1.5;"));
    EXPECT_TRUE(matches("x = 2d3;", "x = 2e3;"));
    EXPECT_TRUE(matches("x = 0xFFu8;", "x = 0Xffu8;"));
    EXPECT_TRUE(matches("x = 2i;", "x = 2.0j;"));
    EXPECT_TRUE(matches("turn on", "turn 'on'"));
}

TEST(TreeMatcher, TypeOfANumberCounts) {
    EXPECT_FALSE(matches("x = 0xFF;", "x = 0x00FF;"));
    EXPECT_FALSE(matches("x = 0x1u8;", "x = 0b1s8;"));
    EXPECT_TRUE(matches("x = 0x1u8;", "x = 0b1u8;"));
    EXPECT_FALSE(matches("x = 2;", "x = 2i;"));
}

TEST(TreeMatcher, LogShowsOperatorsAndQuotedTexts) {
    EXPECT_NE(difference("x = a + b;", "x = a - b;").find("Matching strings [+] and [-]\n"),
              std::string::npos);
    EXPECT_NE(difference("x = 'it''s';", "x = 'a';").find("Matching strings ['it''s'] and ['a']\n"),
              std::string::npos);
}

TEST(TreeMatcher, DistinguishesKindsLengthsAndAbsentParts) {
    EXPECT_FALSE(matches("x = 1;", "x = 1"));
    EXPECT_FALSE(matches("x = 1;", "x = 1; y = 2;"));
    EXPECT_FALSE(matches("if a, b = 1; end", "if a, b = 1; else, end"));
    EXPECT_FALSE(matches("x = 1:n;", "x = 1:2:n;"));
}

TEST(TreeMatcher, LogShowsThePathToTheFirstDifference) {
    const std::string rule = "-> NODES DO NOT MATCH < < < < < < < < < < < < < < < < < < < < \n";
    EXPECT_EQ(
        difference("x = 1;\ny = 2;", "x = 1;\nz = 2;"),
        "Matching Program at 1:1 against Program at 1:1\n"
        "    Matching boost::iterator_range\n"
        "        -> Matching nodes at index 0 of boost::iterator_range\n"
        "        Matching AssignmentStatement at 1:1 against AssignmentStatement at 1:1 - OK\n"
        "        -> Matching nodes at index 1 of boost::iterator_range\n"
        "        Matching AssignmentStatement at 2:1 against AssignmentStatement at 2:1\n"
        "            Matching Identifier at 2:1 against Identifier at 2:1\n"
        "                Matching strings [y] and [z]\n"
        "                    " +
            rule + "                " + rule + "            " + rule + "        " + rule + "    " +
            rule);
}

TEST(TreeMatcher, LogSaysWhichOptionalIsMissing) {
    EXPECT_NE(difference("x = 1:n;", "x = 1:2:n;")
                  .find("-> boost::optionals do not match (one is empty, the other is not)\n"),
              std::string::npos);
}

TEST(TreeMatcher, NullLoggerGivesTheSameAnswer) {
    const ParsedFile first = parse("x = 1;");
    const ParsedFile second = parse("x = 2;");
    zt::orvex::internal::EquivalenceNullLogger logger;
    EXPECT_FALSE(
        TreeMatcher({*first.tree, first.source}, {*second.tree, second.source}, logger).match());
    EXPECT_TRUE(
        TreeMatcher({*first.tree, first.source}, {*first.tree, first.source}, logger).match());
}

TEST(TreeMatcher, PrintedProgramsAreEquivalentToTheirSource) {
    std::size_t programs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(OSTREL_PROGRAMS_FOLDER)) {
        if (entry.path().extension() != ".ost" || entry.path().stem() == "unfinished") continue;
        const std::string source = textOf(entry.path());
        EXPECT_EQ(difference(source, printSource(*parse(source).tree)), "") << entry.path();
        ++programs;
    }
    EXPECT_GE(programs, 8u);
}

TEST(TreeMatcher, RandomProgramsAreEquivalentToTheirPrintedForm) {
    zt::orvex::testing::Random random;
    for (std::size_t round = zt::orvex::testing::rounds(500); round > 0; --round) {
        const std::string source = zt::orvex::testing::RandomProgram(random).program();
        ASSERT_EQ(difference(source, printSource(*parse(source).tree)), "")
            << random.describe() << "\n"
            << source;
    }
}

} // namespace ostrel::testing
