#include "support/AsciiClass.h"

#include <gtest/gtest.h>

#include <string_view>

namespace zt::orvex::internal {
namespace {

constexpr std::u32string_view LETTERS = U"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::u32string_view DIGITS = U"0123456789";

bool contains(std::u32string_view set, char32_t point) {
    return set.find(point) != std::u32string_view::npos;
}

TEST(AsciiClass, AlphaHoldsForTheFiftyTwoLettersAlone) {
    for (char32_t point = 0; point <= 0x11FFFF; ++point) {
        ASSERT_EQ(isAsciiAlpha(point), point < 0x80 && contains(LETTERS, point)) << point;
    }
}

TEST(AsciiClass, AlnumHoldsForLettersAndDigitsAlone) {
    for (char32_t point = 0; point <= 0x11FFFF; ++point) {
        const bool expected = point < 0x80 && (contains(LETTERS, point) || contains(DIGITS, point));
        ASSERT_EQ(isAsciiAlnum(point), expected) << point;
    }
    EXPECT_FALSE(isAsciiAlnum(U'_'));
}

TEST(AsciiClass, CodePointOutsideUnicodeIsntALetter) {
    EXPECT_FALSE(isAsciiAlpha(0xFFFFFFFF));
    EXPECT_FALSE(isAsciiAlnum(0xFFFFFF41));
}

} // namespace
} // namespace zt::orvex::internal
