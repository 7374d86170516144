#include "Programs.h"

#include "syntax/Limits.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

using testing::errors;
using testing::nodes;

TEST(FileParserRecovery, UnclosedBracketCostsItsLine) {
    EXPECT_EQ(nodes("x = [1, 2\ny = 3;\nz = 4;"),
              "DiscardedStatement\n(AssignmentStatement y 3)\n(AssignmentStatement z 4)\n"
              "1:5: '[' is not closed\n");
    EXPECT_EQ(nodes("x = {1, 2;\nf(y)\nz = 4;"),
              "DiscardedStatement\n(PrintStatement (ExpressionStatement <ans> (ParenOperation f "
              "[y])))\n(AssignmentStatement z 4)\n1:5: '{' is not closed\n");
    EXPECT_EQ(nodes("x = f(1, 2\ny = 3;"),
              "DiscardedStatement\n(AssignmentStatement y 3)\n1:6: '(' is not closed\n");
    EXPECT_EQ(nodes("x = [1, f(2\ny = 3;"),
              "DiscardedStatement\n(AssignmentStatement y 3)\n1:10: '(' is not closed\n");
    EXPECT_EQ(errors("x = [1, 2"), "1:5: '[' is not closed\n");
    EXPECT_EQ(errors("x = [1, 2\nif y\nz = 1;\nend\n"), "1:5: '[' is not closed\n");
    EXPECT_EQ(errors("if f(x\ny = 1;\nend\n"), "1:5: '(' is not closed\n");
}

TEST(FileParserRecovery, ErrorInAMatrixOfSeveralLinesCostsTheMatrix) {
    EXPECT_EQ(nodes("x = [1 2\n 3 * * 4\n 5 6];\ny = 3;"),
              "DiscardedStatement\n(AssignmentStatement y 3)\n"
              "2:6: expected an expression, found '*'\n");
    EXPECT_EQ(nodes("x = 1 ) [1 2\n 3 4];\ny = 3;"),
              "DiscardedStatement\n(AssignmentStatement y 3)\n"
              "1:7: expected the end of the statement, found ')'\n");
}

TEST(FileParserRecovery, MismatchedBracketIsOneError) {
    EXPECT_EQ(errors("x = [1, 2);\ny = 3;"), "1:10: '[' is not closed before ')'\n");
    EXPECT_EQ(errors("x = (1 + 2];\ny = 3;"), "1:11: '(' is not closed before ']'\n");
    EXPECT_EQ(errors("x = 1);\ny = 3;"), "1:6: expected the end of the statement, found ')'\n");
    EXPECT_EQ(errors(")\ny = 3;"), "1:1: ')' closes nothing\n");
}

TEST(FileParserRecovery, UnclosedQuoteCostsItsLine) {
    EXPECT_EQ(
        nodes("x = 'abc;\ny = 3;"),
        "DiscardedStatement\n(AssignmentStatement y 3)\n1:5: the quoted text is not closed\n");
    EXPECT_EQ(
        nodes("x = f(\"abc, 3);\ny = 3;"),
        "DiscardedStatement\n(AssignmentStatement y 3)\n1:7: the quoted text is not closed\n");
    EXPECT_EQ(
        nodes("x = {'abc, 3};\ny = 3;"),
        "DiscardedStatement\n(AssignmentStatement y 3)\n1:6: the quoted text is not closed\n");
}

TEST(FileParserRecovery, ExtraEndIsOneErrorAtThatEnd) {
    EXPECT_EQ(nodes("if x, end\nend\ny = 3;"),
              "(IfStatement x [] [] -)\nDiscardedStatement\n(AssignmentStatement y 3)\n"
              "2:1: this 'end' closes nothing\n");
    EXPECT_EQ(nodes("function f\nif x\nend\nend\ny = 3;\nend\nfunction g\nend"),
              "(FunctionDefinition f [] [] FillerNode [] [(IfStatement x [] [] -) "
              "DiscardedStatement (AssignmentStatement y 3)])\n"
              "(FunctionDefinition g [] [] FillerNode [] [])\n4:1: this 'end' closes nothing\n");
}

