// Errors that tell what was probably meant.
#include "Programs.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel {
namespace {

/// The errors, each as a line "line:column-line:column: message (help)".
std::string explained(std::string_view source) {
    const ParsedFile file = testing::parse(source);
    std::string text;
    for (const Diagnostic& each : file.diagnostics) {
        const Place& place = each.place;
        text += std::to_string(place.line) + ":" + std::to_string(place.column) + "-" +
                std::to_string(place.endLine) + ":" + std::to_string(place.endColumn) + ": " +
                each.message + (each.help.empty() ? "" : " (" + each.help + ")") + "\n";
    }
    return text;
}

TEST(ParserHelp, ErrorCoversItsWholeToken) {
    EXPECT_EQ(explained("x = ) + 1;"), "1:5-1:6: expected an expression, found ')'\n");
    EXPECT_EQ(explained("y = 1 other 2;"),
              "1:7-1:12: expected the end of the statement, found 'other'\n");
    EXPECT_EQ(explained("y = case + 1;"),
              "1:5-1:9: expected an expression, found the keyword 'case'\n");
    EXPECT_EQ(explained("parfor k = 1:3\n"), "1:1-1:7: 'parfor' has no 'end'\n");
    EXPECT_EQ(explained("x = f(1, 2\n"), "1:6-1:7: '(' is not closed\n");
    EXPECT_EQ(explained("x = 'abc;\n"), "1:5-1:10: the quoted text is not closed\n");
    EXPECT_EQ(explained("say 'abc x\n"), "1:5-1:11: the quoted text is not closed\n");
    EXPECT_EQ(explained("a + b = 1;"), "1:1-1:6: this expression cannot be assigned to\n");
    EXPECT_EQ(explained("%{\nx\n"), "1:1-1:3: the block comment is not closed\n");
    EXPECT_EQ(explained("!"), "1:1-1:2: expected a command after '!'\n");
}

TEST(ParserHelp, ErrorAtTheEndOfALineHasNoLength) {
    EXPECT_EQ(explained("x = \r\ny = 1;"),
              "1:5-1:5: expected an expression, found the end of the line\n");
    EXPECT_EQ(explained("x = "), "1:5-1:5: expected an expression, found the end of the file\n");
}

TEST(ParserHelp, AssignmentInAConditionIsMeantAsAComparison) {
    const std::string message =
        ": '=' assigns and can't be part of a condition (did you mean '=='?)\n";
    EXPECT_EQ(explained("if x = 3\nend"), "1:6-1:7" + message);
    EXPECT_EQ(explained("if a, elseif x(1) = 3\nend"), "1:19-1:20" + message);
    EXPECT_EQ(explained("while (x = 3)\nend"), "1:10-1:11" + message);
    EXPECT_EQ(explained("if a && (b.c = 3)\nend"), "1:14-1:15" + message);
}

TEST(ParserHelp, OnlyAConditionComparesWhereAnAssignmentIsWritten) {
    EXPECT_EQ(explained("switch x = 3\nend"),
              "1:10-1:11: expected the end of the statement, found '='\n");
    EXPECT_EQ(explained("if = 3\nend"), "1:4-1:5: expected an expression, found '='\n");
    EXPECT_EQ(explained("if a\nx = y = 3;\nend"),
              "2:7-2:8: expected the end of the statement, found '='\n");
    EXPECT_EQ(explained("if f(x = 3)\nend"), "");
}

TEST(ParserHelp, ExclamationMarkWithEqualsIsMeantAsUnequal) {
    EXPECT_EQ(explained("if x != 3\nend"),
              "1:6-1:8: '!=' is not an operator (did you mean '~='?)\n");
    EXPECT_EQ(explained("x = 1; y = (x != 3);"),
              "1:15-1:17: '!=' is not an operator (did you mean '~='?)\n");
}

TEST(ParserHelp, CompoundAssignmentIsWrittenOut) {
    EXPECT_EQ(explained("w(i) += 1"),
              "1:6-1:8: '+=' is not an operator (did you mean 'w(i) = w(i) + 1'?)\n");
    EXPECT_EQ(explained("w.a(end, :).b -= f(x, y), z = 1;"),
              "1:15-1:17: '-=' is not an operator "
              "(did you mean 'w.a(end, :).b = w.a(end, :).b - f(x, y)'?)\n");
    EXPECT_EQ(explained("w=1;\nw*=a + b; % c"),
              "2:2-2:4: '*=' is not an operator (did you mean 'w = w * (a + b)'?)\n");
    EXPECT_EQ(explained("w=1; w /= [a + b, 1]' % c"),
              "1:8-1:10: '/=' is not an operator (did you mean 'w = w / [a + b, 1]''?)\n");
    EXPECT_EQ(explained("w=1; w .*= 2;"),
              "1:8-1:11: '.*=' is not an operator (did you mean 'w = w .* 2'?)\n");
    EXPECT_EQ(explained("w=1; w ^= 2;"),
              "1:8-1:10: '^=' is not an operator (did you mean 'w = w ^ 2'?)\n");
    EXPECT_EQ(explained("w=1; w |= a == b;"),
              "1:8-1:10: '|=' is not an operator (did you mean 'w = w | (a == b)'?)\n");
}

TEST(ParserHelp, StepIsWrittenOut) {
    EXPECT_EQ(explained("i++"), "1:2-1:4: '++' is not an operator (did you mean 'i = i + 1'?)\n");
    EXPECT_EQ(explained("i=1; i--; x = 1;"),
              "1:7-1:9: '--' is not an operator (did you mean 'i = i - 1'?)\n");
    EXPECT_EQ(explained("if a, w.n(k)++, end"),
              "1:13-1:15: '++' is not an operator (did you mean 'w.n(k) = w.n(k) + 1'?)\n");
    EXPECT_EQ(explained("i++ % next\r\n"),
              "1:2-1:4: '++' is not an operator (did you mean 'i = i + 1'?)\n");
}

TEST(ParserHelp, LongCompoundAssignmentIsShownAsAPattern) {
    const std::string message = "'+=' is not an operator (did you mean 'x = x + y'?)\n";
    EXPECT_EQ(explained("w=1; w += f(1, ...\n 2);"), "1:8-1:10: " + message);
    EXPECT_EQ(explained("w=1; w += [1\n 2];"), "1:8-1:10: " + message);
    EXPECT_EQ(explained("w=1; w += " + std::string(41, 'v')), "1:8-1:10: " + message);
    EXPECT_EQ(explained(std::string(41, 'v') + "(1) += 1"), "1:46-1:48: " + message);
}

TEST(ParserHelp, OtherMisplacedEqualsSignsAreNoCompoundAssignments) {
    EXPECT_EQ(explained("w=1; w + = 1;"), "1:10-1:11: expected an expression, found '='\n");
    EXPECT_EQ(explained("w=1; w === 1;"), "1:10-1:11: expected an expression, found '='\n");
    EXPECT_EQ(explained("w=1; a + w += 1;"), "1:13-1:14: expected an expression, found '='\n");
    EXPECT_EQ(explained("w=1; w + + ;"), "1:12-1:13: expected an expression, found ';'\n");
    EXPECT_EQ(explained("x(i++) = 1;"), "1:6-1:7: expected an expression, found ')'\n");
}

TEST(ParserHelp, MisspelledKeywordIsFoundWhereItsEndClosesNothing) {
    EXPECT_EQ(explained("parfro i = 1:3\n  x = i;\nend\n"),
              "1:1-1:7: 'parfro' begins no block, so the 'end' at 3:1 closes nothing "
              "(did you mean 'parfor'?)\n");
    EXPECT_EQ(explained("for j = 1:3\n  whlie x < 3\n    y = 1;\n  end\nend\n"),
              "2:3-2:8: 'whlie' begins no block, so the 'end' at 5:1 closes nothing "
              "(did you mean 'while'?)\n");
    EXPECT_EQ(explained("function f\nswtich (a)\ncase 1\nend\nend\n"),
              "2:1-2:7: 'swtich' begins no block, so the 'end' at 4:1 closes nothing "
              "(did you mean 'switch'?)\n3:1-3:5: 'case' is outside its block\n");
}

TEST(ParserHelp, EachBlockKeywordMayBeMisspelled) {
    const auto suggested = [](const std::string& head) {
        const std::string text = explained(head + "\nx = 1;\nend\n");
        const std::size_t begin = text.find("(did you mean '");
        if (begin == std::string::npos) return std::string("nothing");
        return text.substr(begin + 15, text.find("'?)") - begin - 15);
    };
    EXPECT_EQ(suggested("fro k = 1:3"), "for");
    EXPECT_EQ(suggested("For k = 1:3"), "for");
    EXPECT_EQ(suggested("fir (k = 1:3)"), "for");
    EXPECT_EQ(suggested("parfr k = 1:3"), "parfor");
    EXPECT_EQ(suggested("parffor (k = 1:3, 4)"), "parfor");
    EXPECT_EQ(suggested("prafro k = 1:3"), "parfor");
    EXPECT_EQ(suggested("fi a == 3"), "if");
    EXPECT_EQ(suggested("IF a == 3"), "if");
    EXPECT_EQ(suggested("wihle a"), "while");
    EXPECT_EQ(suggested("swich a"), "switch");
    EXPECT_EQ(suggested("spdm"), "spmd");
    EXPECT_EQ(suggested("smpd (2)"), "spmd");
    EXPECT_EQ(suggested("tyr"), "try");
    EXPECT_EQ(suggested("functoin r = f(a)"), "function");
    EXPECT_EQ(suggested("fuction [r] = f(a)"), "function");
}

TEST(ParserHelp, CommandUnlikeABlockIsNotMisspelled) {
    const std::string stray = "2:1-2:4: this 'end' closes nothing\n";
    EXPECT_EQ(explained("fro now on\nend\n"), stray);
    EXPECT_EQ(explained("fro k == 3\nend\n"), stray);
    EXPECT_EQ(explained("format long\nend\n"), stray);
    EXPECT_EQ(explained("whel a\nend\n"), stray);
    EXPECT_EQ(explained("tyr harder\nend\n"), stray);
    EXPECT_EQ(explained("i a\nend\n"), stray);
}

TEST(ParserHelp, MisspelledKeywordWithoutAConsequenceIsNoError) {
    EXPECT_EQ(explained("parfro i = 1:3\nwhlie x < 3\nspdm\n"), "");
}

TEST(ParserHelp, EachEndHasAMisspelledKeywordOfItsOwn) {
    EXPECT_EQ(explained("fro i = 1:3\nwhlie x\nend\nend\nend\n"),
              "1:1-1:4: 'fro' begins no block, so the 'end' at 4:1 closes nothing "
              "(did you mean 'for'?)\n"
              "2:1-2:6: 'whlie' begins no block, so the 'end' at 3:1 closes nothing "
              "(did you mean 'while'?)\n"
              "5:1-5:4: this 'end' closes nothing\n");
}

TEST(ParserHelp, MisspelledKeywordBelongsToItsScope) {
    EXPECT_EQ(explained("whlie x\nfunction f\nend\nend\nfunction g\nend\n"),
              "3:1-3:4: this 'end' closes nothing\n");
}

TEST(ParserHelp, StatementThatCannotBeParsedMayBeginWithAMisspelledKeyword) {
    EXPECT_EQ(explained("fro k = x'\nend\n"),
              "1:1-1:4: 'fro' begins no block, so the 'end' at 2:1 closes nothing "
              "(did you mean 'for'?)\n"
              "1:10-1:11: the quoted text is not closed (did you mean 'for'?)\n");
}

TEST(ParserHelp, MalformedNumberSaysWhichCharacterIsWrong) {
    const auto number = [](const std::string& text) { return explained("x = " + text + ";"); };
    const std::string begin = "malformed number: ";
    EXPECT_EQ(number("0x12G4"), "1:9-1:10: " + begin + "'G' is not a hexadecimal digit\n");
    EXPECT_EQ(number("0x1.5"), "1:8-1:9: " + begin + "'.' is not a hexadecimal digit\n");
    EXPECT_EQ(number("0x1Fi"), "1:9-1:10: " + begin + "'i' is not a hexadecimal digit\n");
    EXPECT_EQ(number("0b102"), "1:9-1:10: " + begin + "'2' is not a binary digit\n");
    EXPECT_EQ(number("0b1u7"), "1:8-1:10: " + begin + "'u7' is not a type such as 'u8' or 's64'\n");
    EXPECT_EQ(number("0xu8"), "1:7-1:8: " + begin + "'u' is not a hexadecimal digit\n");
    EXPECT_EQ(number("0x"), "1:5-1:7: " + begin + "no digit follows '0x'\n");
    EXPECT_EQ(number("3abc"), "1:6-1:7: " + begin + "'a' can't be part of it\n");
    EXPECT_EQ(number("2ij"), "1:7-1:8: " + begin + "'j' can't be part of it\n");
    EXPECT_EQ(number("1.2.3"), "1:8-1:9: " + begin + "it has a second point\n");
    EXPECT_EQ(number("1e5.5"), "1:8-1:9: " + begin + "an exponent has no point\n");
    EXPECT_EQ(number("1.5e"), "1:8-1:9: " + begin + "the exponent has no digits\n");
    EXPECT_EQ(number("0x1FFu8"), "1:5-1:12: the number has more digits than its type can hold\n");
}

TEST(ParserHelp, SignOfAnExponentWithoutDigitsIsPartOfTheMistake) {
    EXPECT_EQ(explained("x = 1e+;"), "1:6-1:8: malformed number: the exponent has no digits\n");
    EXPECT_EQ(explained("x = f(1D-)"), "1:8-1:10: malformed number: the exponent has no digits\n");
    EXPECT_EQ(testing::nodes("x = 1e+a;"), "(AssignmentStatement x (BinaryOperation + "
                                           "DiscardedExpression a))\n1:6: malformed number: the "
                                           "exponent has no digits\n");
}

} // namespace
} // namespace ostrel
