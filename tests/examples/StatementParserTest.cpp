#include "Programs.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

using testing::errors;
using testing::nodes;
using testing::statement;

TEST(StatementParser, AssignmentIsSilentOnlyWithASemicolon) {
    EXPECT_EQ(statement("x = 1;"), "(AssignmentStatement x 1)");
    for (const char* text : {"x = 1", "x = 1\n", "x = 1,", "x = 1 % c", "x = 1\r\n", "x = 1\r"}) {
        EXPECT_EQ(statement(text), "(PrintStatement (AssignmentStatement x 1))") << text;
    }
    EXPECT_EQ(statement("x ...\n = ...\n 1 ...\n ;"), "(AssignmentStatement x 1)");
}

TEST(StatementParser, AssignmentTargetMayHaveAnyForm) {
    EXPECT_EQ(statement("x(k).a = e;"),
              "(AssignmentStatement (DotOperation (ParenOperation x [k]) a) e)");
    EXPECT_EQ(statement("x{1}.(n) = e;"),
              "(AssignmentStatement (DynamicFieldOperation (BraceOperation x [1]) n) e)");
    EXPECT_EQ(errors("x + 1 = 2;"), "1:1: this expression cannot be assigned to\n");
    EXPECT_EQ(errors("1 = 2;"), "1:1: this expression cannot be assigned to\n");
}

TEST(StatementParser, TargetsOfAMultiAssignmentAreSeparatedByCommasOrBlanks) {
    EXPECT_EQ(statement("[a, b(1), ~] = e;"),
              "(MultiAssignmentStatement [a (ParenOperation b [1]) IgnoredArgument] e)");
    EXPECT_EQ(statement("[a b] = e;"), "(MultiAssignmentStatement [a b] e)");
    EXPECT_EQ(statement("[~ a.x] = e"),
              "(PrintStatement (MultiAssignmentStatement [IgnoredArgument (DotOperation a x)] e))");
    EXPECT_EQ(statement("[a b] == e;"), "(ExpressionStatement <ans> (BinaryOperation == (Matrix "
                                        "[(Row [a b])]) e))");
    EXPECT_EQ(errors("[1] = e;"), "1:2: this expression cannot be assigned to\n");
}

TEST(StatementParser, ExpressionWritesAnImplicitAns) {
    EXPECT_EQ(statement("1;"), "(ExpressionStatement <ans> 1)");
    EXPECT_EQ(statement("f(1)"), "(PrintStatement (ExpressionStatement <ans> (ParenOperation f "
                                 "[1])))");
    const ParsedFile file = testing::parse("\n f(1);");
    const zt::orvex::NodeView node = zt::orvex::ProgramView(file.root).getProgramNodes()[0];
    const zt::orvex::NodeView target =
        zt::orvex::ExpressionStatementView(node).getExpressionStatementTarget();
    EXPECT_TRUE(file.tree->isImplicit(target));
    EXPECT_EQ(file.tree->beginOffset(target), file.tree->beginOffset(node));
    EXPECT_EQ(zt::orvex::IdentifierView(target).getIdentifierSymbol(), file.scopes[0].ans);
}

TEST(StatementParser, NameAloneIsAnExpressionOnlyIfItIsAVariable) {
    EXPECT_EQ(nodes("x\nx = 1;"), "(PrintStatement (ExpressionStatement <ans> x))\n"
                                  "(AssignmentStatement x 1)\n");
    EXPECT_EQ(statement("x"), "(BareIdentifierStatement x)");
    EXPECT_EQ(statement("x;"), "(BareIdentifierStatement x)");
    EXPECT_EQ(statement("ans"), "(PrintStatement (ExpressionStatement <ans> ans))");
    EXPECT_EQ(statement("(x)"), "(PrintStatement (ExpressionStatement <ans> "
                                "(ParenthesizedExpression x)))");
}

TEST(StatementParser, LoneSeparatorIsAnEmptyStatement) {
    EXPECT_EQ(nodes(";\n,\n\n  \nx = 1;;"),
              "EmptyStatement\nEmptyStatement\n(AssignmentStatement x 1)\nEmptyStatement\n");
}

TEST(StatementParser, ExclamationMarkBeginsAnImplicitCommand) {
    EXPECT_EQ(statement("!copy -a 'a b'"), "(ImplicitCommandStatement <ans> [copy -a 'a b'])");
    EXPECT_EQ(nodes("! a b; !c % d"), "(ImplicitCommandStatement <ans> [a b])\n"
                                      "(ImplicitCommandStatement <ans> [c])\n");
    EXPECT_EQ(errors("!"), "1:1: expected a command after '!'\n");
}

