#include "testing/Widen.h"

#include <zt_orvex/literals/Imaginary.h>

#include <zt_orvex/support/Char16Locale.h>

#include <gtest/gtest.h>

#include <complex>
#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <type_traits>

namespace zt::orvex {
namespace {

using WideStream = std::basic_ostringstream<char16_t>;

static_assert(sizeof(Imaginary) == sizeof(double));
static_assert(std::is_trivially_copyable_v<Imaginary>);
static_assert(std::is_copy_assignable_v<Imaginary> && std::is_move_assignable_v<Imaginary>);
static_assert(!std::is_default_constructible_v<Imaginary>);

TEST(Imaginary, ComparesAsItsDoubleDoes) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(Imaginary(2.5) == Imaginary(2.5));
    EXPECT_FALSE(Imaginary(2.5) != Imaginary(2.5));
    EXPECT_FALSE(Imaginary(2.5) == Imaginary(2.0));
    EXPECT_TRUE(Imaginary(2.5) != Imaginary(2.0));
    EXPECT_TRUE(Imaginary(0.0) == Imaginary(-0.0));
    EXPECT_FALSE(Imaginary(0.0) != Imaginary(-0.0));
    EXPECT_FALSE(Imaginary(nan) == Imaginary(nan));
    EXPECT_TRUE(Imaginary(nan) != Imaginary(nan));
}

TEST(Imaginary, IsAComplexNumberWithoutARealPart) {
    const std::complex<double> converted = Imaginary(2.0);
    EXPECT_EQ(converted, std::complex<double>(0.0, 2.0));
    EXPECT_EQ(Imaginary(-3.5).getComplexValue(), std::complex<double>(0.0, -3.5));
}

TEST(Imaginary, IsAssignable) {
    Imaginary value(1.0);
    value = Imaginary(2.0);
    EXPECT_TRUE(value == Imaginary(2.0));
}

TEST(Imaginary, PrintsWithTheSettingsOfTheStream) {
    std::ostringstream stream;
    stream << Imaginary(2.5) << ' ' << Imaginary(1.0 / 3) << ' ' << Imaginary(0.0);
    stream << ' ' << std::setprecision(3) << Imaginary(1.0 / 3);
    stream << ' ' << std::fixed << Imaginary(2.5) << ' ' << std::showpos << Imaginary(2.5);
    EXPECT_EQ(stream.str(), "2.5i 0.333333i 0i 0.333i 2.500i +2.500i");
}

TEST(Imaginary, WidthAppliesToTheNumberAlone) {
    std::ostringstream stream;
    stream << std::setw(6) << std::setfill('*') << Imaginary(2.5) << '|' << std::left
           << std::setw(6) << Imaginary(2.5) << '|' << Imaginary(2.5);
    EXPECT_EQ(stream.str(), "***2.5i|2.5***i|2.5i");
}

/// Writes with the same settings to an 8-bit stream and to a 16-bit one.
template <class Set>
void expectSameText(const std::locale& locale, Set set) {
    for (const double value :
         {0.0, -0.0, 2.5, 1e20, 1.0 / 3, -12345.678, std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        std::ostringstream narrow;
        set(narrow);
        narrow << Imaginary(value) << Imaginary(value);
        WideStream wide;
        wide.imbue(locale);
        set(wide);
        wide << Imaginary(value) << Imaginary(value);
        ASSERT_TRUE(wide.good());
        const std::string text = narrow.str();
        EXPECT_EQ(wide.str(), testing::widen(text)) << text;
    }
}

TEST(Imaginary, SixteenBitStreamPrintsTheSame) {
    for (const std::locale& locale : {std::locale::classic(), getChar16Locale()}) {
        expectSameText(locale, [](auto&) {});
        expectSameText(locale, [](auto& stream) { stream.precision(15); });
        expectSameText(locale, [](auto& stream) { stream.width(12); });
        expectSameText(locale, [](auto& stream) { stream.setf(std::ios_base::scientific); });
        expectSameText(locale, [](auto& stream) {
            stream.setf(std::ios_base::left, std::ios_base::adjustfield);
            stream.width(30);
        });
        expectSameText(locale, [](auto& stream) {
            stream.setf(std::ios_base::internal, std::ios_base::adjustfield);
            stream.setf(std::ios_base::showpos | std::ios_base::uppercase);
            stream.width(30);
        });
    }
}

TEST(Imaginary, SixteenBitStreamPadsWithItsFill) {
    WideStream stream;
    stream.imbue(getChar16Locale());
    stream << std::setfill(u'\u2022') << std::setw(6) << Imaginary(2.5);
    EXPECT_EQ(stream.str(), u"\u2022\u2022\u20222.5i");
    stream.imbue(std::locale::classic()); // bare again, but it keeps its fill
    stream.str(u"");
    stream << std::setw(6) << Imaginary(2.5);
    EXPECT_EQ(stream.str(), u"\u2022\u2022\u20222.5i");
}

} // namespace
} // namespace zt::orvex
