#include "Programs.h"

#include "syntax/Limits.h"
#include "tree/LiteralText.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

using testing::errors;
using testing::expression;

std::string binary(const std::string& op, const std::string& a, const std::string& b) {
    return "(BinaryOperation " + op + " " + a + " " + b + ")";
}

TEST(ExpressionParser, EachLevelBindsTighterThanThePreviousOne) {
    const std::vector<std::vector<std::string>> levels{
        {"||"}, {"&&"}, {"|"}, {"&"}, {"<", "<=", ">", ">=", "==", "~="}};
    for (std::size_t i = 0; i < levels.size(); ++i) {
        for (const std::string& loose : levels[i]) {
            for (const std::string& same : levels[i]) {
                EXPECT_EQ(expression("a " + loose + " b " + same + " c"),
                          binary(same, binary(loose, "a", "b"), "c"));
            }
            if (i + 1 == levels.size()) continue;
            for (const std::string& tight : levels[i + 1]) {
                EXPECT_EQ(expression("a " + loose + " b " + tight + " c"),
                          binary(loose, "a", binary(tight, "b", "c")));
                EXPECT_EQ(expression("a " + tight + " b " + loose + " c"),
                          binary(loose, binary(tight, "a", "b"), "c"));
            }
        }
    }
}

TEST(ExpressionParser, ColonBindsBetweenComparisonAndSum) {
    EXPECT_EQ(expression("a < b:c"), "(BinaryOperation < a (ColonOperation b - c))");
    EXPECT_EQ(expression("a:b == c"), "(BinaryOperation == (ColonOperation a - b) c)");
    EXPECT_EQ(expression("a:b + c"), "(ColonOperation a - (BinaryOperation + b c))");
    EXPECT_EQ(expression("a + b:c"), "(ColonOperation (BinaryOperation + a b) - c)");
}

TEST(ExpressionParser, ColonTakesThreePartsAtATime) {
    EXPECT_EQ(expression("a:b:c"), "(ColonOperation a b c)");
    EXPECT_EQ(expression("a:b:c:d"), "(ColonOperation (ColonOperation a b c) - d)");
    EXPECT_EQ(expression("a:b:c:d:e"), "(ColonOperation (ColonOperation a b c) d e)");
}

TEST(ExpressionParser, ProductsBindTighterThanSums) {
    for (const std::string sum : {"+", "-"}) {
        for (const std::string product : {"*", "/", "\\", ".*", "./", ".\\"}) {
            EXPECT_EQ(expression("a " + sum + " b " + product + " c"),
                      binary(sum, "a", binary(product, "b", "c")));
            EXPECT_EQ(expression("a " + product + " b " + sum + " c"),
                      binary(sum, binary(product, "a", "b"), "c"));
            EXPECT_EQ(expression("a " + product + " b " + product + " c"),
                      binary(product, binary(product, "a", "b"), "c"));
        }
    }
}

TEST(ExpressionParser, PrefixBindsTighterThanProductsAndLooserThanPowers) {
    EXPECT_EQ(expression("-a * b"), "(BinaryOperation * (UnaryOperation - a) b)");
    EXPECT_EQ(expression("a * -b"), "(BinaryOperation * a (UnaryOperation - b))");
    EXPECT_EQ(expression("-a ^ b"), "(UnaryOperation - (BinaryOperation ^ a b))");
    EXPECT_EQ(expression("~a == b"), "(BinaryOperation == (UnaryOperation ~ a) b)");
    EXPECT_EQ(expression("+-~a"), "(UnaryOperation + (UnaryOperation - (UnaryOperation ~ a)))");
}

TEST(ExpressionParser, PowersGroupToTheLeftAndTakeAPrefixedOperand) {
    EXPECT_EQ(expression("a^b.^c"), "(BinaryOperation .^ (BinaryOperation ^ a b) c)");
    EXPECT_EQ(expression("a^-b^c"),
              "(BinaryOperation ^ (BinaryOperation ^ a (UnaryOperation - b)) c)");
    EXPECT_EQ(expression("a^-~b(1)"), "(BinaryOperation ^ a (UnaryOperation - (UnaryOperation ~ "
                                      "(ParenOperation b [1]))))");
    EXPECT_EQ(expression("a^b'"), "(UnaryOperation ' (BinaryOperation ^ a b))");
    EXPECT_EQ(expression("a'.'"), "(UnaryOperation .' (UnaryOperation ' a))");
    EXPECT_EQ(expression("-a'"), "(UnaryOperation - (UnaryOperation ' a))");
}

