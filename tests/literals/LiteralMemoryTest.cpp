// A program of its own, for it counts allocations, and has them fail.

#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <limits>
#include <new>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t UNLIMITED = std::numeric_limits<std::size_t>::max();

thread_local std::size_t allocations = 0;
thread_local std::size_t releases = 0;
thread_local std::size_t allocationsAllowed = UNLIMITED;

} // namespace

void* operator new(std::size_t size) {
    if (allocations >= allocationsAllowed) throw std::bad_alloc();
    ++allocations;
    if (void* const block = std::malloc(size == 0 ? 1 : size)) return block;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete(void* block) noexcept {
    if (block != nullptr) ++releases;
    std::free(block);
}
void operator delete[](void* block) noexcept { operator delete(block); }
void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
void operator delete[](void* block, std::size_t) noexcept { operator delete(block); }

namespace zt::orvex::internal {
namespace {

template <class Call>
std::size_t allocationsOf(Call call) {
    const std::size_t before = allocations;
    call();
    return allocations - before;
}

TEST(LiteralMemory, DoubleCostsOneBuffer) {
    const std::string narrow = "1234567890.12345678901234567890d+15";
    const std::u16string wide(narrow.begin(), narrow.end());
    EXPECT_EQ(allocationsOf([&] { parseDoubleLiteral(narrow); }), 1U);
    EXPECT_EQ(allocationsOf([&] { parseDoubleLiteral(wide); }), 1U);
    const std::string longNarrow(100000, '7');
    const std::u16string longWide(100000, u'7');
    EXPECT_EQ(allocationsOf([&] { parseDoubleLiteral(longNarrow); }), 1U);
    EXPECT_EQ(allocationsOf([&] { parseDoubleLiteral(longWide); }), 1U);
}

TEST(LiteralMemory, BufferIsFreedWhenConversionThrows) {
    const auto fail = [] {
        EXPECT_ANY_THROW(parseDoubleLiteral("a text that is long enough for the heap"));
        EXPECT_ANY_THROW(parseDoubleLiteral(u"a text that is long enough for the heap"));
    };
    fail(); // what is built on first use stays
    const std::size_t live = allocations - releases;
    fail();
    EXPECT_EQ(allocations - releases, live);
}

TEST(LiteralMemory, IntegersCostNoneAfterTheFirstOnAThread) {
    const auto parseAll = [] {
        parseBinaryLiteral("0b10110111000101110010u32");
        parseBinaryLiteral(u"0b10110111000101110010u32");
        parseHexLiteral("0xFFFFFFFFFFFFFFFFs64");
        parseHexLiteral(u"0xFFFFFFFFFFFFFFFFs64");
    };
    parseAll();
    EXPECT_EQ(allocationsOf(parseAll), 0U);
}

TEST(LiteralMemory, WideValidationCostsNoneAfterTheFirstOnAThread) {
    const auto validateAll = [] {
        validateBinaryLiteral(u"0b10110111000101110010u32");
        validateHexLiteral(u"0xFFFFFFFFFFFFFFFFs64");
        validateDoubleLiteral(u"1234567890.12345678901234567890d+15");
    };
    validateAll();
    EXPECT_EQ(allocationsOf(validateAll), 0U);
}

/// Lets the first call on a fresh thread fail at each of its allocations in turn, and has the next
/// one do the work.
void expectSecondTryToWork(const std::function<bool()>& works) {
    bool hasFailed = true;
    for (std::size_t allowed = 0; hasFailed; ++allowed) {
        ASSERT_LT(allowed, 10000U);
        bool hasWorked = false;
        std::thread([&] {
            try {
                allocations = 0;
                allocationsAllowed = allowed;
                hasWorked = works();
                hasFailed = false;
            } catch (const std::bad_alloc&) {
                allocationsAllowed = UNLIMITED;
                hasWorked = works();
            }
            allocationsAllowed = UNLIMITED;
        }).join();
        EXPECT_TRUE(hasWorked) << allowed;
    }
}

TEST(LiteralMemory, CompilationThatFailsIsTriedAgain) {
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
