#include "match/Differences.h"

#include "Programs.h"
#include "match/DifferenceWriter.h"
#include "match/TreeMatcher.h"
#include "syntax/Printer.h"
#include "testing/Random.h"
#include "testing/RandomProgram.h"

#include <gtest/gtest.h>
#include <zt_orvex/equivalence/EquivalenceNullLogger.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::testing {

namespace {

using zt::orvex::testing::Random;
using zt::orvex::testing::RandomProgram;
using zt::orvex::testing::rounds;

/// All differences, as they are written for a person.
std::string differences(std::string_view a, std::string_view b) {
    const ParsedFile first = parseOstrel("a.ost", a);
    const ParsedFile second = parseOstrel("b.ost", b);
    std::ostringstream out;
    DifferenceWriter writer(out, {}, first, second);
    for (const Difference& difference : findDifferences(*first.tree, *second.tree))
        writer.write(difference);
    return out.str();
}

std::size_t count(const ParsedFile& a, const ParsedFile& b) {
    return findDifferences(*a.tree, *b.tree).size();
}

std::size_t count(std::string_view a, std::string_view b) { return count(parse(a), parse(b)); }

} // namespace

TEST(Differences, EquivalentProgramsHaveNone) {
    EXPECT_EQ(differences("x = 1 + a; % one\n", "\n  x=1.0+a;"), "");
    EXPECT_EQ(differences("", "% nothing\n"), "");
}

TEST(Differences, NamesAreShownInTheirLines) {
    EXPECT_EQ(differences("x = 1;\ny = f(a);\n", "x = 1;\n\ny = f(b);\n"),
              "a.ost:2:7: difference: the name 'a' here\n"
              "    2 | y = f(a);\n"
              "      |       ^\n"
              "b.ost:3:7: the name 'b' there\n"
              "    3 | y = f(b);\n"
              "      |       ^\n");
}

TEST(Differences, NumbersAreShownAsTheyAreSpelled) {
    EXPECT_EQ(differences("x = 1.50;", "x = 25e-1;"),
              "a.ost:1:5: difference: the number 1.50 here\n"
              "    1 | x = 1.50;\n"
              "      |     ^~~~\n"
              "b.ost:1:5: the number 25e-1 there\n"
              "    1 | x = 25e-1;\n"
              "      |     ^~~~~\n");
    EXPECT_EQ(differences("x = 0xFF;", "x = 0x00FF;"),
              "a.ost:1:5: difference: the number 0xFF here\n"
              "    1 | x = 0xFF;\n"
              "      |     ^~~~\n"
              "b.ost:1:5: the number 0x00FF there, of another type\n"
              "    1 | x = 0x00FF;\n"
              "      |     ^~~~~~\n");
}

TEST(Differences, OperatorsAreMarkedThemselves) {
    EXPECT_EQ(differences("x = a + b * c;", "x = a ...\n  - b * d;"),
              "a.ost:1:7: difference: the operator '+' here\n"
              "    1 | x = a + b * c;\n"
              "      |       ^\n"
              "b.ost:2:3: the operator '-' there\n"
              "    2 |   - b * d;\n"
              "      |   ^\n");
    EXPECT_EQ(differences("x = (-a);", "x = (~a);"),
              "a.ost:1:6: difference: the operator '-' here\n"
              "    1 | x = (-a);\n"
              "      |      ^\n"
              "b.ost:1:6: the operator '~' there\n"
              "    1 | x = (~a);\n"
              "      |      ^\n");
    EXPECT_EQ(differences("x = a';", "x = a.';"), "a.ost:1:6: difference: the operator ''' here\n"
                                                  "    1 | x = a';\n"
                                                  "      |      ^\n"
                                                  "b.ost:1:6: the operator '.'' there\n"
                                                  "    1 | x = a.';\n"
                                                  "      |      ^~\n");
}

TEST(Differences, TextsAreQuoted) {
    EXPECT_EQ(differences("x = 'it''s';", "x = 'its';"),
              "a.ost:1:5: difference: the text 'it''s' here\n"
              "    1 | x = 'it''s';\n"
              "      |     ^~~~~~~\n"
              "b.ost:1:5: the text 'its' there\n"
              "    1 | x = 'its';\n"
              "      |     ^~~~~\n");
    EXPECT_EQ(differences("turn on", "turn 'off'"), "a.ost:1:6: difference: the text 'on' here\n"
                                                    "    1 | turn on\n"
                                                    "      |      ^~\n"
                                                    "b.ost:1:6: the text 'off' there\n"
                                                    "    1 | turn 'off'\n"
                                                    "      |      ^~~~~\n");
}

TEST(Differences, LongTextsAreCutInTheMessage) {
    const std::string text = differences("x = '" + std::string(100, 'a') + "';", "x = 'b';");
    EXPECT_NE(text.find("the text '" + std::string(59, 'a') + "... here\n"), std::string::npos);
}