TEST(FileParserRecovery, ExtraEndsInARowAreOneErrorEach) {
    EXPECT_EQ(nodes("function f\nend\nend\nx = 1;\nend\nfunction g\nend"),
              "(FunctionDefinition f [] [] FillerNode [] [DiscardedStatement DiscardedStatement "
              "(AssignmentStatement x 1)])\n(FunctionDefinition g [] [] FillerNode [] [])\n"
              "2:1: this 'end' closes nothing\n3:1: this 'end' closes nothing\n");
    EXPECT_EQ(errors("class A\nmethods\nfunction f\nend\nend\nend\nend\nend\n"),
              "4:1: this 'end' closes nothing\n5:1: this 'end' closes nothing\n");
}

TEST(FileParserRecovery, EndsThatBlocksNeedAreNotExtra) {
    EXPECT_EQ(errors("function f\nend\nif a\nend\nend\nif b\nend\nend\nfunction g\nend\n"),
              "2:1: this 'end' closes nothing\n5:1: this 'end' closes nothing\n");
}

TEST(FileParserRecovery, ExtraEndInAClassIsOneError) {
    EXPECT_EQ(errors("class A\nmethods\nfunction f\nif x\nend\nend\ny = 3;\nend\nfunction g\nend\n"
                     "end\nend\n"),
              "6:1: this 'end' closes nothing\n");
    EXPECT_EQ(errors("class A\nmethods\nfunction f\nif x\nend\nend\ny = 3;\nend\nend\n"
                     "properties\nend\nend\n"),
              "6:1: this 'end' closes nothing\n");
    EXPECT_EQ(errors("class A\nproperties\na\nend\nend\nmethods\nfunction f\nend\nend\nend\n"),
              "5:1: this 'end' closes nothing\n");
}

TEST(FileParserRecovery, MissingEndIsOneErrorAtTheBlock) {
    EXPECT_EQ(errors("for k = 1:3\nx = k;\n"), "1:1: 'for' has no 'end'\n");
    EXPECT_EQ(nodes("function f\nif x\ny = 1;\nend\nfunction g\nend\n"),
              "(FunctionDefinition f [] [] FillerNode [] [(IfStatement x [(AssignmentStatement y "
              "1)] [] -)])\n(FunctionDefinition g [] [] FillerNode [] [])\n"
              "1:1: 'function' has no 'end'\n");
    EXPECT_EQ(errors("while x\nfunction g\nend\n"), "1:1: 'while' has no 'end'\n");
    EXPECT_EQ(errors("class A\nproperties\na\n"), "1:1: 'class' has no 'end'\n"
                                                  "2:1: 'properties' has no 'end'\n");
    EXPECT_EQ(errors("class A\nproperties\na\nmethods\nfunction f\nend\nend\nend\n"),
              "2:1: 'properties' has no 'end'\n");
}

TEST(FileParserRecovery, KeywordOfTheEnclosingBlockRevealsAMissingEnd) {
    EXPECT_EQ(nodes("if a\nfor k = 1\nx = 1;\nelse\ny = 1;\nend\nz = 1;"),
              "(IfStatement a [(ForStatement k 1 [(AssignmentStatement x 1)])] [] (ElseClause "
              "[(AssignmentStatement y 1)]))\n(AssignmentStatement z 1)\n"
              "2:1: 'for' has no 'end'\n");
    EXPECT_EQ(errors("switch a\ncase 1\nif x\ncase 2\nend\n"), "3:1: 'if' has no 'end'\n");
    EXPECT_EQ(errors("try\nif x\ncatch e\nend\n"), "2:1: 'if' has no 'end'\n");
}

TEST(FileParserRecovery, KeywordOutsideItsBlockIsOneError) {
    EXPECT_EQ(nodes("else\nx = 1;"), "DiscardedStatement\n(AssignmentStatement x 1)\n"
                                     "1:1: 'else' is outside its block\n");
    EXPECT_EQ(errors("if a\nelse\nx = 1;\nelse\nend\n"), "4:1: 'else' is outside its block\n");
    EXPECT_EQ(errors("case 3\n"), "1:1: 'case' is outside its block\n");
}

