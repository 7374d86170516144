#include <zt_orvex/literals/LiteralParsing.h>

#include "literals/BothWidths.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

namespace zt::orvex::testing {
namespace {

using internal::IntegerLiteralValue;

/// `value` as an alternative of IntegerLiteralValue, in the form of `describe`.
template <class Integer>
std::string is(Integer value) {
    return describe(IntegerLiteralValue(value));
}

using UnsignedChar = unsigned char;
using UnsignedShort = unsigned short;
using SignedChar = signed char;
using Short = short;

TEST(IntegerLiteralValue, HasItsAlternativesInTheOrderOfTheSuffixes) {
    EXPECT_EQ(IntegerLiteralValue(UnsignedChar{1}).which(), 0);
    EXPECT_EQ(IntegerLiteralValue(UnsignedShort{1}).which(), 1);
    EXPECT_EQ(IntegerLiteralValue(1U).which(), 2);
    EXPECT_EQ(IntegerLiteralValue(1ULL).which(), 3);
    EXPECT_EQ(IntegerLiteralValue(SignedChar{1}).which(), 4);
    EXPECT_EQ(IntegerLiteralValue(Short{1}).which(), 5);
    EXPECT_EQ(IntegerLiteralValue(1).which(), 6);
    EXPECT_EQ(IntegerLiteralValue(1LL).which(), 7);
}

TEST(ParseIntegerLiteral, SuffixNamesTheType) {
    const char* const suffixes[] = {"u8", "u16", "u32", "u64", "s8", "s16", "s32", "s64"};
    for (std::size_t i = 0; i < std::size(suffixes); ++i) {
        const std::string expected = "#" + std::to_string(i) + " 5";
        EXPECT_EQ(parseBinaryLiteral(std::string("0b101") + suffixes[i]), expected);
        EXPECT_EQ(parseHexLiteral(std::string("0x5") + suffixes[i]), expected);
    }
    EXPECT_EQ(parseHexLiteral("0x5U16"), is(UnsignedShort{5}));
    EXPECT_EQ(parseHexLiteral("0x5S16"), is(Short{5}));
}

TEST(ParseIntegerLiteral, WithoutSuffixTheNarrowestTypeThatTheDigitsFit) {
    const auto binary = [](std::size_t zeros) {
        return parseBinaryLiteral("0b" + std::string(zeros, '0') + "1");
    };
    EXPECT_EQ(binary(0), is(UnsignedChar{1}));
    EXPECT_EQ(binary(7), is(UnsignedChar{1}));
    EXPECT_EQ(binary(8), is(UnsignedShort{1}));
    EXPECT_EQ(binary(15), is(UnsignedShort{1}));
    EXPECT_EQ(binary(16), is(1U));
    EXPECT_EQ(binary(31), is(1U));
    EXPECT_EQ(binary(32), is(1ULL));
    EXPECT_EQ(binary(63), is(1ULL));
    EXPECT_EQ(parseHexLiteral("0xFF"), is(UnsignedChar{255}));
    EXPECT_EQ(parseHexLiteral("0x00FF"), is(UnsignedShort{255}));
    EXPECT_EQ(parseHexLiteral("0x0FF"), is(UnsignedShort{255}));
    EXPECT_EQ(parseHexLiteral("0x10000"), is(65536U));
    EXPECT_EQ(parseHexLiteral("0x00010000"), is(65536U));
    EXPECT_EQ(parseHexLiteral("0x000010000"), is(65536ULL));
}

TEST(ParseIntegerLiteral, FullWidthsReadAsTwosComplement) {
    EXPECT_EQ(parseBinaryLiteral("0b11111111s8"), is(SignedChar{-1}));
    EXPECT_EQ(parseHexLiteral("0xFFFFs16"), is(Short{-1}));
    EXPECT_EQ(parseHexLiteral("0xFFs16"), is(Short{255}));
    EXPECT_EQ(parseHexLiteral("0x80s8"), is(SignedChar{-128}));
    EXPECT_EQ(parseHexLiteral("0x80000000s32"), is(std::numeric_limits<int>::min()));
    EXPECT_EQ(parseHexLiteral("0x8000000000000000s64"), is(std::numeric_limits<long long>::min()));
    EXPECT_EQ(parseHexLiteral("0xFFFFFFFFFFFFFFFFs64"), is(-1LL));
    EXPECT_EQ(parseHexLiteral("0xFFFFFFFFFFFFFFFFu64"),
              is(std::numeric_limits<unsigned long long>::max()));
}

TEST(ParseIntegerLiteral, AllBitsOfSixtyFourWithoutSuffix) {
    constexpr auto MAX = std::numeric_limits<unsigned long long>::max();
    EXPECT_EQ(parseBinaryLiteral("0b" + std::string(64, '1')), is(MAX));
    EXPECT_EQ(parseHexLiteral("0xFFFFFFFFFFFFFFFF"), is(MAX));
    EXPECT_EQ(parseHexLiteral("0xffffffffffffffff"), is(MAX));
    EXPECT_EQ(parseHexLiteral("0x0123456789aBcDeF"), is(0x0123456789ABCDEFULL));
}

TEST(ParseIntegerLiteral, TextOfTwoCharactersOrLessIsZero) {
    for (const std::string_view text : {"", "0", "s", "0b", "0x", "u8", "S1", "??"}) {
        EXPECT_EQ(parseBinaryLiteral(text), is(UnsignedChar{0})) << text;
        EXPECT_EQ(parseHexLiteral(text), is(UnsignedChar{0})) << text;
    }
}

TEST(ParseIntegerLiteral, WrongPrefixIsSkippedUnchecked) {
    EXPECT_EQ(parseBinaryLiteral("??101"), is(UnsignedChar{5}));
    EXPECT_EQ(parseBinaryLiteral("0x101u16"), is(UnsignedShort{5}));
    EXPECT_EQ(parseHexLiteral("0b11"), is(UnsignedChar{0x11}));
    EXPECT_EQ(parseHexLiteral("FFFF"), is(UnsignedChar{0xFF}));
}

TEST(ParseIntegerLiteral, WrongSuffixIsReadByItsLetterAndTheNextCharacter) {
    EXPECT_EQ(parseHexLiteral("0x5u7"), is(5ULL));
    EXPECT_EQ(parseHexLiteral("0x5s7"), is(5LL));
    EXPECT_EQ(parseHexLiteral("0x5u1"), is(UnsignedShort{5}));
    EXPECT_EQ(parseHexLiteral("0x5s3?"), is(5));
    EXPECT_EQ(parseHexLiteral("0x5u8?"), is(UnsignedChar{5}));
    EXPECT_EQ(parseHexLiteral("0x5s??"), is(5LL));
    EXPECT_EQ(parseHexLiteral("0xu8"), is(UnsignedChar{0}));
}

TEST(ParseIntegerLiteral, SuffixAloneMayReachIntoThePrefix) {
    // Three characters, the letter first: the last one is the digits, and the suffix, too.
    EXPECT_EQ(parseHexLiteral("u16"), is(UnsignedShort{6}));
    EXPECT_EQ(parseHexLiteral("s8F"), is(SignedChar{0xF}));
    // Four characters, the letter second: the last two.
    EXPECT_EQ(parseHexLiteral("0u32"), is(0x32U));
    // Three characters, the letter second: one.
    EXPECT_EQ(parseHexLiteral("0u8"), is(UnsignedChar{8}));
    EXPECT_EQ(parseBinaryLiteral("0s8"), "Conversion failed converting '8' Reason: Not Specified");
}

TEST(ParseIntegerLiteral, LeadingZerosBeyondTheWidthAreAccepted) {
    EXPECT_EQ(parseBinaryLiteral("0b011111111u8"), is(UnsignedChar{255}));
    EXPECT_EQ(parseBinaryLiteral("0b011111111"), is(UnsignedShort{255}));
    EXPECT_EQ(parseHexLiteral("0x000000000000000000FFs8"), is(SignedChar{-1}));
    EXPECT_EQ(parseHexLiteral("0x" + std::string(1000, '0') + "1"), is(1ULL));
}

TEST(ParseIntegerLiteral, BitShiftedOutThrowsForTheDigitsAlone) {
    EXPECT_EQ(parseBinaryLiteral("0b111111111u8"),
              "Conversion failed converting '111111111' Reason: Not Specified");
    EXPECT_EQ(parseHexLiteral("0x100s8"),
              "Conversion failed converting '100' Reason: Not Specified");
    EXPECT_EQ(parseHexLiteral("0x01000u8"),
              "Conversion failed converting '01000' Reason: Not Specified");
    EXPECT_EQ(parseHexLiteral("0x1FFFFFFFFFFFFFFFF"),
              "Conversion failed converting '1FFFFFFFFFFFFFFFF' Reason: Not Specified");
    for (const std::size_t width : {8U, 16U, 32U, 64U}) {
        const std::string digits = "1" + std::string(width, '0');
        const std::string message =
            "Conversion failed converting '" + digits + "' Reason: Not Specified";
        EXPECT_EQ(parseBinaryLiteral("0b" + digits + "u" + std::to_string(width)), message);
        EXPECT_EQ(parseBinaryLiteral("0b" + digits + "s" + std::to_string(width)), message);
    }
}

TEST(ParseIntegerLiteral, CharacterThatIsntADigitThrowsForTheDigitsAlone) {
    EXPECT_EQ(parseBinaryLiteral("0b102"),
              "Conversion failed converting '102' Reason: Not Specified");
    EXPECT_EQ(parseBinaryLiteral("0b102u16"),
              "Conversion failed converting '102' Reason: Not Specified");
    EXPECT_EQ(parseHexLiteral("0xFGs64"),
              "Conversion failed converting 'FG' Reason: Not Specified");
    EXPECT_EQ(parseHexLiteral("0x-1"), "Conversion failed converting '-1' Reason: Not Specified");
}

TEST(ParseIntegerLiteral, EveryByteIsADigitOrAnError) {
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const std::string message =
            std::string("Conversion failed converting '") + c + "' Reason: Not Specified";
        const std::string text = std::string("0?") + c;
        const bool isBit = c == '0' || c == '1';
        EXPECT_EQ(parseBinaryLiteral(text), isBit ? "#0 " + std::string(1, c) : message.c_str());
        const std::size_t digit = std::string("0123456789ABCDEFabcdef").find(c);
        const std::size_t value = digit > 15 ? digit - 6 : digit;
        EXPECT_EQ(parseHexLiteral(text),
                  digit != std::string::npos ? "#0 " + std::to_string(value) : message.c_str());
    }
}

TEST(ParseIntegerLiteral, MessageNarrowsUnitsToTheirLowByte) {
    try {
        internal::parseBinaryLiteral(u"0b1\u0232\u0A41u8");
        FAIL() << "no exception";
    } catch (const internal::NumberConversionError& error) {
        EXPECT_EQ(error.getMessage(), "Conversion failed converting '12A' Reason: Not Specified");
    }
}

TEST(ParseIntegerLiteral, UnitWithTheLowByteOfADigitIsntADigit) {
    for (const int high : {0x0100, 0x3000, 0xFF00}) {
        for (const char16_t low : {u'0', u'1', u'F'}) {
            const std::u16string text = {u'0', u'x', static_cast<char16_t>(high + low)};
            EXPECT_THROW(internal::parseHexLiteral(text), internal::NumberConversionError);
            EXPECT_THROW(internal::parseBinaryLiteral(text), internal::NumberConversionError);
        }
    }
}

TEST(ParseDoubleLiteral, EveryLetterOfAnExponentIsAccepted) {
    for (const std::string_view text : {"1.5d+3", "1.5D+3", "1.5e+3", "1.5E+3", "1.5d3", "1500."})
        EXPECT_EQ(parseDoubleLiteral(text), describe(1500.0)) << text;
}

TEST(ParseDoubleLiteral, PointMayStandAtEitherEnd) {
    EXPECT_EQ(parseDoubleLiteral("1."), describe(1.0));
    EXPECT_EQ(parseDoubleLiteral(".5"), describe(0.5));
    EXPECT_EQ(parseDoubleLiteral("1.e2"), describe(100.0));
    EXPECT_EQ(parseDoubleLiteral("1D-2"), describe(0.01));
}

TEST(ParseDoubleLiteral, TextThatIsntANumberThrowsForTheRewrittenText) {
    const auto message = [](const std::string& text) {
        return "Conversion failed converting '" + text + "' Reason: Not Specified";
    };
    EXPECT_EQ(parseDoubleLiteral(""), message(""));
    EXPECT_EQ(parseDoubleLiteral("1.5d"), message("1.5e"));
    EXPECT_EQ(parseDoubleLiteral("Dd"), message("ee"));
    EXPECT_EQ(parseDoubleLiteral("1.5.2"), message("1.5.2"));
    EXPECT_EQ(parseDoubleLiteral("1E5E"), message("1E5E"));
}

TEST(ParseDoubleLiteral, ViewEndsWhereItsLengthSays) {
    EXPECT_EQ(parseDoubleLiteral(std::string_view("1.57", 3)), describe(1.5));
    EXPECT_EQ(parseDoubleLiteral(std::string_view("1e55", 3)), describe(1e5));
}

TEST(ParseDoubleLiteral, UnitAboveAsciiIsntPartOfANumber) {
    EXPECT_THROW(internal::parseDoubleLiteral(u"1\u0131"), internal::NumberConversionError);
    EXPECT_THROW(internal::parseDoubleLiteral(u"\uFF11"), internal::NumberConversionError);
    EXPECT_THROW(internal::parseDoubleLiteral(u"1\u0165"
                                              u"5"),
                 internal::NumberConversionError);
    EXPECT_THROW(internal::parseDoubleLiteral(u"1\u0164"
                                              u"5"),
                 internal::NumberConversionError);
}

} // namespace
} // namespace zt::orvex::testing
