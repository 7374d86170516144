#include <zt_orvex/literals/NumberConversionError.h>

#include <gtest/gtest.h>

#include <exception>
#include <memory>
#include <string>
#include <type_traits>

namespace zt::orvex::internal {
namespace {

static_assert(std::is_base_of_v<std::exception, NumberConversionError>);

TEST(NumberConversionError, MessageNamesTextAndReason) {
    const NumberConversionError error("abc", "Too strange");
    EXPECT_EQ(error.getText(), "abc");
    EXPECT_EQ(error.getReason(), "Too strange");
    EXPECT_EQ(error.getMessage(), "Conversion failed converting 'abc' Reason: Too strange");
    EXPECT_STREQ(error.what(), "Conversion failed converting 'abc' Reason: Too strange");
}

TEST(NumberConversionError, ReasonIsNotSpecifiedByDefault) {
    const NumberConversionError error("102");
    EXPECT_EQ(error.getReason(), "Not Specified");
    EXPECT_STREQ(error.what(), "Conversion failed converting '102' Reason: Not Specified");
}

TEST(NumberConversionError, IsCaughtAsAStandardException) {
    try {
        throw NumberConversionError("x");
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "Conversion failed converting 'x' Reason: Not Specified");
    }
}

TEST(NumberConversionError, CopyOwnsItsTexts) {
    auto original = std::make_unique<NumberConversionError>("x", "y");
    const NumberConversionError copy(*original);
    NumberConversionError assigned("z");
    assigned = *original;
    original.reset();
    EXPECT_STREQ(copy.what(), "Conversion failed converting 'x' Reason: y");
    EXPECT_STREQ(assigned.what(), "Conversion failed converting 'x' Reason: y");
}

} // namespace
} // namespace zt::orvex::internal