TEST(ExpressionParser, PostfixOperatorsCanBeChained) {
    EXPECT_EQ(expression("a(1){2}.b.(c)"),
              "(DynamicFieldOperation (DotOperation (BraceOperation (ParenOperation a [1]) [2]) b) "
              "c)");
    EXPECT_EQ(expression("a (1)"), "(ParenOperation a [1])");
    EXPECT_EQ(expression("f()"), "(ParenOperation f [])");
    EXPECT_EQ(expression("a@b(1)"), "(BinaryOperation @ a (ParenOperation b [1]))");
    EXPECT_EQ(expression("(a)(1)"), "(ParenOperation (ParenthesizedExpression a) [1])");
}

TEST(ExpressionParser, SubscriptsMayContainColonAndEnd) {
    EXPECT_EQ(expression("a(:, end - 1)"), "(ParenOperation a [Colon (BinaryOperation - End 1)])");
    EXPECT_EQ(expression("a{:}"), "(BraceOperation a [Colon])");
    EXPECT_EQ(expression("a((end)')"),
              "(ParenOperation a [(UnaryOperation ' (ParenthesizedExpression End))])");
    EXPECT_EQ(expression("a([1 end])"), "(ParenOperation a [(Matrix [(Row [1 End])])])");
    EXPECT_EQ(errors("x = (:);"), "1:6: expected an expression, found ':'\n");
}

TEST(ExpressionParser, CallsMayHaveNamedArguments) {
    EXPECT_EQ(expression("f(1, name = a == b)"),
              "(ParenOperation f [1 (NamedArgument name (BinaryOperation == a b))])");
}

TEST(ExpressionParser, PrimaryMayHaveAnyForm) {
    EXPECT_EQ(expression("'it''s'"), "'it''s'");
    EXPECT_EQ(expression("\"s\""), "\"s\"");
    EXPECT_EQ(expression("(a)"), "(ParenthesizedExpression a)");
    EXPECT_EQ(expression("@f"), "(UnaryOperation @ f)");
    EXPECT_EQ(expression("?c"), "(UnaryOperation ? c)");
    EXPECT_EQ(expression("@(a, ~) a + b"), "(AnonymousFunction [(InputParameter a) "
                                           "(InputParameter IgnoredArgument)] (BinaryOperation + a "
                                           "b))");
    EXPECT_EQ(expression("@() 1"), "(AnonymousFunction [] 1)");
}

TEST(ExpressionParser, LiteralTextLosesItsQuotes) {
    const ParsedFile file = testing::parse("x = {'it''s', \"a\"\"b\", 'f(''x'')'};\n");
    std::vector<std::u16string> texts;
    const auto& storage = file.tree->parts();
    for (NodeId id = 1; id < storage.nodes.size(); ++id) {
        const auto kind = storage.nodes[id].kind;
        if (kind == zt::orvex::NodeKind::CharacterLiteral ||
            kind == zt::orvex::NodeKind::StringLiteral) {
            texts.push_back(literalText(*file.tree, file.tree->view(id)));
        }
    }
    EXPECT_EQ(texts, (std::vector<std::u16string>{u"it's", u"a\"b", u"f('x')"}));
}

TEST(ExpressionParserMatrix, SignAfterABlankAndBeforeNoneBeginsAnElement) {
    EXPECT_EQ(expression("[a -b]"), "(Matrix [(Row [a (UnaryOperation - b)])])");
    EXPECT_EQ(expression("[a - b]"), "(Matrix [(Row [(BinaryOperation - a b)])])");
    EXPECT_EQ(expression("[a-b]"), "(Matrix [(Row [(BinaryOperation - a b)])])");
    EXPECT_EQ(expression("[a- b]"), "(Matrix [(Row [(BinaryOperation - a b)])])");
    EXPECT_EQ(expression("[a + -b]"),
              "(Matrix [(Row [(BinaryOperation + a (UnaryOperation - b))])])");
    EXPECT_EQ(expression("[a' +b]"),
              "(Matrix [(Row [(UnaryOperation ' a) (UnaryOperation + b)])])");
    EXPECT_EQ(expression("[a -...\n b]"), "(Matrix [(Row [(BinaryOperation - a b)])])");
}

