#include "literals/LiteralParts.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace zt::orvex::internal {
namespace {

/// The parts as "prefix|digits|suffix"; also checks the views themselves.
std::string split(std::string_view text) {
    const LiteralParts<char> parts = splitLiteral(text);
    EXPECT_EQ(parts.literal.data(), text.data());
    EXPECT_EQ(parts.literal.size(), text.size());
    const std::u16string wideText(text.begin(), text.end());
    const LiteralParts<char16_t> wide = splitLiteral(std::u16string_view(wideText));
    EXPECT_EQ(wide.prefix.size(), parts.prefix.size());
    EXPECT_EQ(wide.digits.size(), parts.digits.size());
    EXPECT_EQ(wide.suffix.size(), parts.suffix.size());
    return std::string(parts.prefix) + "|" + std::string(parts.digits) + "|" +
           std::string(parts.suffix);
}

TEST(SplitLiteral, LiteralFallsIntoItsParts) {
    EXPECT_EQ(split("0x12"), "0x|12|");
    EXPECT_EQ(split("0b1u8"), "0b|1|u8");
    EXPECT_EQ(split("0B101S16"), "0B|101|S16");
    EXPECT_EQ(split("0xFFs64"), "0x|FF|s64");
    EXPECT_EQ(split("0xFFU32"), "0x|FF|U32");
}

TEST(SplitLiteral, TextShorterThanThreeIsAllPrefix) {
    EXPECT_EQ(split(""), "||");
    EXPECT_EQ(split("u"), "u||");
    EXPECT_EQ(split("s8"), "s8||");
}

TEST(SplitLiteral, LetterInThirdPlaceFromTheEndGoesBeforeOneInSecond) {
    EXPECT_EQ(split("0x1us8"), "0x|1|us8");
    EXPECT_EQ(split("0x1xs8"), "0x|1x|s8");
}

TEST(SplitLiteral, LengthOfDigitsWrapsAroundInThreeAndFourCharacters) {
    EXPECT_EQ(split("u16"), "u1|6|u16");
    EXPECT_EQ(split("0u16"), "0u|16|u16");
    EXPECT_EQ(split("00u16"), "00||u16");
    EXPECT_EQ(split("0u8"), "0u|8|u8");
    EXPECT_EQ(split("00u8"), "00||u8");
}

TEST(SplitLiteral, LetterAtTheVeryEndIsntASuffix) { EXPECT_EQ(split("0x1u"), "0x|1u|"); }

} // namespace
} // namespace zt::orvex::internal
