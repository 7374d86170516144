#include "literals/TrailingZeros.h"

#include <zt_orvex/literals/ValueToStringVisitor.h>

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <string>

namespace zt::orvex::internal {
namespace {

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

TEST(TrailingZeros, TextsThatArentPlainFractionsStay) {
    for (const char* const text :
         {"", "100", "-0", "1e+20", "1.50e10", "inf", "nan", "+1.50", ".50", "1,50", "1.5"})
        EXPECT_EQ(dropTrailingZeros(text), text);
}

TEST(TrailingZeros, TextOfADoubleNeverHasAny) {
    testing::Random random;
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
