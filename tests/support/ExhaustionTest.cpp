// A program of its own: it replaces the global allocation functions. No test may use what is made on
// first use before it asks for the first use.

#include "testing/Exhaustion.h"
#include "support/Utf16ToUtf8.h"

#include <zt_orvex/support/AllocatorStatistics.h>
#include <zt_orvex/support/Char16Locale.h>
#include <zt_orvex/support/PageSize.h>
#include <zt_orvex/support/Quote.h>
#include <zt_orvex/support/RestrictedExternals.h>
#include <zt_orvex/support/SmallString.h>
#include <zt_orvex/support/StringPool.h>

#include <gtest/gtest.h>

#include <ios>
#include <memory>
#include <sstream>
#include <string>

namespace zt::orvex::internal {
namespace {

using testing::expectRightOrThrow;
using testing::expectRightOrThrowAtFirstUse;

TEST(SupportExhaustion, FirstUseIsRightOrThrows) {
    expectRightOrThrowAtFirstUse([] {
        std::basic_ostringstream<char16_t> stream;
        stream.exceptions(std::ios_base::badbit);
        stream.imbue(getChar16Locale());
        stream << 123456789 << true;
        return stream.str();
    });
    expectRightOrThrowAtFirstUse([] { return getRestrictedExternals().size(); });
    expectRightOrThrowAtFirstUse([] { return getPageSize(); });
}

TEST(SupportExhaustion, TextsAreWholeOrThrow) {
    const std::u16string text(1000, u'\u00E9');
    expectRightOrThrow([&] { return utf16ToUtf8(text); });
    expectRightOrThrow([&] { return quote(text, u'\u00E9'); });
    expectRightOrThrow([] { return SmallString("sixteen bytes...").str(); });
}

TEST(SupportExhaustion, UnquotingNeedsNoMemory) {
    std::u16string text = u"'it''s'";
    const testing::AllocationLimit limit(0);
    EXPECT_EQ(unquote(text.data(), text.size(), u'\''), 4U);
}

/// What a lookup of each short number finds.
std::string contentsOf(const StringPool& pool) {
    std::string found;
    for (int i = 0; i < 100; ++i) {
        const auto value = pool.lookup(std::to_string(i));
        found += value ? utf16ToUtf8(*value) + "," : "-,";
    }
    return found;
}

TEST(SupportExhaustion, PoolingIsAllOrNothing) {
    for (int size = 0; size < 60; ++size) {
        const auto make = [&] {
            auto pool = std::make_unique<StringPool>();
            for (int i = 0; i < size; ++i)
                pool->poolIfShort(std::to_string(i), u"value");
            return pool;
        };
        testing::expectAllOrNothing(
            make,
            [&](StringPool& pool) { pool.poolIfShort(std::to_string(size), u"another value"); },
            contentsOf);
    }
}

} // namespace
} // namespace zt::orvex::internal
