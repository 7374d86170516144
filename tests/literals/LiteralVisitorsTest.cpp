#include <zt_orvex/literals/IsNegativeVisitor.h>
#include <zt_orvex/literals/IsOneVisitor.h>
#include <zt_orvex/literals/IsZeroVisitor.h>
#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>
#include <zt_orvex/literals/LiteralValue.h>
#include <zt_orvex/literals/ValueToStringVisitor.h>

#include "literals/GlobalLocale.h"
#include "literals/TrailingZeros.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>

namespace zt::orvex::internal {
namespace {

using testing::CommaAndGroups;
using testing::GlobalLocale;
using testing::PairGroups;
using testing::Random;

const double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
const double ENDLESS = std::numeric_limits<double>::infinity();

template <class Visitor>
constexpr bool IS_PLAIN = std::is_empty_v<Visitor> && !std::is_polymorphic_v<Visitor> &&
                          std::is_copy_assignable_v<Visitor> && std::is_move_assignable_v<Visitor>;
static_assert(IS_PLAIN<IsZeroVisitor> && IS_PLAIN<IsOneVisitor> && IS_PLAIN<IsNegativeVisitor> &&
              IS_PLAIN<ValueToStringVisitor>);

template <class Integer>
class IntegerVisitors : public ::testing::Test {};
using Integers = ::testing::Types<unsigned char, unsigned short, unsigned int, unsigned long long,
                                  signed char, short, int, long long>;
/// By suffix, for the names of the tests.
struct SuffixOf {
    template <class Integer>
    static std::string GetName(int) {
        return (std::is_signed_v<Integer> ? "s" : "u") + std::to_string(8 * sizeof(Integer));
    }
};
TYPED_TEST_SUITE(IntegerVisitors, Integers, SuffixOf);

TYPED_TEST(IntegerVisitors, CompareInTheTypeOfTheValue) {
    using Limits = std::numeric_limits<TypeParam>;
    const TypeParam values[] = {Limits::min(), static_cast<TypeParam>(-1), 0, 1, 2, Limits::max()};
    for (const TypeParam value : values) {
        EXPECT_EQ(IsZeroVisitor().visit(value), value == 0);
        EXPECT_EQ(IsOneVisitor().visit(value), value == 1);
        EXPECT_EQ(IsNegativeVisitor().visit(value),
                  std::is_signed_v<TypeParam> && !(value > 0) && value != 0);
    }
}

TYPED_TEST(IntegerVisitors, TextReadsBackAsTheSameTypeAndBits) {
    Random random;
    SCOPED_TRACE(random.describe());
    using Limits = std::numeric_limits<TypeParam>;
    const ValueToStringVisitor toString;
    for (std::size_t round = 0; round < 2000; ++round) {
        auto value = static_cast<TypeParam>(random.next() >> random.below(64));
        if (round == 0) value = Limits::min();
        if (round == 1) value = Limits::max();
        const std::string text = toString.visit(value);
        ASSERT_EQ(validateHexLiteral(text), LiteralValidationResult::Valid) << text;
        ASSERT_EQ(parseHexLiteral(text), IntegerLiteralValue(value)) << text;
    }
}

TYPED_TEST(IntegerVisitors, TextReadsBackUnderAGlobalLocaleThatGroups) {
    const ValueToStringVisitor toString;
    const std::string plain = toString.visit(std::numeric_limits<TypeParam>::max());
    {
        const GlobalLocale<PairGroups> groups;
        EXPECT_EQ(toString.visit(std::numeric_limits<TypeParam>::max()), plain);
    }
    const GlobalLocale<CommaAndGroups> groups;
    EXPECT_EQ(toString.visit(std::numeric_limits<TypeParam>::max()), plain);
    EXPECT_EQ(parseHexLiteral(plain), IntegerLiteralValue(std::numeric_limits<TypeParam>::max()));
}

TEST(IsZeroVisitor, TellsDoublesAndImaginaries) {
    const IsZeroVisitor isZero;
    EXPECT_TRUE(isZero.visit(0.0));
    EXPECT_TRUE(isZero.visit(-0.0));
    EXPECT_FALSE(isZero.visit(std::numeric_limits<double>::denorm_min()));
    EXPECT_FALSE(isZero.visit(NOT_A_NUMBER));
    EXPECT_TRUE(isZero.visit(Imaginary(0.0)));
    EXPECT_TRUE(isZero.visit(Imaginary(-0.0)));
    EXPECT_FALSE(isZero.visit(Imaginary(1.0)));
    EXPECT_FALSE(isZero.visit(Imaginary(NOT_A_NUMBER)));
}

TEST(IsOneVisitor, TellsDoubles) {
    const IsOneVisitor isOne;
    EXPECT_TRUE(isOne.visit(1.0));
    EXPECT_FALSE(isOne.visit(-1.0));
    EXPECT_FALSE(isOne.visit(1.0 + std::numeric_limits<double>::epsilon()));
    EXPECT_FALSE(isOne.visit(NOT_A_NUMBER));
}

TEST(IsOneVisitor, ImaginaryNeverCountsAsOne) {
    for (const double value : {1.0, 0.0, -1.0, NOT_A_NUMBER})
        EXPECT_FALSE(IsOneVisitor().visit(Imaginary(value))) << value;
}

TEST(IsNegativeVisitor, TellsDoubles) {
    const IsNegativeVisitor isNegative;
    EXPECT_TRUE(isNegative.visit(-1.0));
    EXPECT_TRUE(isNegative.visit(-ENDLESS));
    EXPECT_FALSE(isNegative.visit(-0.0));
    EXPECT_FALSE(isNegative.visit(1.0));
    EXPECT_FALSE(isNegative.visit(-NOT_A_NUMBER));
}

TEST(IsNegativeVisitor, ImaginaryNeverCountsAsNegative) {
    for (const double value : {-1.0, 0.0, 1.0, -ENDLESS})
        EXPECT_FALSE(IsNegativeVisitor().visit(Imaginary(value))) << value;
}

TEST(ValueToStringVisitor, IntegerIsAHexLiteralOfItsFullWidth) {
    const ValueToStringVisitor toString;
    EXPECT_EQ(toString.visit(static_cast<signed char>(-1)), "0xFFs8");
    EXPECT_EQ(toString.visit(static_cast<unsigned char>(0)), "0x00u8");
    EXPECT_EQ(toString.visit(static_cast<unsigned char>(0xAB)), "0xABu8");
    EXPECT_EQ(toString.visit(static_cast<short>(255)), "0x00FFs16");
    EXPECT_EQ(toString.visit(static_cast<short>(-2)), "0xFFFEs16");
    EXPECT_EQ(toString.visit(static_cast<unsigned short>(0x12)), "0x0012u16");
    EXPECT_EQ(toString.visit(-1), "0xFFFFFFFFs32");
    EXPECT_EQ(toString.visit(26U), "0x0000001Au32");
    EXPECT_EQ(toString.visit(1LL), "0x0000000000000001s64");
    EXPECT_EQ(toString.visit(std::numeric_limits<long long>::min()), "0x8000000000000000s64");
    EXPECT_EQ(toString.visit(0xFEDCBA9876543210ULL), "0xFEDCBA9876543210u64");
}

TEST(ValueToStringVisitor, DoubleHasTheFormItNeeds) {
    const ValueToStringVisitor toString;
    EXPECT_EQ(toString.visit(1.0), "1");
    EXPECT_EQ(toString.visit(0.1), "0.1");
    EXPECT_EQ(toString.visit(1e20), "1e+20");
    EXPECT_EQ(toString.visit(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(toString.visit(0.0), "0");
    EXPECT_EQ(toString.visit(-0.0), "-0");
    EXPECT_EQ(toString.visit(-2.50), "-2.5");
    EXPECT_EQ(toString.visit(1e-5), "1e-05");
    EXPECT_EQ(toString.visit(123456789012345.0), "123456789012345");
    EXPECT_EQ(toString.visit(100.0), "100");
}

TEST(ValueToStringVisitor, DoublesThatDifferBehindFifteenDigitsPrintAlike) {
    const ValueToStringVisitor toString;
    EXPECT_EQ(toString.visit(0.1 + 0.2), "0.3");
    EXPECT_EQ(toString.visit(0.3), "0.3");
    EXPECT_EQ(toString.visit(1234567890123456.0), "1.23456789012346e+15");
}

TEST(ValueToStringVisitor, DoubleThatIsNotFiniteIsWrittenAsTheStreamDoes) {
    const ValueToStringVisitor toString;
    EXPECT_EQ(toString.visit(ENDLESS), "inf");
    EXPECT_EQ(toString.visit(-ENDLESS), "-inf");
    EXPECT_EQ(toString.visit(NOT_A_NUMBER), "nan");
}

TEST(ValueToStringVisitor, ImaginaryIsADoubleAndAnI) {
    const ValueToStringVisitor toString;
    EXPECT_EQ(toString.visit(Imaginary(2.5)), "2.5i");
    EXPECT_EQ(toString.visit(Imaginary(0.0)), "0i");
    EXPECT_EQ(toString.visit(Imaginary(-1.0 / 3)), "-0.333333333333333i");
}

TEST(ValueToStringVisitor, DoublePrintsUnderTheGlobalLocale) {
    const GlobalLocale<CommaAndGroups> comma;
    const ValueToStringVisitor toString;
    EXPECT_EQ(toString.visit(2.5), "2,5");
    EXPECT_EQ(toString.visit(1234567.25), "1.234.567,25");
    EXPECT_EQ(toString.visit(Imaginary(2.5)), "2,5i");
}

TEST(LiteralValue, VisitorsHaveAnOverloadForEveryAlternative) {
    const LiteralValue values[] = {
        static_cast<unsigned char>(1),
        static_cast<unsigned short>(1),
        1U,
        1ULL,
        static_cast<signed char>(1),
        static_cast<short>(1),
        1,
        1LL,
        1.0,
        Imaginary(1.0),
    };
    const char* const texts[] = {"0x01u8", "0x0001u16", "0x00000001u32", "0x0000000000000001u64",
                                 "0x01s8", "0x0001s16", "0x00000001s32", "0x0000000000000001s64",
                                 "1",      "1i"};
    for (std::size_t i = 0; i < std::size(values); ++i) {
        EXPECT_EQ(values[i].which(), static_cast<int>(i));
        const auto ask = [&](auto visitor) {
            return boost::apply_visitor([&](auto value) { return visitor.visit(value); },
                                        values[i]);
        };
        EXPECT_EQ(ask(ValueToStringVisitor()), texts[i]);
        EXPECT_FALSE(ask(IsZeroVisitor()));
        EXPECT_EQ(ask(IsOneVisitor()), i != 9);
        EXPECT_FALSE(ask(IsNegativeVisitor()));
    }
}

TEST(TrailingZeros, FractionKeepsOneDigit) {
    EXPECT_EQ(dropTrailingZeros("1.500"), "1.5");
    EXPECT_EQ(dropTrailingZeros("-1.250"), "-1.25");
    EXPECT_EQ(dropTrailingZeros("1.00"), "1.0");
    EXPECT_EQ(dropTrailingZeros("1.0500"), "1.05");
    EXPECT_EQ(dropTrailingZeros("12.0"), "12.0");
}

TEST(TrailingZeros, ZeroInsideTheFractionKeepsThemAll) {
    EXPECT_EQ(dropTrailingZeros("1.1010"), "1.1010");
    EXPECT_EQ(dropTrailingZeros("1.5050"), "1.5050");
}

TEST(TrailingZeros, TextsThatAreNoPlainFractionStay) {
    for (const char* const text :
         {"", "100", "-0", "1e+20", "1.50e10", "inf", "nan", "+1.50", ".50", "1,50", "1.5"})
        EXPECT_EQ(dropTrailingZeros(text), text);
}

TEST(TrailingZeros, NoTextOfADoubleHasAny) {
    Random random;
    SCOPED_TRACE(random.describe());
    const ValueToStringVisitor toString;
    for (std::size_t round = 0; round < testing::rounds(20000); ++round) {
        const auto divisor = static_cast<double>(random.between(1, 1000));
        const double value = static_cast<double>(random.below(1000000)) / divisor;
        const std::string text = toString.visit(value);
        ASSERT_TRUE(text.find_first_of(".e") == std::string::npos || text.back() != '0' ||
                    text.find('e') != std::string::npos)
            << text;
    }
}

} // namespace
} // namespace zt::orvex::internal
