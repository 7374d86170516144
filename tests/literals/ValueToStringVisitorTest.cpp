#include <zt_orvex/literals/ValueToStringVisitor.h>

#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>

#include "literals/GlobalLocale.h"
#include "literals/IntegerTypes.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace zt::orvex::internal {
namespace {

using testing::CommaAndGroups;
using testing::GlobalLocale;
using testing::PairGroups;
using testing::Random;

const double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
const double ENDLESS = std::numeric_limits<double>::infinity();

template <class Integer>
class IntegerText : public ::testing::Test {};
TYPED_TEST_SUITE(IntegerText, testing::IntegerTypes, testing::SuffixOf);

TYPED_TEST(IntegerText, ReadsBackAsTheSameTypeAndBits) {
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

TYPED_TEST(IntegerText, ReadsBackUnderAGlobalLocaleThatGroups) {
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

TEST(ValueToStringVisitor, DoubleHasTheShortestForm) {
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

TEST(ValueToStringVisitor, DoublesThatDifferAfterFifteenDigitsPrintAlike) {
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

} // namespace
} // namespace zt::orvex::internal