TEST(Differences, KindsAreReportedAtTheHighestNode) {
    EXPECT_EQ(differences("x = f(a + 1, b);", "x = f([a, 2], b);"),
              "a.ost:1:7: difference: a BinaryOperation here\n"
              "    1 | x = f(a + 1, b);\n"
              "      |       ^~~~~\n"
              "b.ost:1:7: a Matrix there\n"
              "    1 | x = f([a, 2], b);\n"
              "      |       ^~~~~~\n");
    EXPECT_EQ(differences("break\n", "if a\n  x = 1;\nend\n"),
              "a.ost:1:1: difference: a BreakStatement here\n"
              "    1 | break\n"
              "      | ^~~~~\n"
              "b.ost:1:1: an IfStatement there\n"
              "    1 | if a\n"
              "      | ^~~~ (continues to line 3)\n");
}

TEST(Differences, StatementThatPrintsIsComparedAsIfItWereSilent) {
    EXPECT_EQ(differences("x = 1\n", "x = 2;\n"), "a.ost:1:1: difference: prints its result here\n"
                                                  "    1 | x = 1\n"
                                                  "      | ^~~~~\n"
                                                  "b.ost:1:1: is silent there\n"
                                                  "    1 | x = 2;\n"
                                                  "      | ^~~~~\n"
                                                  "a.ost:1:5: difference: the number 1 here\n"
                                                  "    1 | x = 1\n"
                                                  "      |     ^\n"
                                                  "b.ost:1:5: the number 2 there\n"
                                                  "    1 | x = 2;\n"
                                                  "      |     ^\n");
    EXPECT_EQ(count("x = 1;", "x = 1"), 1u);
}

TEST(Differences, PartThatOnlyOneHasIsShownInBoth) {
    EXPECT_EQ(differences("x = 1:n;", "x = 1:2:n;"),
              "b.ost:1:7: difference: a NumberLiteral only here\n"
              "    1 | x = 1:2:n;\n"
              "      |       ^\n"
              "a.ost:1:5: there, it would be part of this\n"
              "    1 | x = 1:n;\n"
              "      |     ^~~\n");
}

TEST(Differences, InsertedStatementIsOneDifference) {
    EXPECT_EQ(differences("x = 1;\nz = 3;\n", "x = 1;\ny = 2\nz = 3;\n"),
              "b.ost:2:1: difference: an AssignmentStatement only here\n"
              "    2 | y = 2\n"
              "      | ^~~~~\n"
              "a.ost:1:1: there, it would follow this\n"
              "    1 | x = 1;\n"
              "      | ^~~~~\n");
}

TEST(Differences, RemovedStatementIsOneDifference) {
    EXPECT_EQ(differences("x = 1;\nz = 3;\n", "z = 3;\n"),
              "a.ost:1:1: difference: an AssignmentStatement only here\n"
              "    1 | x = 1;\n"
              "      | ^~~~~\n"
              "b.ost:1:1: there, it would precede this\n"
              "    1 | z = 3;\n"
              "      | ^~~~~\n");
    EXPECT_EQ(differences("if a\n  x = 1;\nend\n", "if a\nend\n"),
              "a.ost:2:3: difference: an AssignmentStatement only here\n"
              "    2 |   x = 1;\n"
              "      |   ^~~~~\n"
              "b.ost:1:1: there, it would be part of this\n"
              "    1 | if a\n"
              "      | ^~~~ (continues to line 2)\n");
}

TEST(Differences, ElementsOfAnExpressionAreAlignedToo) {
    EXPECT_EQ(differences("x = [a, c];", "x = [a, b, c];"),
              "b.ost:1:9: difference: an Identifier only here\n"
              "    1 | x = [a, b, c];\n"
              "      |         ^\n"
              "a.ost:1:6: there, it would follow this\n"
              "    1 | x = [a, c];\n"
              "      |      ^\n");
}

TEST(Differences, AllAreReportedAndWhatIsEqualIsNot) {
    EXPECT_EQ(differences("for k = 1:3\n  x = 1;\n  y = 2;\nend\nz = 3;\n",
                          "for j = 1:3\n  x = 1;\n  y = 5;\nend\nz = 4;\n"),
              "a.ost:1:5: difference: the name 'k' here\n"
              "    1 | for k = 1:3\n"
              "      |     ^\n"
              "b.ost:1:5: the name 'j' there\n"
              "    1 | for j = 1:3\n"
              "      |     ^\n"
              "a.ost:3:7: difference: the number 2 here\n"
              "    3 |   y = 2;\n"
              "      |       ^\n"
              "b.ost:3:7: the number 5 there\n"
              "    3 |   y = 5;\n"
              "      |       ^\n"
              "a.ost:5:5: difference: the number 3 here\n"
              "    5 | z = 3;\n"
              "      |     ^\n"
              "b.ost:5:5: the number 4 there\n"
              "    5 | z = 4;\n"
              "      |     ^\n");
}

