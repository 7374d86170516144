// Which block an error calls the one without an `end`.
#include "Programs.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel {
namespace {

using testing::errors;
using testing::nodes;

TEST(MissingEnd, IndentationShowsTheInnerBlock) {
    EXPECT_EQ(errors("function f\n"
                     "    for i = 1:3\n"
                     "        y = 1;\n"
                     "end\n"
                     "function g\n"
                     "end\n"),
              "2:5: 'for' has no 'end': the 'end' at 4:1 lines up with the 'function' at 1:1\n");
    EXPECT_EQ(errors("parfor i = 1:3\n"
                     "  x = 1;\n"
                     "  if a\n"
                     "    y = 1;\n"
                     "  end\n"
                     "  while b\n"
                     "    z = 1;\n"
                     "end\n"
                     "t = 1;\n"),
              "6:3: 'while' has no 'end': the 'end' at 8:1 lines up with the 'parfor' at 1:1\n");
}

TEST(MissingEnd, EndsOfAllBlocksAroundItAreShifted) {
    EXPECT_EQ(errors("parfor i = 1:3\n"
                     "    for j = 1:3\n"
                     "        if a\n"
                     "            y = 1;\n"
                     "    end\n"
                     "    z = 1;\n"
                     "end\n"),
              "3:9: 'if' has no 'end': the 'end' at 5:5 lines up with the 'for' at 2:5\n");
}

TEST(MissingEnd, OneEndMayShowSeveralBlocks) {
    EXPECT_EQ(errors("for i = 1:3\n"
                     "    while x\n"
                     "        if a\n"
                     "            y = 1;\n"
                     "end\n"),
              "2:5: 'while' has no 'end': the 'end' at 5:1 lines up with the 'for' at 1:1\n"
              "3:9: 'if' has no 'end': the 'end' at 5:1 lines up with the 'for' at 1:1\n");
}

TEST(MissingEnd, BlocksOfAClassAreCompared) {
    EXPECT_EQ(errors("class A\n"
                     "    methods\n"
                     "        function f\n"
                     "            if x\n"
                     "                y = 1;\n"
                     "        end\n"
                     "        function g\n"
                     "        end\n"
                     "    end\n"
                     "end\n"),
              "4:13: 'if' has no 'end': the 'end' at 6:9 lines up with the 'function' at 3:9\n");
    EXPECT_EQ(errors("class A\n"
                     "    properties\n"
                     "        a\n"
                     "end\n"),
              "2:5: 'properties' has no 'end': the 'end' at 4:1 lines up with the 'class' at "
              "1:1\n");
}

TEST(MissingEnd, TreeIsBuiltAsTheEndsStand) {
    EXPECT_EQ(nodes("for i = a\n    if b\n        c = 1;\nend\nd = 1;\n"),
              "(ForStatement i a [(IfStatement b [(AssignmentStatement c 1)] [] -) "
              "(AssignmentStatement d 1)])\n"
              "2:5: 'if' has no 'end': the 'end' at 4:1 lines up with the 'for' at 1:1\n");
}

TEST(MissingEnd, WithoutIndentationItIsTheOutermostBlock) {
    EXPECT_EQ(errors("for i = 1:3\nif a\nx = 1;\nend\n"), "1:1: 'for' has no 'end'\n");
    EXPECT_EQ(errors("for i = 1:3, if a, x = 1; end\n"), "1:1: 'for' has no 'end'\n");
    EXPECT_EQ(errors("for i = 1:3\n    if a, x = 1;\n    end\n"), "1:1: 'for' has no 'end'\n");
}

TEST(MissingEnd, IndentationThatFitsNoBlockSaysNothing) {
    EXPECT_EQ(errors("for i = 1:3\n    if a\n        x = 1;\n  end\n"),
              "1:1: 'for' has no 'end'\n");
    EXPECT_EQ(errors("  for i = 1:3\n  if a\n        x = 1;\n     end\n"),
              "1:3: 'for' has no 'end'\n");
}

TEST(MissingEnd, EndOnTheLineOfItsBlockIsNotCompared) {
    EXPECT_EQ(errors("for i = 1:3\n    if a, x = 1; end\n    if b\n        y = 1;\nend\n"),
              "3:5: 'if' has no 'end': the 'end' at 5:1 lines up with the 'for' at 1:1\n");
    EXPECT_EQ(errors("for i = 1:3\n    x = 1; if b\n        y = 1;\nend\n"),
              "1:1: 'for' has no 'end'\n");
}

TEST(MissingEnd, TabsReachToMultiplesOfEight) {
    EXPECT_EQ(errors("        for i = 1:3\n\t\tif a\n\t\t\tx = 1;\n\tend\n"),
              "2:3: 'if' has no 'end': the 'end' at 4:2 lines up with the 'for' at 1:9\n");
    EXPECT_EQ(errors("  \tfor i = 1:3\n\t    if a\n\t\tx = 1;\n\tend\n"),
              "2:6: 'if' has no 'end': the 'end' at 4:2 lines up with the 'for' at 1:4\n");
}

TEST(MissingEnd, KeywordOfTheEnclosingBlockComesFirst) {
    EXPECT_EQ(errors("if a\n    for k = 1\n        x = 1;\nelse\n    y = 1;\nend\nz = 1;"),
              "2:5: 'for' has no 'end'\n");
}

TEST(MissingEnd, TwoMistakesAreToldEachAtItsBlock) {
    EXPECT_EQ(errors("function f\n"
                     "    if a\n"
                     "        x = 1;\n"
                     "    for k = 1\n"
                     "        y = 1;\n"
                     "    end\n"
                     "    while b\n"
                     "        z = 1;\n"
                     "end\n"),
              "2:5: 'if' has no 'end': the 'end' at 9:1 lines up with the 'function' at 1:1\n"
              "7:5: 'while' has no 'end': the 'end' at 9:1 lines up with the 'function' at 1:1\n");
}

TEST(MissingEnd, ElseIfInTwoWordsNeedsAnEndOfItsOwn) {
    const std::string message = "'if' has no 'end': the 'end' at ";
    const ParsedFile file = testing::parse("for i = 1:3\n"
                                           "  if a\n"
                                           "    x = 1;\n"
                                           "  else if b\n"
                                           "    y = 1;\n"
                                           "  end\n"
                                           "end\n");
    EXPECT_EQ(testing::dumpErrors(file), "4:3: " + message + "6:3 lines up with the 'if' at 2:3\n");
    EXPECT_EQ(file.diagnostics[0].help, "did you mean 'elseif'?");
    EXPECT_EQ(file.diagnostics[0].place.length, 7U);
    EXPECT_EQ(errors("if a\nx = 1;\nelse if b\ny = 1;\nend\n"),
              "3:1: " + message + "5:1 lines up with the 'if' at 1:1\n");
}

TEST(MissingEnd, ElseIfWithBothEndsIsRight) {
    EXPECT_EQ(errors("if a\n  x = 1;\nelse if b\n  y = 1;\nend\nend\n"), "");
    EXPECT_EQ(errors("for i = 1:3\n  if a\n    x = 1;\n  else if b\n    y = 1;\n  end\n  end\n"),
              "1:1: 'for' has no 'end'\n");
}

TEST(MissingEnd, BlocksParsedTwiceAreReportedOnce) {
    EXPECT_EQ(errors("function f\n"
                     "    a -b\n"
                     "    if a\n"
                     "        a = 1;\n"
                     "end\n"),
              "3:5: 'if' has no 'end': the 'end' at 5:1 lines up with the 'function' at 1:1\n");
    EXPECT_EQ(errors("class A\n"
                     "  methods\n"
                     "    function f\n"
                     "      a -b\n"
                     "      if a\n"
                     "        a = 1;\n"
                     "    end\n"
                     "  end\n"
                     "end\n"),
              "5:7: 'if' has no 'end': the 'end' at 7:5 lines up with the 'function' at 3:5\n");
}

} // namespace
} // namespace ostrel
