// Random texts, well-formed or not, against a plain second implementation without patterns, which
// converts numbers with strtoull. 8-bit and 16-bit text must agree on each.

#include "literals/RandomLiterals.h"

#include "literals/BothWidths.h"
#include "literals/PlainLiterals.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bitset>
#include <cstdlib>
#include <string>
#include <string_view>

namespace zt::orvex::testing {
namespace {

// Without optimisation the engine for 8-bit text is slow.
#if defined(__OPTIMIZE__)
constexpr std::size_t TEXTS = 200000;
#else
constexpr std::size_t TEXTS = 40000;
#endif

using internal::IntegerLiteralValue;
using internal::LiteralValidationResult;

/// The value in the form of `describe`: the index from width and sign, and the bits as a number.
std::string expectedValue(const PlainLiteral& integer, bool isHex) {
    const std::size_t digitBits = isHex ? 4 : 1;
    std::size_t width = integer.width;
    for (width = width == 0 ? 8 : width; integer.width == 0 && width < 64; width *= 2)
        if (integer.digits.size() * digitBits <= width) break;
    const std::size_t first =
        std::min(integer.digits.find_first_not_of('0'), integer.digits.size());
    const std::string significant = integer.digits.substr(first);
    const unsigned long long bits = std::strtoull(significant.c_str(), nullptr, isHex ? 16 : 2);
    const bool fits = significant.size() * digitBits <= 64 + 3 &&
                      (significant.size() <= 64 / digitBits) && (width == 64 || bits >> width == 0);
    // A hexadecimal digit is shifted in as a whole and must fit as a whole, as it does in each
    // width.
    if (!fits) return "Conversion failed converting '" + integer.digits + "' Reason: Not Specified";
    switch (width + (integer.isSigned ? 1 : 0)) {
    case 8:
        return describe(IntegerLiteralValue(static_cast<unsigned char>(bits)));
    case 9:
        return describe(IntegerLiteralValue(static_cast<signed char>(bits)));
    case 16:
        return describe(IntegerLiteralValue(static_cast<unsigned short>(bits)));
    case 17:
        return describe(IntegerLiteralValue(static_cast<short>(bits)));
    case 32:
        return describe(IntegerLiteralValue(static_cast<unsigned int>(bits)));
    case 33:
        return describe(IntegerLiteralValue(static_cast<int>(bits)));
    case 64:
        return describe(IntegerLiteralValue(bits));
    default:
        return describe(IntegerLiteralValue(static_cast<long long>(bits)));
    }
}

TEST(LiteralParsingRandom, IntegersFollowThePlainRules) {
    Random random;
    SCOPED_TRACE(random.describe());
    std::size_t wellFormed = 0;
    for (std::size_t round = 0; round < rounds(TEXTS); ++round) {
        const bool isHex = random.oneIn(2);
        const std::string text =
            randomLiteral(random, isHex ? LiteralKind::Hexadecimal : LiteralKind::Binary);
        const PlainLiteral integer = readInteger(text, isHex);
        const LiteralValidationResult result =
            isHex ? validateHexLiteral(text) : validateBinaryLiteral(text);
        ASSERT_EQ(result, expectedResult(integer, isHex)) << text;
        const std::string outcome = isHex ? parseHexLiteral(text) : parseBinaryLiteral(text);
        if (!integer.isWellFormed) continue;
        ++wellFormed;
        ASSERT_EQ(outcome, expectedValue(integer, isHex)) << text;
    }
    EXPECT_GT(wellFormed, rounds(TEXTS) / 4);
}

TEST(LiteralParsingRandom, DoublesFollowThePlainRules) {
    Random random;
    SCOPED_TRACE(random.describe());
    std::size_t wellFormed = 0;
    for (std::size_t round = 0; round < rounds(TEXTS); ++round) {
        const std::string text = randomLiteral(random, LiteralKind::Double);
        const bool isWellFormed = isDouble(text);
        ASSERT_EQ(validateDoubleLiteral(text) == LiteralValidationResult::Valid, isWellFormed)
            << text;
        std::string rewritten = text;
        for (char& c : rewritten)
            if (c == 'd' || c == 'D') c = 'e';
        const std::string outcome = parseDoubleLiteral(text);
        if (isWellFormed) {
            ++wellFormed;
            ASSERT_EQ(outcome, describe(std::strtod(rewritten.c_str(), nullptr))) << text;
        } else {
            ASSERT_EQ(outcome.rfind("Conversion failed converting '", 0), 0U) << text;
        }
    }
    EXPECT_GT(wellFormed, rounds(TEXTS) / 4);
}

/// Compares only the two widths, so that a million texts are cheap.
TEST(LiteralParsingRandom, WidthsAgreeOnManyMoreTexts) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < rounds(10 * TEXTS); ++round) {
        const auto kind = static_cast<LiteralKind>(random.below(3));
        const std::string narrow = randomLiteral(random, kind);
        const std::u16string wide = widen(narrow);
        const std::u16string_view wideView = wide;
        switch (kind) {
        case LiteralKind::Binary:
            ASSERT_EQ(internal::validateBinaryLiteral(narrow),
                      internal::validateBinaryLiteral(wideView))
                << narrow;
            break;
        case LiteralKind::Hexadecimal:
            ASSERT_EQ(internal::validateHexLiteral(narrow), internal::validateHexLiteral(wideView))
                << narrow;
            break;
        case LiteralKind::Double:
            ASSERT_EQ(internal::validateDoubleLiteral(narrow),
                      internal::validateDoubleLiteral(wideView))
                << narrow;
        }
    }
}

/// A well-formed literal in which one unit is moved above ASCII with its low byte unchanged.
TEST(LiteralParsingRandom, UnitWithAnyHighByteIsMalformed) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < rounds(100000); ++round) {
        std::u16string text = widen(randomInteger(random, true));
        char16_t& unit = text[random.below(text.size())];
        unit = static_cast<char16_t>(unit | random.between(1, 0xFF) << 8);
        ASSERT_EQ(internal::validateHexLiteral(text), LiteralValidationResult::Malformed);
        text = widen(randomDouble(random) + "1");
        text[random.below(text.size())] |= 0x100;
        ASSERT_EQ(internal::validateDoubleLiteral(text), LiteralValidationResult::Malformed);
        ASSERT_THROW(internal::parseDoubleLiteral(text), internal::NumberConversionError);
    }
}

} // namespace
} // namespace zt::orvex::testing
