// A program of its own: it replaces the global allocation functions.

#include "testing/AllocationCounter.h"
#include "testing/Widen.h"

#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <new>
#include <string>
#include <thread>

namespace zt::orvex::internal {
namespace {

using testing::allocationsOf;

TEST(LiteralParsingMemory, DoubleCostsOneBuffer) {
    const std::string narrow = "1234567890.12345678901234567890d+15";
    const std::u16string wide = testing::widen(narrow);
    EXPECT_EQ(allocationsOf([&] { parseDoubleLiteral(narrow); }), 1U);
    EXPECT_EQ(allocationsOf([&] { parseDoubleLiteral(wide); }), 1U);
    const std::string longNarrow(100000, '7');
    const std::u16string longWide(100000, u'7');
    EXPECT_EQ(allocationsOf([&] { parseDoubleLiteral(longNarrow); }), 1U);
    EXPECT_EQ(allocationsOf([&] { parseDoubleLiteral(longWide); }), 1U);
}

TEST(LiteralParsingMemory, BufferIsFreedWhenConversionThrows) {
    const auto fail = [] {
        EXPECT_ANY_THROW(parseDoubleLiteral("a text that is long enough for the heap"));
        EXPECT_ANY_THROW(parseDoubleLiteral(u"a text that is long enough for the heap"));
    };
    fail(); // builds what is built on first use
    EXPECT_EQ(testing::costOf(fail).living(), 0U);
}

TEST(LiteralParsingMemory, IntegersCostNoneAfterTheFirstOnAThread) {
    const auto parseAll = [] {
        parseBinaryLiteral("0b10110111000101110010u32");
        parseBinaryLiteral(u"0b10110111000101110010u32");
        parseHexLiteral("0xFFFFFFFFFFFFFFFFs64");
        parseHexLiteral(u"0xFFFFFFFFFFFFFFFFs64");
    };
    parseAll();
    EXPECT_EQ(allocationsOf(parseAll), 0U);
}

TEST(LiteralParsingMemory, WideValidationCostsNoneAfterTheFirstOnAThread) {
    const auto validateAll = [] {
        validateBinaryLiteral(u"0b10110111000101110010u32");
        validateHexLiteral(u"0xFFFFFFFFFFFFFFFFs64");
        validateDoubleLiteral(u"1234567890.12345678901234567890d+15");
    };
    validateAll();
    EXPECT_EQ(allocationsOf(validateAll), 0U);
}

/// Makes the first call on a new thread fail at each of its allocations in turn; the next call must
/// succeed.
void expectSecondTryToWork(const std::function<bool()>& works) {
    bool hasFailed = true;
    for (std::size_t allowed = 0; hasFailed; ++allowed) {
        ASSERT_LT(allowed, 10000U);
        bool hasWorked = false;
        std::thread([&] {
            try {
                const testing::AllocationLimit limit(allowed);
                hasWorked = works();
                hasFailed = false;
            } catch (const std::bad_alloc&) {
                hasWorked = works();
            }
        }).join();
        EXPECT_TRUE(hasWorked) << allowed;
    }
}

TEST(LiteralParsingMemory, CompilationThatFailsIsTriedAgain) {
    constexpr auto VALID = LiteralValidationResult::Valid;
    expectSecondTryToWork([] { return validateBinaryLiteral("0b1") == VALID; });
    expectSecondTryToWork([] { return validateBinaryLiteral(u"0b1") == VALID; });
    expectSecondTryToWork([] { return validateHexLiteral("0x1") == VALID; });
    expectSecondTryToWork([] { return validateHexLiteral(u"0x1") == VALID; });
    expectSecondTryToWork([] { return validateDoubleLiteral("1") == VALID; });
    expectSecondTryToWork([] { return validateDoubleLiteral(u"1") == VALID; });
    expectSecondTryToWork([] { return parseBinaryLiteral("0b1").which() == 0; });
    expectSecondTryToWork([] { return parseBinaryLiteral(u"0b1").which() == 0; });
    expectSecondTryToWork([] { return parseHexLiteral("0x1").which() == 0; });
    expectSecondTryToWork([] { return parseHexLiteral(u"0x1").which() == 0; });
}

} // namespace
} // namespace zt::orvex::internal
