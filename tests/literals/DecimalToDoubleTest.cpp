#include "literals/DecimalToDouble.h"

#include "literals/BothWidths.h"
#include "literals/GlobalLocale.h"
#include "testing/Random.h"

#include <zt_orvex/literals/NumberConversionError.h>

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace zt::orvex::testing {
namespace {

/// Converts both widths, which must agree to the bit. `describe` distinguishes zeros and NaNs.
std::string convert(std::string_view text) {
    const std::string narrowText(text);
    std::u16string wideText = widen(text);
    const std::string narrow =
        outcomeOf([&] { return internal::decimalToDouble(narrowText.c_str(), narrowText.size()); });
    EXPECT_EQ(
        outcomeOf([&] { return internal::decimalToDouble(wideText.data(), wideText.size()); }),
        narrow)
        << text;
    return narrow;
}

double fromBits(std::uint64_t bits) {
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// All digits of a number that has finitely many.
std::string exactDigits(long double value) {
    std::string text(2400, '\0');
    const int size = std::snprintf(text.data(), text.size(), "%.1100Lf", value);
    text.resize(static_cast<std::size_t>(size));
    return text;
}

TEST(DecimalToDouble, ConvertsWhatItsGrammarAllows) {
    EXPECT_EQ(convert("0"), describe(0.0));
    EXPECT_EQ(convert("1."), describe(1.0));
    EXPECT_EQ(convert(".5"), describe(0.5));
    EXPECT_EQ(convert("1.5e+3"), describe(1500.0));
    EXPECT_EQ(convert("1.5E3"), describe(1500.0));
    EXPECT_EQ(convert("25e-2"), describe(0.25));
    EXPECT_EQ(convert("0001.50"), describe(1.5));
    EXPECT_EQ(convert(std::string(1000, '0') + "7"), describe(7.0));
}

TEST(DecimalToDouble, AnyOtherTextThrowsAndIsNamed) {
    for (const std::string_view text :
         {"",    ".",   "e5",       ".e5",  "1e",  "1e+", "1e-",    "+1",    "-1",    "-0",
          "inf", "INF", "infinity", "-inf", "nan", "NaN", "nan(1)", "0x10",  "1.5.2", " 1",
          "1 ",  "\t1", "1f",       "1d5",  "1_0", "1,5", "1e5.0",  "1e5e5", "--1",   "abc"})
        EXPECT_EQ(convert(text),
                  "Conversion failed converting '" + std::string(text) + "' Reason: Not Specified");
}

TEST(DecimalToDouble, ZeroInsideTheTextDoesntEndTheNumber) {
    using std::string_literals::operator""s;
    for (const std::string& text : {"1\0"s, "\0"s, "1\0005"s, "1e5\0"s})
        EXPECT_EQ(convert(text), "Conversion failed converting '"s + text.c_str());
}

TEST(DecimalToDouble, UnitsAreNotNarrowedIntoDigits) {
    for (const char16_t unit : {u'\u0131', u'\u0080', u'\uFF11', u'\u2E2E'}) {
        std::u16string text = {u'1', unit};
        EXPECT_THROW(internal::decimalToDouble(text.data(), text.size()),
                     internal::NumberConversionError);
    }
}

TEST(DecimalToDouble, ExtremesAreExact) {
    EXPECT_EQ(convert("1.7976931348623157e308"), describe(std::numeric_limits<double>::max()));
    EXPECT_EQ(convert("2.2250738585072014e-308"), describe(std::numeric_limits<double>::min()));
    EXPECT_EQ(convert("4.9406564584124654e-324"),
              describe(std::numeric_limits<double>::denorm_min()));
    EXPECT_EQ(convert("2.2250738585072009e-308"), describe(fromBits(0x000FFFFFFFFFFFFFU)));
    EXPECT_EQ(convert("2.2250738585072012e-308"), describe(fromBits(0x0010000000000000U)));
}

TEST(DecimalToDouble, TooLargeIsInfinity) {
    const std::string infinity = describe(std::numeric_limits<double>::infinity());
    EXPECT_EQ(convert("1e309"), infinity);
    EXPECT_EQ(convert("1.7976931348623159e308"), infinity);
    EXPECT_EQ(convert("1e99999999999999999999999999"), infinity);
    EXPECT_EQ(convert(std::string(400, '9')), infinity);
    EXPECT_EQ(convert("0e99999999999999999999999999"), describe(0.0));
}

TEST(DecimalToDouble, TooSmallIsZeroOrASubnormal) {
    EXPECT_EQ(convert("1e-400"), describe(0.0));
    EXPECT_EQ(convert("1e-99999999999999999999999999"), describe(0.0));
    EXPECT_EQ(convert("2e-324"), describe(0.0));
    EXPECT_EQ(convert("3e-324"), describe(std::numeric_limits<double>::denorm_min()));
    EXPECT_EQ(convert("0." + std::string(400, '0') + "1"), describe(0.0));
}

TEST(DecimalToDouble, LargestNumberEndsHalfwayToTheNextPowerOfTwo) {
    // 2^1024 - 2^970: the tie goes to the even neighbour, which is infinity.
    const long double halfway = std::ldexp(1.0L, 1024) - std::ldexp(1.0L, 970);
    std::string digits = exactDigits(halfway);
    EXPECT_EQ(convert(digits), describe(std::numeric_limits<double>::infinity()));
    digits = exactDigits(std::nextafter(halfway, 0.0L));
    EXPECT_EQ(convert(digits), describe(std::numeric_limits<double>::max()));
}

TEST(DecimalToDouble, SmallestNumberBeginsAboveHalfOfIt) {
    const std::string half = exactDigits(std::ldexp(1.0L, -1075));
    EXPECT_EQ(convert(half), describe(0.0));
    EXPECT_EQ(convert(half + "1"), describe(std::numeric_limits<double>::denorm_min()));
    const std::string oneAndAHalf = exactDigits(3 * std::ldexp(1.0L, -1075));
    EXPECT_EQ(convert(oneAndAHalf), describe(fromBits(2)));
}

/// The number halfway between two doubles, written out in full (more than 700 digits for the
/// smallest), goes to the even one. Any digit after it decides otherwise.
TEST(DecimalToDouble, HalfwayCasesGoToTheEvenNeighbour) {
    static_assert(std::numeric_limits<long double>::digits > std::numeric_limits<double>::digits);
    Random random;
    SCOPED_TRACE(random.describe());
    const std::string zeros(200, '0');
    for (std::size_t round = 0; round < rounds(3000); ++round) {
        const std::uint64_t exponent = random.oneIn(3) ? random.below(2) : random.below(0x7FE);
        const std::uint64_t bits = exponent << 52 | random.next() >> 12;
        const double below = fromBits(bits);
        const double above = fromBits(bits + 1);
        const double even = (bits & 1) == 0 ? below : above;
        const std::string digits =
            exactDigits((static_cast<long double>(below) + static_cast<long double>(above)) / 2);
        ASSERT_EQ(convert(digits), describe(even)) << digits;
        ASSERT_EQ(convert(digits + zeros), describe(even)) << digits;
        ASSERT_EQ(convert(digits + zeros + "1"), describe(above)) << digits;
        std::string less = digits; // the last digit that isn't 0, less 1, followed by nines
        const std::size_t last = less.find_last_not_of("0.");
        --less[last];
        for (std::size_t i = last + 1; i < less.size(); ++i)
            if (less[i] != '.') less[i] = '9';
        ASSERT_EQ(convert(less), describe(below)) << less;
    }
}

std::string randomNumber(Random& random) {
    std::string text;
    const auto digits = [&](std::size_t count) {
        for (; count > 0; --count)
            text += random.pick(std::string_view("0123456789"));
    };
    const std::size_t most = random.oneIn(50) ? 60 : 20;
    switch (random.below(3)) {
    case 0:
        digits(random.between(1, most));
        break;
    case 1:
        digits(random.between(1, most));
        text += '.';
        digits(random.below(most));
        break;
    default:
        text += '.';
        digits(random.between(1, most));
    }
    if (random.oneIn(2)) {
        text += random.pick(std::string_view("eE"));
        text += random.pick(std::vector<std::string>{"", "+", "-"});
        text += std::to_string(random.below(random.oneIn(2) ? 340 : 30));
    }
    return text;
}

TEST(DecimalToDouble, AgreesWithTheCLibraryOnAMillionNumbers) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < rounds(1000000); ++round) {
        const std::string text = randomNumber(random);
        const double value = internal::decimalToDouble(text.c_str(), text.size());
        const double expected = std::strtod(text.c_str(), nullptr);
        ASSERT_EQ(std::memcmp(&value, &expected, sizeof value), 0) << text;
        if (round % 8 == 0) convert(text);
    }
}

TEST(DecimalToDouble, ReadsBackEveryDoubleFromSeventeenDigits) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < rounds(100000); ++round) {
        const double value = fromBits(random.next() >> 1);
        if (!std::isfinite(value)) continue;
        char text[40];
        std::snprintf(text, sizeof text, "%.17g", value);
        ASSERT_EQ(convert(text), describe(value)) << text;
    }
}

TEST(DecimalToDouble, DecimalPointIsAPointInEveryLocale) {
    const GlobalLocale<CommaAndGroups> comma;
    EXPECT_EQ(convert("1.5"), describe(1.5));
    EXPECT_EQ(convert("1234.25e1"), describe(12342.5));
    EXPECT_EQ(convert("1,5"), "Conversion failed converting '1,5' Reason: Not Specified");
}

TEST(DecimalToDouble, DecimalPointIsAPointInEveryLocaleOfTheCLibrary) {
    // Those of these locales that the machine has.
    for (const char* const name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "C.UTF-8", "C"}) {
        if (std::setlocale(LC_ALL, name) == nullptr) continue;
        EXPECT_EQ(convert("1.5"), describe(1.5)) << name;
        EXPECT_EQ(convert("1,5"), "Conversion failed converting '1,5' Reason: Not Specified")
            << name;
    }
    std::setlocale(LC_ALL, "C");
}

} // namespace
} // namespace zt::orvex::testing
