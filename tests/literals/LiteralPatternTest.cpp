#include "literals/LiteralPattern.h"

#include "literals/LiteralGrammar.h"
#include "testing/Widen.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

namespace zt::orvex::internal {
namespace {

TEST(LiteralGrammar, PatternTextsAreTheseWordForWord) {
    EXPECT_EQ(Binary::PATTERN, "0[bB][01]+([uUsS](8|16|32|64))?");
    EXPECT_EQ(Hexadecimal::PATTERN, "0[xX][0-9A-Fa-f]+([uUsS](8|16|32|64))?");
    EXPECT_EQ(NARROW_DOUBLE_PATTERN, "(?:[0-9]++\\.?+[0-9]*+|\\.[0-9]++)([dDeE][+-]?+[0-9]++)?+");
    EXPECT_EQ(WIDE_DOUBLE_PATTERN, "([0-9]+\\.?[0-9]*|\\.[0-9]+)([dDeE][+-]?[0-9]+)?");
    EXPECT_EQ(RADIX_PREFIX_PATTERN, "0[xXbB]");
    EXPECT_EQ(TYPE_SUFFIX_PATTERN, "|[uUsS](8|16|32|64)");
}

bool matches(const LiteralPattern& pattern, std::string_view text) {
    const bool narrow = pattern.matches(text);
    EXPECT_EQ(pattern.matches(std::u16string_view(testing::widen(text))), narrow) << text;
    return narrow;
}

// Parsing compiles these two patterns but never matches them; these tests show what they match.

TEST(LiteralPattern, PrefixIsAZeroAndTheLetterOfARadix) {
    const LiteralPattern prefix(RADIX_PREFIX_PATTERN, RADIX_PREFIX_PATTERN);
    for (const std::string_view text : {"0x", "0X", "0b", "0B"})
        EXPECT_TRUE(matches(prefix, text)) << text;
    for (const std::string_view text : {"", "0", "x", "0o", "0x1", "1x", "00x"})
        EXPECT_FALSE(matches(prefix, text)) << text;
}

TEST(LiteralPattern, SuffixIsALetterAndAWidthOrNothing) {
    const LiteralPattern suffix(TYPE_SUFFIX_PATTERN, TYPE_SUFFIX_PATTERN);
    for (const std::string_view text : {"", "u8", "U16", "s32", "S64"})
        EXPECT_TRUE(matches(suffix, text)) << text;
    for (const std::string_view text : {"u", "8", "u7", "u81", "x8", "u1", "u6"})
        EXPECT_FALSE(matches(suffix, text)) << text;
}

TEST(LiteralPattern, EitherFormRejectsABadPattern) {
    EXPECT_THROW(LiteralPattern("(", "a"), std::runtime_error);
    EXPECT_THROW(LiteralPattern("a", "("), std::invalid_argument);
}

} // namespace
} // namespace zt::orvex::internal
