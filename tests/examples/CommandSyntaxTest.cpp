#include "Programs.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

using testing::errors;
using testing::nodes;
using testing::statement;

TEST(CommandSyntax, NameAndWordsAreACommand) {
    EXPECT_EQ(statement("turn on"), "(CommandStatement <ans> turn [on])");
    EXPECT_EQ(statement("\tload  'a b'.mat -x"), "(CommandStatement <ans> load ['a b'.mat -x])");
    EXPECT_EQ(statement("show \"a;b\" c"), "(CommandStatement <ans> show [\"a;b\" c])");
    EXPECT_EQ(statement("foo 'it''s; ok'"), "(CommandStatement <ans> foo ['it''s; ok'])");
}

TEST(CommandSyntax, WordsEndWithSeparatorCommentOrLine) {
    EXPECT_EQ(nodes("turn on; x = 1;"),
              "(CommandStatement <ans> turn [on])\n(AssignmentStatement x 1)\n");
    EXPECT_EQ(nodes("turn on, x = 1;"),
              "(CommandStatement <ans> turn [on])\n(AssignmentStatement x 1)\n");
    EXPECT_EQ(nodes("turn on%x\nx = 1;"),
              "(CommandStatement <ans> turn [on])\n(AssignmentStatement x 1)\n");
    EXPECT_EQ(statement("turn a ... rest\n b"), "(CommandStatement <ans> turn [a b])");
    EXPECT_EQ(nodes("turn f(1,2"), "(CommandStatement <ans> turn [f(1])\n"
                                   "(PrintStatement (ExpressionStatement <ans> 2))\n");
}

TEST(CommandSyntax, ExpressionIsNotACommand) {
    EXPECT_EQ(statement("foo (1);"), "(ExpressionStatement <ans> (ParenOperation foo [1]))");
    EXPECT_EQ(statement("foo = 1;"), "(AssignmentStatement foo 1)");
    EXPECT_EQ(statement("foo =1;"), "(AssignmentStatement foo 1)");
    for (const std::string op : {"+",  "-", "*",  "/", "\\", "^",  ".*", "./", ".\\", ".^",
                                 "<=", "<", ">=", ">", "==", "~=", "&&", "&",  "||",  "|"}) {
        EXPECT_EQ(statement("foo " + op + " a;"),
                  "(ExpressionStatement <ans> (BinaryOperation " + op + " foo a))");
        EXPECT_EQ(statement("foo " + op + "a;"), "(CommandStatement <ans> foo [" + op + "a])");
    }
    EXPECT_EQ(statement("foo : a;"), "(ExpressionStatement <ans> (ColonOperation foo - a))");
    EXPECT_EQ(statement("foo ...\n + a;"), "(ExpressionStatement <ans> (BinaryOperation + foo a))");
    EXPECT_EQ(statement("foo +...\n a;"), "(ExpressionStatement <ans> (BinaryOperation + foo a))");
}

TEST(CommandSyntax, ComparisonIsNotAnAssignment) {
    EXPECT_EQ(statement("foo ==a"), "(CommandStatement <ans> foo [==a])");
    EXPECT_EQ(statement("foo == a;"), "(ExpressionStatement <ans> (BinaryOperation == foo a))");
}

TEST(CommandSyntax, NameAloneIsNotACommand) {
    EXPECT_EQ(statement("foo  ;"), "(BareIdentifierStatement foo)");
    EXPECT_EQ(statement("foo % c"), "(BareIdentifierStatement foo)");
    EXPECT_EQ(statement("foo ..."), "(BareIdentifierStatement foo)");
}

TEST(CommandSyntax, VariableIsNotACommandWhereverItIsWritten) {
    EXPECT_EQ(nodes("x = 1;\nx -1;"), "(AssignmentStatement x 1)\n"
                                      "(ExpressionStatement <ans> (BinaryOperation - x 1))\n");
    EXPECT_EQ(nodes("x -1;\nx = 1;"), "(ExpressionStatement <ans> (BinaryOperation - x 1))\n"
                                      "(AssignmentStatement x 1)\n");
    EXPECT_EQ(nodes("x -[1\n 2];\nfor x = 1, end"),
              "(ExpressionStatement <ans> (BinaryOperation - x (Matrix [(Row [1]) (Row [2])])))\n"
              "(ForStatement x 1 [])\n");
    EXPECT_EQ(statement("ans -1;"), "(ExpressionStatement <ans> (BinaryOperation - ans 1))");
}

TEST(CommandSyntax, EachScopeDecidesForItself) {
    EXPECT_EQ(nodes("x -1\nfunction f(x)\nx -1\nend\nfunction g\nx -1\nend\n"),
              "(CommandStatement <ans> x [-1])\n"
              "(FunctionDefinition f [(InputParameter x)] [] FillerNode [] [(PrintStatement "
              "(ExpressionStatement <ans> (BinaryOperation - x 1)))])\n"
              "(FunctionDefinition g [] [] FillerNode [] [(CommandStatement <ans> x [-1])])\n");
}

TEST(CommandSyntax, VariableOfADiscardedStatementIsNotACommand) {
    // If it were a command, the first line would end at the comma, and `y` would be written.
    EXPECT_EQ(
        nodes("x {1, y = 2\nx = 1;"),
        "DiscardedStatement\n(AssignmentStatement x 1)\n1:9: expected an expression, found '='\n");
}

TEST(CommandSyntax, UnclosedQuoteIsAnErrorAtTheQuote) {
    EXPECT_EQ(
        nodes("show don't\nx = 1;"),
        "DiscardedStatement\n(AssignmentStatement x 1)\n1:9: the quoted text is not closed\n");
}

TEST(CommandSyntax, WordMayBeginWithABraceOrAPoint) {
    EXPECT_EQ(statement("foo {1} .a . b"), "(CommandStatement <ans> foo [{1} .a . b])");
}

} // namespace
} // namespace ostrel
