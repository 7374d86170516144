#include "Programs.h"

#include "syntax/Lexer.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

using testing::errors;
using testing::expression;
using testing::nodes;

std::string tokens(std::u16string_view text) {
    const SourceText source{std::u16string(text)};
    Lexer lexer(source);
    std::string result;
    for (Token token = lexer.next(); token.kind != TokenKind::EndOfFile; token = lexer.next()) {
        if (!result.empty()) result += ' ';
        const bool isLineEnd = token.kind == TokenKind::LineEnd;
        result += isLineEnd ? "|" : toUtf8(text.substr(token.begin, token.end - token.begin));
    }
    return result;
}

TEST(Lexer, PointBeforeAnOperatorBelongsToTheOperator) {
    EXPECT_EQ(tokens(u"1.*x"), "1 .* x");
    EXPECT_EQ(tokens(u"1./x"), "1 ./ x");
    EXPECT_EQ(tokens(u"1.\\x"), "1 .\\ x");
    EXPECT_EQ(tokens(u"1.^x"), "1 .^ x");
    EXPECT_EQ(tokens(u"1.'"), "1 .'");
    EXPECT_EQ(tokens(u"1.+x"), "1. + x");
    EXPECT_EQ(tokens(u"1..*x"), "1. .* x");
}

TEST(Lexer, NumberIsItsWholeLiteral) {
    EXPECT_EQ(tokens(u"1 1. .5 1.5e3 1e-3 2D+4 0xFFu8 0b101s16 3i 4.5j"),
              "1 1. .5 1.5e3 1e-3 2D+4 0xFFu8 0b101s16 3i 4.5j");
    EXPECT_EQ(tokens(u"1e+x"), "1e + x");
    EXPECT_EQ(tokens(u"3abc 1.2.3"), "3abc 1.2.3");
}

TEST(Lexer, ThreePointsAfterANumberContinueTheLine) {
    EXPECT_EQ(tokens(u"1...\n+2"), "1 + 2");
    EXPECT_EQ(tokens(u"1....\n+2"), "1. + 2");
}

TEST(Lexer, ContinuationJoinsLines) {
    EXPECT_EQ(tokens(u"a ... the rest\n b"), "a b");
    EXPECT_EQ(tokens(u"a ...\r\n b ...\r c"), "a b c");
    EXPECT_EQ(tokens(u"a ..."), "a");
}

TEST(Lexer, QuoteAfterAnOperandIsTheTranspose) {
    EXPECT_EQ(tokens(u"a' 1' )' ]' }' \"s\"' a'' a.''"),
              "a ' 1 ' ) ' ] ' } ' \"s\" ' a ' ' a .' '");
    EXPECT_EQ(tokens(u"a 'b'"), "a 'b'");
    EXPECT_EQ(tokens(u"x(end')"), "x ( end ' )");
    EXPECT_EQ(tokens(u"='it''s'"), "= 'it''s'");
    EXPECT_EQ(tokens(u"\"a\"\"b\""), "\"a\"\"b\"");
}

TEST(Lexer, CommentsEndWithTheirLine) {
    EXPECT_EQ(tokens(u"a % b\nc"), "a | c");
    EXPECT_EQ(tokens(u"'%' % b"), "'%'");
}

TEST(Lexer, BlockCommentsNest) {
    EXPECT_EQ(tokens(u"a\n %{ \n b\n%{\nc\n%}\n d\n\t%}\ne"), "a | | e");
    EXPECT_EQ(tokens(u"a %{\nb\n%}"), "a | b |");
    EXPECT_EQ(tokens(u"%{ x\nb"), "| b");
}

TEST(Lexer, UnclosedBlockCommentIsOneErrorAtItsStart) {
    EXPECT_EQ(errors("x = 1;\nif x\n %{\n end"), "3:2: the block comment is not closed\n");
}

TEST(Lexer, PragmasKeepTheirOffset) {
    const ParsedFile file =
        testing::parse("%# one\nx = [1 %#two\n 2]; %# three\n%{\n%# none\n%}\ny '%# none'\n"
                       "z = '%# none'; ... %# none\n");
    ASSERT_EQ(file.pragmas.size(), 3U);
    EXPECT_EQ(file.pragmas[0].offset, 0U);
    EXPECT_EQ(file.pragmas[0].text, u"%# one");
    EXPECT_EQ(file.pragmas[1].text, u"%#two");
    EXPECT_EQ(file.source.position(file.pragmas[1].offset).line, 2U);
    EXPECT_EQ(file.source.position(file.pragmas[1].offset).column, 8U);
    EXPECT_EQ(file.pragmas[2].text, u"%# three");
}

TEST(Lexer, SecondPassKeepsEachPragmaOnce) {
    const ParsedFile file = testing::parse("%# a\nx\n%# b\nx = 1;\n%# c\n");
    EXPECT_EQ(file.pragmas.size(), 3U);
}

TEST(Lexer, NumberThatTheLibraryRejectsIsAnError) {
    EXPECT_EQ(nodes("x = 1 + 0b12;"),
              "(AssignmentStatement x (BinaryOperation + 1 DiscardedExpression))\n"
              "1:12: malformed number: '2' is not a binary digit\n");
    EXPECT_EQ(errors("x = 0x1FFu8;"), "1:5: the number has more digits than its type can hold\n");
    EXPECT_EQ(errors("x = 3i + 4.5e2j + 0xFFFFFFFFFFFFFFFF + 0b1s8;"), "");
}

TEST(Lexer, ClassKeywordsAreNamesElsewhere) {
    EXPECT_EQ(nodes("methods = events(properties, enumeration, arguments);"),
              "(AssignmentStatement methods (ParenOperation events [properties enumeration "
              "arguments]))\n");
}

TEST(Lexer, UnknownCharactersAreErrors) {
    EXPECT_EQ(errors("x = $;"), "1:5: expected an expression, found '$'\n");
    EXPECT_EQ(errors("x = \xF0\x9F\x99\x82;"),
              "1:5: expected an expression, found '\xF0\x9F\x99\x82'\n");
}

TEST(Lexer, MessagesNameNoCharacterThatATerminalObeys) {
    EXPECT_EQ(errors("x = \x1B;"), "1:5: expected an expression, found '\xEF\xBF\xBD'\n");
    EXPECT_EQ(errors("x = 1 'a\x1B[2J\xE2\x80\xAE';"),
              "1:7: expected the end of the statement, found ''a\xEF\xBF\xBD[2J\xEF\xBF\xBD''\n");
}

} // namespace
} // namespace ostrel
