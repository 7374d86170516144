#include "support/Utf16ToUtf8.h"

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zt::orvex::internal {
namespace {

using testing::Random;
using testing::rounds;

constexpr char32_t REPLACEMENT = 0xFFFD;

bool isSurrogate(char32_t unit) { return (unit & 0xFFFFF800U) == 0xD800; }

/// Strict: no overlong form, no surrogate, nothing above U+10FFFF. Empty if `bytes` isn't UTF-8.
std::optional<std::u32string> decodeUtf8(std::string_view bytes) {
    std::u32string points;
    for (std::size_t i = 0; i < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[i]);
        const int tail = lead < 0x80             ? 0
                         : (lead & 0xE0) == 0xC0 ? 1
                         : (lead & 0xF0) == 0xE0 ? 2
                         : (lead & 0xF8) == 0xF0 ? 3
                                                 : -1;
        if (tail < 0 || i + static_cast<std::size_t>(tail) >= bytes.size()) return std::nullopt;
        char32_t point = tail == 0 ? lead : lead & (0x3FU >> tail);
        for (int k = 1; k <= tail; ++k) {
            const auto byte = static_cast<unsigned char>(bytes[i + static_cast<std::size_t>(k)]);
            if ((byte & 0xC0) != 0x80) return std::nullopt;
            point = point * 64 + (byte & 0x3FU);
        }
        static constexpr char32_t SMALLEST[] = {0, 0x80, 0x800, 0x10000};
        if (point < SMALLEST[tail] || point > 0x10FFFF || isSurrogate(point)) return std::nullopt;
        points.push_back(point);
        i += static_cast<std::size_t>(tail) + 1;
    }
    return points;
}

/// The code points of `text`, decoded from its end.
std::u32string decodeUtf16(std::u16string_view text) {
    std::u32string reversed;
    for (std::size_t i = text.size(); i > 0; --i) {
        const char32_t unit = text[i - 1];
        const char32_t before = i > 1 ? text[i - 2] : 0;
        if (unit >> 10 == 0x37 && before >> 10 == 0x36) {
            reversed.push_back(0x10000 + (before % 0x400) * 0x400 + unit % 0x400);
            --i;
        } else {
            reversed.push_back(isSurrogate(unit) ? REPLACEMENT : unit);
        }
    }
    return {reversed.rbegin(), reversed.rend()};
}

std::string describe(std::u16string_view text) {
    std::string description;
    for (const char16_t unit : text)
        description += std::to_string(unit) + ' ';
    return description;
}

void expectSamePoints(std::u16string_view text) {
    const auto points = decodeUtf8(utf16ToUtf8(text));
    ASSERT_TRUE(points.has_value()) << describe(text);
    ASSERT_TRUE(*points == decodeUtf16(text)) << describe(text);
}

TEST(Utf16ToUtf8, BoundariesOfTheFourLengthsHaveTheirBytes) {
    EXPECT_EQ(utf16ToUtf8(u""), "");
    EXPECT_EQ(utf16ToUtf8(u"a\u007F"), "a\x7F");
    EXPECT_EQ(utf16ToUtf8(u"\u0080\u07FF"), "\xC2\x80\xDF\xBF");
    EXPECT_EQ(utf16ToUtf8(u"\u0800\uFFFF"), "\xE0\xA0\x80\xEF\xBF\xBF");
    EXPECT_EQ(utf16ToUtf8(u"\U00010000\U0010FFFF"), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(Utf16ToUtf8, ZeroIsAnOrdinaryUnit) {
    EXPECT_EQ(utf16ToUtf8(std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
}

TEST(Utf16ToUtf8, LoneSurrogateGivesOneReplacementAndDropsNothing) {
    const char16_t highThenLetter[] = {0xD800, u'x'};
    EXPECT_EQ(utf16ToUtf8({highThenLetter, 2}), "\xEF\xBF\xBDx");
    const char16_t swapped[] = {0xDC00, 0xD800};
    EXPECT_EQ(utf16ToUtf8({swapped, 2}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    const char16_t highThenPair[] = {0xD800, 0xD83D, 0xDE00};
    EXPECT_EQ(utf16ToUtf8({highThenPair, 3}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

TEST(Utf16ToUtf8, EveryUnitAloneGivesItsCodePoint) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const auto wide = static_cast<char16_t>(unit);
        ASSERT_NO_FATAL_FAILURE(expectSamePoints({&wide, 1}));
    }
}

TEST(Utf16ToUtf8, EveryPairGivesItsCodePoint) {
    for (unsigned high = 0xD800; high <= 0xDBFF; ++high) {
        std::u16string text;
        for (unsigned low = 0xDC00; low <= 0xDFFF; ++low) {
            text.push_back(static_cast<char16_t>(high));
            text.push_back(static_cast<char16_t>(low));
        }
        ASSERT_NO_FATAL_FAILURE(expectSamePoints(text));
    }
}

TEST(Utf16ToUtf8, EveryShortMixOfSurrogatesAndOtherUnitsGivesItsCodePoints) {
    const char16_t units[] = {u'a', u'\u00E9', u'\u20AC', 0xD800, 0xDBFF, 0xDC00, 0xDFFF};
    std::vector<std::u16string> texts = {u""};
    for (std::size_t length = 0; length < 5; ++length) {
        std::vector<std::u16string> longer;
        for (const std::u16string& text : texts) {
            ASSERT_NO_FATAL_FAILURE(expectSamePoints(text));
            for (const char16_t unit : units)
                longer.push_back(text + unit);
        }
        texts = std::move(longer);
    }
}

TEST(Utf16ToUtf8, RandomTextsGiveTheirCodePoints) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < rounds(500); ++round) {
        std::u16string text;
        const std::size_t length = random.below(300);
        while (text.size() < length) {
            const std::size_t base = random.oneIn(2) ? 0xD800 : 0;
            const std::size_t range = base == 0 ? 0x10000 : 0x800;
            text.push_back(static_cast<char16_t>(base + random.below(range)));
        }
        ASSERT_NO_FATAL_FAILURE(expectSamePoints(text));
    }
}

} // namespace
} // namespace zt::orvex::internal