TEST(Differences, ChangedStatementIsComparedWithTheOneThatBeginsAlike) {
    EXPECT_EQ(differences("x = 1;\n", "y = 2;\nx = 2;\n"),
              "b.ost:1:1: difference: an AssignmentStatement only here\n"
              "    1 | y = 2;\n"
              "      | ^~~~~\n"
              "a.ost:1:1: there, it would precede this\n"
              "    1 | x = 1;\n"
              "      | ^~~~~\n"
              "a.ost:1:5: difference: the number 1 here\n"
              "    1 | x = 1;\n"
              "      |     ^\n"
              "b.ost:2:5: the number 2 there\n"
              "    2 | x = 2;\n"
              "      |     ^\n");
}

TEST(Differences, ControlCharactersDoNotReachTheTerminal) {
    EXPECT_EQ(differences("x = 'a\x1B[2J';", "x = 'b';"),
              "a.ost:1:5: difference: the text 'a\xEF\xBF\xBD[2J' here\n"
              "    1 | x = 'a\xEF\xBF\xBD[2J';\n"
              "      |     ^~~~~~~\n"
              "b.ost:1:5: the text 'b' there\n"
              "    1 | x = 'b';\n"
              "      |     ^~~\n");
}

TEST(Differences, ColoursMarkBothPlaces) {
    const ParsedFile first = parseOstrel("a.ost", "x = 1;");
    const ParsedFile second = parseOstrel("b.ost", "x = 2;");
    TextStyle style;
    style.isColored = true;
    std::ostringstream out;
    for (const Difference& difference : findDifferences(*first.tree, *second.tree))
        DifferenceWriter(out, style, first, second).write(difference);
    EXPECT_NE(out.str().find(painted(style, Tone::Warning, "difference:")), std::string::npos);
    EXPECT_NE(out.str().find(painted(style, Tone::Help, "    ^")), std::string::npos);
}

TEST(Differences, ThereAreNoneExactlyIfTheProgramsMatch) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = rounds(1000); round > 0; --round) {
        const ParsedFile first = parse(RandomProgram(random).program());
        const ParsedFile second = parse(RandomProgram(random).program());
        zt::orvex::internal::EquivalenceNullLogger logger;
        TreeMatcher matcher({*first.tree, first.source}, {*second.tree, second.source}, logger);
        ASSERT_EQ(count(first, second) == 0, matcher.match());
    }
}

TEST(Differences, ProgramAndItsReprintHaveNone) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = rounds(1000); round > 0; --round) {
        const ParsedFile file = parse(RandomProgram(random).program());
        ASSERT_EQ(count(file, parse(printSource(*file.tree))), 0u) << printSource(*file.tree);
    }
}

/// Plants changes in distinct statements, with an unchanged one before and after each, at random
/// depths of nested blocks.
class Planter {
public:
    explicit Planter(Random& source) : random(source) {}

    void block(std::size_t depth) {
        for (std::size_t i = random.between(1, 4); i > 0; --i) {
            both(distinct());
            if (random.oneIn(3)) {
                plant();
            } else if (depth < 3 && random.oneIn(2)) {
                both("if c" + std::to_string(++statements) + "\n");
                block(depth + 1);
                both("end\n");
            }
        }
        both(distinct());
    }

    std::string first;
    std::string second;
    std::size_t planted = 0;

private:
    void both(const std::string& text) {
        first += text;
        second += text;
    }

    std::string distinct() { return "x" + std::to_string(++statements) + " = f(a, 'b') + 1;\n"; }

    void plant() {
        ++planted;
        const std::string name = "y" + std::to_string(++statements);
        const std::string kept = name + " = f(a, 'b') + 1;\n";
        switch (random.below(6)) {
        case 0:
            first += kept;
            break;
        case 1:
            second += kept;
            break;
        default:
            first += kept;
            second +=
                name + random.pick(std::vector<std::string>{
                           " = f(d, 'b') + 1;\n", " = f(a, 'd') + 1;\n", " = f(a, 'b') - 1;\n",
                           " = f(a, 'b') + 2;\n", " = f(a, 'b', d) + 1;\n",
                           " = f(a, 'b') + g(1);\n", " = f(a, 'b') + 1\n"});
        }
    }

    Random& random;
    std::size_t statements = 0;
};

TEST(Differences, AsManyAsChangesWerePlantedInDistinctStatements) {
    Random random;
    SCOPED_TRACE(random.describe());
    std::size_t most = 0;
    for (std::size_t round = rounds(2000); round > 0; --round) {
        Planter planter(random);
        planter.block(0);
        most = std::max(most, planter.planted);
        ASSERT_EQ(count(planter.first, planter.second), planter.planted)
            << planter.first << "\n"
            << planter.second << "\n"
            << differences(planter.first, planter.second);
    }
    EXPECT_GT(most, 3u);
}

TEST(Differences, LongProgramsTakeLinearTime) {
    // In quadratic time, the test would hang.
    std::string first;
    std::string second;
    for (std::size_t i = 0; i < rounds(100'000); ++i) {
        const std::string number = std::to_string(i);
        first += "x(" + number + ") = 1;\n";
        second += "x(" + number + ") = " + (i % 1000 == 0 ? "2" : "1") + ";\n";
    }
    EXPECT_EQ(count(first, second), (rounds(100'000) + 999) / 1000);
    EXPECT_EQ(count(first, ""), rounds(100'000));
}

} // namespace ostrel::testing