TEST(StatementParser, IfHasConditionBodyAndClauses) {
    EXPECT_EQ(statement("if a\n b;\nelseif c, d; elseif e; f;\nelse g; end"),
              "(IfStatement a [(BareIdentifierStatement b)] [(ElseIfClause c "
              "[(BareIdentifierStatement d)]) (ElseIfClause e [(BareIdentifierStatement f)])] "
              "(ElseClause [(BareIdentifierStatement g)]))");
    EXPECT_EQ(statement("if a, end"), "(IfStatement a [] [] -)");
}

TEST(StatementParser, HeadOfForMayBeInParentheses) {
    EXPECT_EQ(statement("for k = 1:3\n x; end"),
              "(ForStatement k (ColonOperation 1 - 3) [(BareIdentifierStatement x)])");
    EXPECT_EQ(statement("for (k = 1:3) x; end"),
              "(ForStatement k (ColonOperation 1 - 3) [(BareIdentifierStatement x)])");
    EXPECT_EQ(statement("for (k = 1:3), end;"), "(ForStatement k (ColonOperation 1 - 3) [])");
}

TEST(StatementParser, WhileHasConditionAndBody) {
    EXPECT_EQ(statement("while a < 1, break, continue; return\nend"),
              "(WhileStatement (BinaryOperation < a 1) [BreakStatement ContinueStatement "
              "ReturnStatement])");
}

TEST(StatementParser, SwitchHasSubjectCasesAndOtherwise) {
    EXPECT_EQ(statement("switch a % s\n\n case {1, 2}\n b;\n case 3, c; otherwise d; end"),
              "(SwitchStatement a [(CaseClause (CellArray [(Row [1 2])]) "
              "[(BareIdentifierStatement b)]) (CaseClause 3 [(BareIdentifierStatement c)])] "
              "(OtherwiseClause [(BareIdentifierStatement d)]))");
    EXPECT_EQ(statement("switch a, end"), "(SwitchStatement a [] -)");
}

TEST(StatementParser, TryHasBodyAndCatch) {
    EXPECT_EQ(statement("try a; catch err\n b; end"),
              "(TryStatement [(BareIdentifierStatement a)] (CatchClause err "
              "[(BareIdentifierStatement b)]))");
    EXPECT_EQ(statement("try\n a;\ncatch\n b;\nend"),
              "(TryStatement [(BareIdentifierStatement a)] (CatchClause - "
              "[(BareIdentifierStatement b)]))");
    EXPECT_EQ(statement("try, a; catch, b; end"),
              "(TryStatement [(BareIdentifierStatement a)] (CatchClause - "
              "[(BareIdentifierStatement b)]))");
    EXPECT_EQ(statement("try a; end"), "(TryStatement [(BareIdentifierStatement a)] -)");
}

TEST(StatementParser, ParforHasRangeOptionsAndBody) {
    EXPECT_EQ(statement("parfor k = 1:3\n x(k) = k; end"),
              "(ParforStatement k (ColonOperation 1 - 3) [] [(AssignmentStatement (ParenOperation "
              "x [k]) k)])");
    EXPECT_EQ(statement("parfor (k = e, 4, p) x; end"),
              "(ParforStatement k e [4 p] [(BareIdentifierStatement x)])");
    EXPECT_EQ(statement("parfor (k = e) x; end"),
              "(ParforStatement k e [] [(BareIdentifierStatement x)])");
}

TEST(StatementParser, SpmdHasOptionsAndBody) {
    EXPECT_EQ(statement("spmd\n x; end"), "(SpmdStatement [] [(BareIdentifierStatement x)])");
    EXPECT_EQ(statement("spmd (2, n) x; end"),
              "(SpmdStatement [2 n] [(BareIdentifierStatement x)])");
    EXPECT_EQ(statement("spmd x; end"), "(SpmdStatement [] [(BareIdentifierStatement x)])");
}

TEST(StatementParser, DeclarationsListNames) {
    EXPECT_EQ(statement("global a b"), "(GlobalDeclaration [a b])");
    EXPECT_EQ(statement("persistent c;"), "(PersistentDeclaration [c])");
    EXPECT_EQ(errors("global"), "1:7: expected a name, found the end of the file\n");
}

TEST(StatementParser, ErrorDiscardsOneStatement) {
    EXPECT_EQ(nodes("x = 1;\nx = = 2;\ny = 3;"),
              "(AssignmentStatement x 1)\nDiscardedStatement\n(AssignmentStatement y 3)\n"
              "2:5: expected an expression, found '='\n");
    EXPECT_EQ(nodes("x = ), y = 3;"), "DiscardedStatement\n(AssignmentStatement y 3)\n"
                                      "1:5: expected an expression, found ')'\n");
}

TEST(StatementParser, HeadEndsAtLineEndCommaOrSemicolon) {
    EXPECT_EQ(errors("if (a) b = 1; end"), "1:8: expected the end of the statement, found 'b'\n");
    EXPECT_EQ(errors("x = 1 end"), "1:7: expected the end of the statement, found 'end'\n"
                                   "1:7: this 'end' closes nothing\n");
}

} // namespace
} // namespace ostrel
