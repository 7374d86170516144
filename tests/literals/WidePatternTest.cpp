#include "literals/WidePattern.h"

#include "testing/Random.h"
#include "testing/Widen.h"

#include <gtest/gtest.h>

#include <regex>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zt::orvex::internal {
namespace {

using testing::Random;

bool matches(std::string_view pattern, std::u16string_view text) {
    return WidePattern(pattern).matches(text);
}

std::string messageFor(std::string_view pattern) {
    try {
        WidePattern compiled(pattern);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "compiled";
}

TEST(WidePattern, CharactersStandForThemselves) {
    EXPECT_TRUE(matches("abc", u"abc"));
    EXPECT_FALSE(matches("abc", u"abd"));
    EXPECT_FALSE(matches("abc", u"ABC"));
}

TEST(WidePattern, WholeTextMustMatch) {
    EXPECT_FALSE(matches("abc", u"abcd"));
    EXPECT_FALSE(matches("abc", u" abc"));
    EXPECT_FALSE(matches("abc", u"ab"));
    EXPECT_FALSE(matches("abc", u""));
}

TEST(WidePattern, EmptyPatternMatchesTheEmptyTextAlone) {
    EXPECT_TRUE(matches("", u""));
    EXPECT_TRUE(matches("", std::u16string_view()));
    EXPECT_FALSE(matches("", u"a"));
}

TEST(WidePattern, EscapeMakesPunctuationAnOrdinaryCharacter) {
    EXPECT_TRUE(matches("\\.\\*\\\\\\(", u".*\\("));
    EXPECT_FALSE(matches("\\.", u"a"));
}

TEST(WidePattern, ClassHoldsCharactersAndRanges) {
    for (char16_t unit = 0; unit < 0x180; ++unit) {
        const bool isIn = (unit >= u'b' && unit <= u'd') || unit == u'x' || unit == u'-';
        EXPECT_EQ(matches("[b-dx-]", std::u16string(1, unit)), isIn) << unsigned{unit};
    }
    EXPECT_TRUE(matches("[.?*+(|]", u"|"));
    EXPECT_TRUE(matches("[\\]]", u"]"));
    EXPECT_TRUE(matches("[-a]", u"-"));
}

TEST(WidePattern, QuantifiersBindToTheLastCharacterClassOrGroup) {
    EXPECT_TRUE(matches("ab?", u"a"));
    EXPECT_TRUE(matches("ab?", u"ab"));
    EXPECT_FALSE(matches("ab?", u"abb"));
    EXPECT_TRUE(matches("ab*", u"a"));
    EXPECT_TRUE(matches("ab*", u"abbb"));
    EXPECT_FALSE(matches("ab+", u"a"));
    EXPECT_TRUE(matches("ab+", u"abb"));
    EXPECT_TRUE(matches("(ab)+", u"abab"));
    EXPECT_FALSE(matches("(ab)+", u"aba"));
    EXPECT_TRUE(matches("[ab]*", u"abba"));
    EXPECT_TRUE(matches("(a*)*", u"aaa"));
    EXPECT_TRUE(matches("(a*)+", u""));
}

TEST(WidePattern, AlternativesMayBeEmpty) {
    for (const std::string_view pattern : {"|ab", "ab|", "()|ab", "(|ab)", "(ab|)"}) {
        EXPECT_TRUE(matches(pattern, u"")) << pattern;
        EXPECT_TRUE(matches(pattern, u"ab")) << pattern;
        EXPECT_FALSE(matches(pattern, u"a")) << pattern;
    }
    EXPECT_TRUE(matches("a|bc|d", u"bc"));
    EXPECT_FALSE(matches("a|bc|d", u"ac"));
}

TEST(WidePattern, UnitAboveAsciiMatchesNothing) {
    const WidePattern pattern("[ -~]*");
    for (unsigned unit = 0x20; unit <= 0xFFFF; ++unit)
        EXPECT_EQ(pattern.matches(std::u16string(1, static_cast<char16_t>(unit))), unit < 0x7F);
}

TEST(WidePattern, NothingAfterAMismatchMakesItAMatch) {
    EXPECT_FALSE(matches("a+", u"ab"
                               u"aaaa"));
    EXPECT_FALSE(matches("a+", u"\u0161"
                               u"aaaa"));
}

TEST(WidePattern, ZeroIsAUnitLikeAnyOther) {
    EXPECT_FALSE(matches("ab", std::u16string_view(u"a\0b", 3)));
    EXPECT_TRUE(matches(std::string_view("a\0b", 3), std::u16string_view(u"a\0b", 3)));
}

TEST(WidePattern, CopyIsAPatternOfItsOwn) {
    WidePattern copy("x");
    {
        const WidePattern original("ab+");
        copy = original;
    }
    EXPECT_TRUE(copy.matches(u"abb"));
}

TEST(WidePattern, OtherSyntaxIsRejected) {
    EXPECT_EQ(messageFor("a.b"), "Pattern 'a.b' is not supported at offset 1: "
                                 "a character with another meaning elsewhere");
    EXPECT_EQ(messageFor("(?:a)"),
              "Pattern '(?:a)' is not supported at offset 1: nothing to repeat");
    EXPECT_EQ(messageFor("a++"),
              "Pattern 'a++' is not supported at offset 2: a quantifier after a quantifier");
    EXPECT_EQ(messageFor("[^a]"), "Pattern '[^a]' is not supported at offset 1: a negated class");
    EXPECT_EQ(messageFor("[[:digit:]]"),
              "Pattern '[[:digit:]]' is not supported at offset 1: a class in a class");
    EXPECT_EQ(messageFor("[]"), "Pattern '[]' is not supported at offset 2: an empty class");
    EXPECT_EQ(messageFor("[z-a]"), "Pattern '[z-a]' is not supported at offset 4: "
                                   "a range that ends before it begins");
    EXPECT_EQ(messageFor("[a"), "Pattern '[a' is not supported at offset 2: '[' without ']'");
    EXPECT_EQ(messageFor("[a-"), "Pattern '[a-' is not supported at offset 3: '[' without ']'");
    EXPECT_EQ(messageFor("(a"), "Pattern '(a' is not supported at offset 2: '(' without ')'");
    EXPECT_EQ(messageFor("a)"), "Pattern 'a)' is not supported at offset 1: ')' without '('");
    EXPECT_EQ(messageFor("\\d"), "Pattern '\\d' is not supported at offset 1: an unknown escape");
    EXPECT_EQ(messageFor("a\\"), "Pattern 'a\\' is not supported at offset 2: an unknown escape");
    EXPECT_EQ(messageFor("\xC3\xA9"), "Pattern '\xC3\xA9' is not supported at offset 0: "
                                      "a character outside ASCII");
    for (const std::string_view pattern : {"^a", "a$", "a{2}", "]", "*", "a|+", "a??", "a*?"})
        EXPECT_NE(messageFor(pattern), "compiled") << pattern;
}

TEST(WidePattern, TooLargePatternIsRejected) {
    EXPECT_EQ(messageFor("01234567"), "compiled");
    EXPECT_EQ(messageFor("0123456789"),
              "Pattern '0123456789' is not supported at offset 10: more than 10 states");
    std::string places = "a";
    for (std::size_t i = 1; i < 63; ++i)
        places += "|a";
    EXPECT_EQ(messageFor(places), "compiled");
    EXPECT_NE(messageFor(places + "|a").find("more than 64 places"), std::string::npos);
}

/// A second opinion: the standard library's backtracking engine on the same text in 8 bits.
TEST(WidePattern, AgreesWithABacktrackingEngineOnSmallPatterns) {
    Random random;
    SCOPED_TRACE(random.describe());
    const std::vector<std::string> pieces = {"a", "b", "[ab]", "[b-d]", "(", ")", "|", "?",
                                             "*", "+", "\\.",  "(a|b)", "c", "(", ")", "|"};
    std::size_t compiled = 0;
    for (std::size_t round = 0; round < testing::rounds(20000); ++round) {
        std::string pattern;
        for (std::size_t i = random.between(1, 8); i > 0; --i)
            pattern += random.pick(pieces);
        if (messageFor(pattern) != "compiled") continue;
        ++compiled;
        const WidePattern wide(pattern);
        const std::regex reference(pattern);
        for (int i = 0; i < 10; ++i) {
            std::string text;
            for (std::size_t k = random.below(6); k > 0; --k)
                text += random.pick(std::string_view("abcd."));
            ASSERT_EQ(wide.matches(testing::widen(text)), std::regex_match(text, reference))
                << "pattern " << pattern << " text " << text;
        }
    }
    EXPECT_GT(compiled, testing::rounds(20000) / 20);
}

} // namespace
} // namespace zt::orvex::internal
