// Which block an error calls the one without an `end`.
#include "Programs.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ostrel {
namespace {

using testing::errors;
using testing::nodes;
using zt::orvex::testing::Random;

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

/// Random nested blocks, one line each, indented as the nesting is.
class Nest {
public:
    explicit Nest(Random& source) : random(source) {
        block(0);
        while (lines.size() < 8)
            block(0);
    }

    struct Line {
        std::string text;
        std::size_t opener; ///< Of an `end`: the line of its block; otherwise NONE.
    };
    static constexpr std::size_t NONE = static_cast<std::size_t>(-1);
    std::vector<Line> lines;

private:
    void block(std::size_t depth) {
        const std::size_t opener = lines.size();
        const std::string indent(depth * 4, ' ');
        const bool isIf = random.oneIn(2);
        add(indent + (isIf ? "if a"
                           : random.pick(std::vector<std::string>{"for k = 1:3", "while a",
                                                                  "parfor k = 1:3", "spmd"})));
        body(depth);
        if (isIf && random.oneIn(3)) {
            add(indent + "else");
            body(depth);
        }
        add(indent + "end", opener);
    }

    void body(std::size_t depth) {
        for (std::size_t i = random.below(4); i > 0; --i) {
            if (depth < 5 && random.oneIn(2)) {
                block(depth + 1);
            } else {
                add(std::string(depth * 4 + 4, ' ') + "x = 1;");
            }
        }
    }

    void add(const std::string& text, std::size_t opener = NONE) {
        lines.push_back({text, opener});
    }

    Random& random;
};

TEST(MissingEnd, RemovedEndIsMissedAtItsBlock) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t i = zt::orvex::testing::rounds(3000); i > 0; --i) {
        const Nest nest(random);
        std::size_t removed = random.below(nest.lines.size());
        while (nest.lines[removed].opener == Nest::NONE)
            removed = (removed + 1) % nest.lines.size();
        std::string source;
        for (std::size_t line = 0; line < nest.lines.size(); ++line) {
            if (line != removed) source += nest.lines[line].text + "\n";
        }
        const ParsedFile file = testing::parse(source);
        ASSERT_EQ(file.diagnostics.size(), 1U) << source << testing::dumpErrors(file);
        ASSERT_EQ(file.diagnostics[0].place.line, nest.lines[removed].opener + 1)
            << source << testing::dumpErrors(file);
    }
}

} // namespace
} // namespace ostrel
