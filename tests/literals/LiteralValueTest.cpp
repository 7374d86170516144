#include <zt_orvex/literals/LiteralValue.h>

#include <zt_orvex/literals/IsNegativeVisitor.h>
#include <zt_orvex/literals/IsOneVisitor.h>
#include <zt_orvex/literals/IsZeroVisitor.h>
#include <zt_orvex/literals/ValueToStringVisitor.h>

#include "literals/IntegerTypes.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <type_traits>

namespace zt::orvex::internal {
namespace {

const double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
const double ENDLESS = std::numeric_limits<double>::infinity();

template <class Visitor>
constexpr bool IS_PLAIN = std::is_empty_v<Visitor> && !std::is_polymorphic_v<Visitor> &&
                          std::is_copy_assignable_v<Visitor> && std::is_move_assignable_v<Visitor>;
static_assert(IS_PLAIN<IsZeroVisitor> && IS_PLAIN<IsOneVisitor> && IS_PLAIN<IsNegativeVisitor> &&
              IS_PLAIN<ValueToStringVisitor>);

template <class Integer>
class IntegerValue : public ::testing::Test {};
TYPED_TEST_SUITE(IntegerValue, testing::IntegerTypes, testing::SuffixOf);

TYPED_TEST(IntegerValue, IsComparedInItsOwnType) {
    using Limits = std::numeric_limits<TypeParam>;
    const TypeParam values[] = {Limits::min(), static_cast<TypeParam>(-1), 0, 1, 2, Limits::max()};
    for (const TypeParam value : values) {
        EXPECT_EQ(IsZeroVisitor().visit(value), value == 0);
        EXPECT_EQ(IsOneVisitor().visit(value), value == 1);
        EXPECT_EQ(IsNegativeVisitor().visit(value),
                  std::is_signed_v<TypeParam> && !(value > 0) && value != 0);
    }
}

TEST(IsZeroVisitor, ComparesDoublesAndImaginaries) {
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

TEST(IsOneVisitor, ComparesDoubles) {
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

TEST(IsNegativeVisitor, ComparesDoubles) {
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

} // namespace
} // namespace zt::orvex::internal