TEST(ExpressionParserMatrix, BracketOrQuoteAfterABlankBeginsAnElement) {
    EXPECT_EQ(expression("[a (b)]"), "(Matrix [(Row [a (ParenthesizedExpression b)])])");
    EXPECT_EQ(expression("[a(b)]"), "(Matrix [(Row [(ParenOperation a [b])])])");
    EXPECT_EQ(expression("[a * (b)]"),
              "(Matrix [(Row [(BinaryOperation * a (ParenthesizedExpression b))])])");
    EXPECT_EQ(expression("{a {b}}"), "(CellArray [(Row [a (CellArray [(Row [b])])])])");
    EXPECT_EQ(expression("{a{b}}"), "(CellArray [(Row [(BraceOperation a [b])])])");
    EXPECT_EQ(expression("[a 'b']"), "(Matrix [(Row [a 'b'])])");
    EXPECT_EQ(expression("[a' b']"),
              "(Matrix [(Row [(UnaryOperation ' a) (UnaryOperation ' b)])])");
    EXPECT_EQ(expression("{f @(x) x}"),
              "(CellArray [(Row [f (AnonymousFunction [(InputParameter x)] x)])])");
}

TEST(ExpressionParserMatrix, OtherOperatorsNeverBeginAnElement) {
    EXPECT_EQ(expression("[a *b]"), "(Matrix [(Row [(BinaryOperation * a b)])])");
    EXPECT_EQ(expression("[a ==b]"), "(Matrix [(Row [(BinaryOperation == a b)])])");
    EXPECT_EQ(expression("[a ~b]"), "(Matrix [(Row [a (UnaryOperation ~ b)])])");
}

TEST(ExpressionParserMatrix, BlanksDoNotSeparateInsideParentheses) {
    EXPECT_EQ(expression("[(a -b)]"),
              "(Matrix [(Row [(ParenthesizedExpression (BinaryOperation - a b))])])");
    EXPECT_EQ(expression("[f(a -b) c]"),
              "(Matrix [(Row [(ParenOperation f [(BinaryOperation - a b)]) c])])");
    EXPECT_EQ(expression("[f([a -b])]"), "(Matrix [(Row [(ParenOperation f [(Matrix [(Row [a "
                                         "(UnaryOperation - b)])])])])])");
}

TEST(ExpressionParserMatrix, RowEndsAtSemicolonOrLineEnd) {
    EXPECT_EQ(expression("[1 2; 3, 4\n5,6\n\n]"), "(Matrix [(Row [1 2]) (Row [3 4]) (Row [5 6])])");
    EXPECT_EQ(expression("[1, 2, ... more\n 3 % comment\n 4]"),
              "(Matrix [(Row [1 2 3]) (Row [4])])");
    EXPECT_EQ(expression("[]"), "(Matrix [])");
    EXPECT_EQ(expression("{}"), "(CellArray [])");
    EXPECT_EQ(expression("[1,2,]"), "(Matrix [(Row [1 2])])");
}

TEST(ExpressionParser, ChainUpToTheLimitIsParsed) {
    std::string chain = "a";
    for (std::size_t i = 1; i < MAX_EXPRESSION_HEIGHT; ++i)
        chain += "+a";
    EXPECT_EQ(errors("y = " + chain + ";"), "");
    EXPECT_EQ(errors("y = " + chain + "+a;\nz = 1;"),
              "1:5: the expression is nested deeper than 2000 levels\n");
}

TEST(ExpressionParser, BracketsUpToTheLimitAreParsed) {
    const auto nested = [](std::size_t depth) {
        return "y = " + std::string(depth, '(') + "a" + std::string(depth, ')') + ";\nz = 1;\n";
    };
    EXPECT_EQ(errors(nested(MAX_EXPRESSION_HEIGHT - 1)), "");
    EXPECT_EQ(errors(nested(MAX_EXPRESSION_HEIGHT)),
              "1:2005: the expression is nested deeper than 2000 levels\n");
}

} // namespace
} // namespace ostrel