TEST(FileParserRecovery, BlockSurvivesAnErrorInItsHead) {
    EXPECT_EQ(nodes("if (a\nx = 1;\nend\ny = 1;"),
              "(IfStatement DiscardedExpression [(AssignmentStatement x 1)] [] -)\n"
              "(AssignmentStatement y 1)\n1:4: '(' is not closed\n");
    EXPECT_EQ(nodes("for = 1:3\nx = 1;\nend"),
              "(ForStatement DiscardedExpression DiscardedExpression [(AssignmentStatement x "
              "1)])\n1:5: expected a loop variable, found '='\n");
    EXPECT_EQ(nodes("if\nend"), "(IfStatement DiscardedExpression [] [] -)\n"
                                "1:3: expected an expression, found the end of the line\n");
    EXPECT_EQ(errors("spmd (2\nend\n"), "1:6: '(' is not closed\n");
    EXPECT_EQ(errors("function [a = f\nx = 1;\nend\n"), "1:13: '[' is not closed before '='\n");
}

TEST(FileParserRecovery, ParforWithoutAVariableIsNotAConstruct) {
    const ParsedFile file = testing::parse("parfor 3\nspmd\nend\nend\n");
    ASSERT_EQ(file.constructs.size(), 1U);
    EXPECT_EQ(file.constructs[0].node.getKind(), zt::orvex::NodeKind::SpmdStatement);
}

TEST(FileParserRecovery, KeywordMeantAsANameIsOneError) {
    EXPECT_EQ(errors("while x\ny = end + 1;\nend\n"),
              "2:5: expected an expression, found the keyword 'end'\n");
    EXPECT_EQ(errors("y = case + 1;\n"), "1:5: expected an expression, found the keyword 'case'\n");
}

TEST(FileParserRecovery, StatementBeforeTheFirstCaseIsOneError) {
    EXPECT_EQ(nodes("switch a\nx = 1;\ny = 1;\ncase 1\nend"),
              "(SwitchStatement a [(CaseClause 1 [])] -)\n"
              "2:1: this statement belongs to no 'case'\n");
}

TEST(FileParserRecovery, ErrorInALineOfAClassCostsThatLine) {
    EXPECT_EQ(nodes("class A\nfoo = 1\npropertys\na\nend\nproperties\n1\nb\nend\nend\n"),
              "(ClassDefinition [] A [] [(PropertiesBlock [(PropertyDefinition b - -)] [])])\n"
              "2:1: expected 'properties', 'methods', 'events' or 'enumeration'\n"
              "3:1: expected 'properties', 'methods', 'events' or 'enumeration'\n"
              "7:1: expected a property, found '1'\n");
}

TEST(FileParserRecovery, BlocksNestUpToALimit) {
    const auto nested = [](std::size_t depth) {
        std::string text;
        for (std::size_t i = 0; i < depth; ++i)
            text += "if a\n";
        for (std::size_t i = 0; i < depth; ++i)
            text += "end\n";
        return text + "x = 1;\n";
    };
    EXPECT_EQ(errors(nested(MAX_BLOCK_NESTING)), "");
    EXPECT_EQ(errors(nested(MAX_BLOCK_NESTING + 5)),
              "401:1: blocks are nested deeper than 400 levels\n");
    std::string open;
    for (std::size_t i = 0; i < 1000; ++i)
        open += "if a\n";
    EXPECT_EQ(errors(open), "401:1: blocks are nested deeper than 400 levels\n");
}

TEST(FileParserRecovery, DiagnosticsAreInSourceOrder) {
    EXPECT_EQ(errors("if a\nx = );\n"), "1:1: 'if' has no 'end'\n"
                                        "2:5: expected an expression, found ')'\n");
}

} // namespace
} // namespace ostrel
