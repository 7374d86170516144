#include <zt_orvex/literals/LiteralValidation.h>

#include "literals/BothWidths.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace zt::orvex::testing {
namespace {

constexpr auto VALID = internal::LiteralValidationResult::Valid;
constexpr auto MALFORMED = internal::LiteralValidationResult::Malformed;
constexpr auto TOO_MANY_DIGITS = internal::LiteralValidationResult::TooManyDigits;

std::string binary(std::size_t digits, const std::string& suffix) {
    return "0b" + std::string(digits, '1') + suffix;
}

std::string hex(std::size_t digits, const std::string& suffix) {
    return "0x" + std::string(digits, 'F') + suffix;
}

TEST(LiteralValidationResult, HasThreeValues) {
    EXPECT_EQ(static_cast<int>(VALID), 0);
    EXPECT_EQ(static_cast<int>(MALFORMED), 1);
    EXPECT_EQ(static_cast<int>(TOO_MANY_DIGITS), 2);
}

TEST(ValidateIntegerLiteral, RadixMarkWithoutDigitsIsMalformed) {
    for (const std::string_view suffix : {"", "u8", "s16", "U32", "S64"}) {
        EXPECT_EQ(validateBinaryLiteral("0b" + std::string(suffix)), MALFORMED) << suffix;
        EXPECT_EQ(validateHexLiteral("0x" + std::string(suffix)), MALFORMED) << suffix;
    }
}

TEST(ValidateIntegerLiteral, LettersTakeEitherCase) {
    EXPECT_EQ(validateHexLiteral("0XFFU8"), VALID);
    EXPECT_EQ(validateHexLiteral("0Xffs8"), VALID);
    EXPECT_EQ(validateHexLiteral("0xaBcDeFu32"), VALID);
    EXPECT_EQ(validateBinaryLiteral("0B1S16"), VALID);
    EXPECT_EQ(validateBinaryLiteral("0b1u64"), VALID);
}

TEST(ValidateIntegerLiteral, OnlyFourWidthsExist) {
    for (int width = 0; width < 200; ++width) {
        const bool exists = width == 8 || width == 16 || width == 32 || width == 64;
        for (const char letter : std::string("uUsS")) {
            const std::string suffix = letter + std::to_string(width);
            EXPECT_EQ(validateHexLiteral("0x1" + suffix), exists ? VALID : MALFORMED) << suffix;
            EXPECT_EQ(validateBinaryLiteral("0b1" + suffix), exists ? VALID : MALFORMED) << suffix;
        }
    }
    EXPECT_EQ(validateHexLiteral("0x1u7"), MALFORMED);
    EXPECT_EQ(validateHexLiteral("0x1u"), MALFORMED);
    EXPECT_EQ(validateHexLiteral("0x1u08"), MALFORMED);
}

TEST(ValidateIntegerLiteral, DigitsOfAnotherRadixAreMalformed) {
    EXPECT_EQ(validateBinaryLiteral("0b102"), MALFORMED);
    EXPECT_EQ(validateBinaryLiteral("0bA"), MALFORMED);
    EXPECT_EQ(validateHexLiteral("0xG"), MALFORMED);
    EXPECT_EQ(validateBinaryLiteral("0x1"), MALFORMED);
    EXPECT_EQ(validateHexLiteral("1x1"), MALFORMED);
    EXPECT_EQ(validateHexLiteral("xF"), MALFORMED);
}

TEST(ValidateIntegerLiteral, BinaryDigitsAndHexDigitsOverlapInB) {
    // B is a hexadecimal digit and also marks a binary literal.
    EXPECT_EQ(validateHexLiteral("0xB1"), VALID);
    EXPECT_EQ(validateHexLiteral("0b1"), MALFORMED);
    EXPECT_EQ(validateBinaryLiteral("0b1"), VALID);
}

TEST(ValidateIntegerLiteral, TheWholeTextMustMatch) {
    for (const std::string_view text : {" 0x1", "0x1 ", "-0x1", "+0x1", "0x1u8 ", "0x1\n", "0x1,"})
        EXPECT_EQ(validateHexLiteral(text), MALFORMED) << text;
    EXPECT_EQ(validateBinaryLiteral("00b1"), MALFORMED);
    EXPECT_EQ(validateBinaryLiteral("0b1u8u8"), MALFORMED);
}

TEST(ValidateIntegerLiteral, AsManyDigitsAsTheWidthFits) {
    for (const char letter : std::string("uUsS")) {
        for (const std::size_t width : {8U, 16U, 32U, 64U}) {
            const std::string suffix = letter + std::to_string(width);
            EXPECT_EQ(validateBinaryLiteral(binary(width, suffix)), VALID) << suffix;
            EXPECT_EQ(validateBinaryLiteral(binary(width + 1, suffix)), TOO_MANY_DIGITS) << suffix;
            EXPECT_EQ(validateHexLiteral(hex(width / 4, suffix)), VALID) << suffix;
            EXPECT_EQ(validateHexLiteral(hex(width / 4 + 1, suffix)), TOO_MANY_DIGITS) << suffix;
        }
    }
    EXPECT_EQ(validateHexLiteral("0x123u8"), TOO_MANY_DIGITS);
    EXPECT_EQ(validateBinaryLiteral("0b111111111s8"), TOO_MANY_DIGITS);
}

TEST(ValidateIntegerLiteral, WithoutSuffixSixtyFourBitsFit) {
    EXPECT_EQ(validateBinaryLiteral(binary(64, "")), VALID);
    EXPECT_EQ(validateBinaryLiteral(binary(65, "")), TOO_MANY_DIGITS);
    EXPECT_EQ(validateHexLiteral(hex(16, "")), VALID);
    EXPECT_EQ(validateHexLiteral(hex(17, "")), TOO_MANY_DIGITS);
}

TEST(ValidateIntegerLiteral, LeadingZerosCount) {
    EXPECT_EQ(validateHexLiteral("0x" + std::string(16, '0') + "1"), TOO_MANY_DIGITS);
    EXPECT_EQ(validateHexLiteral("0x" + std::string(15, '0') + "1"), VALID);
    EXPECT_EQ(validateBinaryLiteral("0b000000001u8"), TOO_MANY_DIGITS);
}

TEST(ValidateIntegerLiteral, SignedSuffixAllowsAsManyDigitsAsTheUnsignedOne) {
    EXPECT_EQ(validateHexLiteral("0xFFs8"), VALID);
    EXPECT_EQ(validateBinaryLiteral("0b11111111s8"), VALID);
}

TEST(ValidateDoubleLiteral, AcceptsDigitsWithAnOptionalPointAndExponent) {
    for (const std::string_view text : {"1.", ".5", "1e5", "1.5d+3", "1D-2", "0", "007", "1.e5",
                                        ".5E-10", "12.34", "1d0", "1E00"})
        EXPECT_EQ(validateDoubleLiteral(text), VALID) << text;
}

TEST(ValidateDoubleLiteral, RejectsAnythingElse) {
    for (const std::string_view text :
         {"",    ".",  "e5", "1e",  "+1",  "-1",  "1.5.2", "..5",  "1..",  "1e+",   "1e5.", "1e5e5",
          "1f5", " 1", "1 ", "0x1", "inf", "nan", "1,5",   "1e 5", "1ee5", "1e+-5", ".e5",  "1.5i"})
        EXPECT_EQ(validateDoubleLiteral(text), MALFORMED) << text;
}

TEST(ValidateDoubleLiteral, DoesNotCheckTheRange) {
    EXPECT_EQ(validateDoubleLiteral("1e999999999999999999999"), VALID);
    EXPECT_EQ(validateDoubleLiteral("1d-999999999999999999999"), VALID);
    EXPECT_EQ(validateDoubleLiteral(std::string(5000, '9')), VALID);
}

TEST(ValidateLiteral, ShortTextsAreMalformed) {
    for (const std::string_view text : {"", "0", "b", "0b", "0x", "x1", "u8", "s"}) {
        EXPECT_EQ(validateBinaryLiteral(text), MALFORMED) << text;
        EXPECT_EQ(validateHexLiteral(text), MALFORMED) << text;
    }
}

TEST(ValidateLiteral, ViewWithoutTextIsMalformed) {
    EXPECT_EQ(internal::validateBinaryLiteral(std::string_view()), MALFORMED);
    EXPECT_EQ(internal::validateHexLiteral(std::string_view()), MALFORMED);
    EXPECT_EQ(internal::validateDoubleLiteral(std::string_view()), MALFORMED);
    EXPECT_EQ(internal::validateBinaryLiteral(std::u16string_view()), MALFORMED);
    EXPECT_EQ(internal::validateHexLiteral(std::u16string_view()), MALFORMED);
    EXPECT_EQ(internal::validateDoubleLiteral(std::u16string_view()), MALFORMED);
}

TEST(ValidateLiteral, ZeroInsideTheTextIsMalformed) {
    for (std::size_t at = 0; at <= 5; ++at) {
        EXPECT_EQ(validateBinaryLiteral(std::string("0b1u8").insert(at, 1, '\0')), MALFORMED) << at;
        EXPECT_EQ(validateHexLiteral(std::string("0x1u8").insert(at, 1, '\0')), MALFORMED) << at;
        EXPECT_EQ(validateDoubleLiteral(std::string("1.5e3").insert(at, 1, '\0')), MALFORMED) << at;
    }
}

TEST(ValidateLiteral, ViewEndsWhereItsLengthSays) {
    EXPECT_EQ(validateBinaryLiteral(std::string_view("0b10z", 4)), VALID);
    EXPECT_EQ(validateDoubleLiteral(std::string_view("1.5.", 3)), VALID);
}

TEST(ValidateLiteral, UnitsAboveAsciiAreNeverNarrowed) {
    using internal::validateBinaryLiteral;
    using internal::validateDoubleLiteral;
    using internal::validateHexLiteral;
    // U+0131 has the low byte of '1', U+FF11 is a digit one, and U+0661 another.
    for (const char16_t unit : {u'\u0131', u'\uFF11', u'\u0661', u'\u0080', u'\xD800', u'\xFFFF'}) {
        EXPECT_EQ(validateBinaryLiteral(std::u16string(u"0b1") + unit), MALFORMED)
            << unsigned{unit};
        EXPECT_EQ(validateHexLiteral(std::u16string(u"0x1") + unit), MALFORMED) << unsigned{unit};
        EXPECT_EQ(validateDoubleLiteral(std::u16string(u"1") + unit), MALFORMED) << unsigned{unit};
    }
}

TEST(ValidateLiteral, MegabyteOfDigitsWithABadEndIsMalformed) {
    const std::string digits(1 << 20, '1');
    EXPECT_EQ(validateBinaryLiteral("0b" + digits + "u7"), MALFORMED);
    EXPECT_EQ(validateHexLiteral("0x" + digits + "g"), MALFORMED);
    EXPECT_EQ(validateDoubleLiteral(digits + "x"), MALFORMED);
    EXPECT_EQ(validateDoubleLiteral(digits + "." + digits + "e"), MALFORMED);
    EXPECT_EQ(validateDoubleLiteral("1e" + digits + "."), MALFORMED);
}

TEST(ValidateLiteral, MegabyteOfDigitsWithAGoodEndIsValid) {
    const std::string digits(1 << 20, '1');
    EXPECT_EQ(validateBinaryLiteral("0b" + digits + "u8"), TOO_MANY_DIGITS);
    EXPECT_EQ(validateHexLiteral("0x" + digits), TOO_MANY_DIGITS);
    EXPECT_EQ(validateDoubleLiteral(digits + "." + digits + "e" + digits), VALID);
}

} // namespace
} // namespace zt::orvex::testing
