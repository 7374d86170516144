#include <zt_orvex/support/Quote.h>

#include "support/PlainUnquote.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex {
namespace {

using testing::plainUnquoted;
using testing::plainUnquotedByZero;
using testing::Random;
using testing::rounds;

constexpr std::size_t LARGEST = std::numeric_limits<std::size_t>::max();
constexpr char16_t QUOTE = u'\'';

/// A text and its terminating zero in a buffer of exactly that size, so that a sanitizer notices
/// any access outside it.
class Buffer {
public:
    explicit Buffer(const std::u16string& text)
        : length(text.size()), units(new char16_t[length + 1]) {
        std::copy(text.begin(), text.end(), units.get());
        units[length] = u'\0';
    }

    std::size_t unquoteWith(char16_t quoteChar) { return unquote(units.get(), length, quoteChar); }

    char16_t operator[](std::size_t index) const { return units[index]; }
    std::u16string first(std::size_t count) const { return {units.get(), count}; }

private:
    std::size_t length;
    std::unique_ptr<char16_t[]> units;
};

std::u16string quoted(const std::u16string& text, char16_t quoteChar = QUOTE) {
    return quote(boost::basic_string_ref<char16_t>(text), quoteChar);
}

/// The text that `unquote` leaves; also checks that it is terminated.
std::u16string unquoted(const std::u16string& text, char16_t quoteChar = QUOTE) {
    Buffer buffer(text);
    const std::size_t length = buffer.unquoteWith(quoteChar);
    EXPECT_LE(length, text.size());
    EXPECT_EQ(buffer[length], u'\0');
    return buffer.first(length);
}

/// Calls `check` with every text over `alphabet` of at most `longest` characters.
template <class Check>
void forEachText(const std::u16string& alphabet, std::size_t longest, Check check) {
    std::u16string text;
    std::vector<std::size_t> digits;
    for (std::size_t length = 0; length <= longest; ++length) {
        digits.assign(length, 0);
        text.assign(length, alphabet[0]);
        for (;;) {
            ASSERT_NO_FATAL_FAILURE(check(text));
            std::size_t i = 0;
            while (i < length && digits[i] + 1 == alphabet.size()) {
                digits[i] = 0;
                text[i] = alphabet[0];
                ++i;
            }
            if (i == length) break;
            text[i] = alphabet[++digits[i]];
        }
    }
}

std::u16string randomText(Random& random, std::size_t length, std::u16string_view alphabet) {
    std::u16string text;
    while (text.size() < length)
        text.push_back(random.pick(alphabet));
    return text;
}

const std::u16string ALPHABET = u"'()[]{}x";

// Each further character costs an order of magnitude, and so does a sanitizer.
constexpr std::size_t LONGEST = ZT_ORVEX_TEST_SANITIZED == 0 ? 7 : 6;

TEST(Quote, WrapsAndDoubles) {
    EXPECT_EQ(quoted(u"it's"), u"'it''s'");
    EXPECT_EQ(quoted(u"''"), u"''''''");
    EXPECT_EQ(quoted(u"a\"b"), u"'a\"b'");
    EXPECT_EQ(quoted(u"it's \"so\"", u'"'), u"\"it's \"\"so\"\"\"");
}

TEST(Quote, EmptyTextGivesTwoQuotes) { EXPECT_EQ(quoted(u""), u"''"); }

TEST(Quote, NothingElseIsEscaped) {
    EXPECT_EQ(quoted(std::u16string(u"\\\n\0(", 4)), std::u16string(u"'\\\n\0('", 6));
}

TEST(Quote, AnyCharacterCanBeTheQuote) {
    EXPECT_EQ(quoted(u"a(b", u'('), u"(a((b(");
    EXPECT_EQ(quoted(std::u16string(u"a\0", 2), u'\0'), std::u16string(u"\0a\0\0\0", 5));
    EXPECT_EQ(quoted(u"a\uFFFF", u'\uFFFF'), u"\uFFFFa\uFFFF\uFFFF\uFFFF");
}

TEST(Unquote, TextsOfTheHeader) {
    EXPECT_EQ(unquoted(u"'it''s'"), u"it's");
    EXPECT_EQ(unquoted(u"''"), u"");
    EXPECT_EQ(unquoted(u"'a''"), u"a'");
    EXPECT_EQ(unquoted(u"a'b c'd"), u"ab cd");
    EXPECT_EQ(unquoted(u"f('x')"), u"f('x')");
    EXPECT_EQ(unquoted(u"(')')'x'"), u"('))x");
    EXPECT_EQ(unquoted(u"'a'(1)'b'"), u"a(1)b");
    EXPECT_EQ(unquoted(u"[''b'']"), u"[''b'']");
    EXPECT_EQ(unquoted(u")'a'"), u")a");
}

TEST(Unquote, EmptyTextStaysEmpty) { EXPECT_EQ(unquoted(u""), u""); }

TEST(Unquote, EachKindOfBracketProtectsAndAnyKindCloses) {
    EXPECT_EQ(unquoted(u"['x']"), u"['x']");
    EXPECT_EQ(unquoted(u"{'x'}"), u"{'x'}");
    EXPECT_EQ(unquoted(u"([{'x'}]'y')'z'"), u"([{'x'}]'y')z");
    EXPECT_EQ(unquoted(u"(]'x'"), u"(]x");
}

TEST(Unquote, BracketsInAQuotedRunDoNotCount) {
    EXPECT_EQ(unquoted(u"'('a'b'"), u"(ab");
    EXPECT_EQ(unquoted(u"')'(a'b'"), u")(a'b'");
}

TEST(Unquote, DepthBelowZeroNeedsAsManyOpenBracketsToProtect) {
    EXPECT_EQ(unquoted(u")('a'"), u")(a");
    EXPECT_EQ(unquoted(u")(('a'"), u")(('a'");
}

TEST(Unquote, OpenRunEndsWithTheText) {
    EXPECT_EQ(unquoted(u"'abc"), u"abc");
    EXPECT_EQ(unquoted(u"'"), u"");
    EXPECT_EQ(unquoted(u"'''"), u"'");
    EXPECT_EQ(unquoted(u"''''"), u"'");
}

TEST(Unquote, QuoteCharacterMayBeABracket) {
    EXPECT_EQ(unquoted(u"(a((b(", u'('), u"a(b");
    EXPECT_EQ(unquoted(u"[)a)]", u')'), u"[)a]");
}

TEST(Unquote, TextWithoutQuotesIsNotWritten) {
    static const char16_t text[] = u"f('x')";
    // The characters are in read-only memory.
    EXPECT_EQ(unquote(const_cast<char16_t*>(text), 6, QUOTE), 6U);
}

TEST(Unquote, ZeroInsideTheTextIsAnOrdinaryCharacter) {
    EXPECT_EQ(unquoted(std::u16string(u"'a\0b'", 5)), std::u16string(u"a\0b", 3));
}

TEST(Unquote, LengthBeyondTheTopOfTheAddressSpaceTouchesNothing) {
    const auto expectRefused = [](std::size_t length) {
        char16_t text[] = u"'a'";
        EXPECT_EQ(unquote(text, length, QUOTE), LARGEST) << length;
        EXPECT_EQ(std::u16string(text), u"'a'");
    };
    char16_t anywhere[] = u"x";
    const auto bytesAbove =
        std::numeric_limits<std::uintptr_t>::max() - reinterpret_cast<std::uintptr_t>(anywhere);
    expectRefused(LARGEST);
    expectRefused(LARGEST - 1);
    expectRefused(LARGEST / 2 + 1); // twice as many bytes: 0 in 64 bits
    expectRefused(LARGEST / 2 + 2); // 2 in 64 bits
    expectRefused(LARGEST / 2);
    // At the very top of the address space.
    EXPECT_EQ(unquote(anywhere, bytesAbove / 2, QUOTE), LARGEST);
    EXPECT_EQ(unquote(anywhere, bytesAbove / 2 + 1, QUOTE), LARGEST);
}

TEST(Unquote, QuoteCharacterOfZeroTreatsTheTerminatorAsAQuote) {
    const auto lengthOf = [](const std::u16string& text) {
        return Buffer(text).unquoteWith(u'\0');
    };
    EXPECT_EQ(lengthOf(u""), LARGEST);
    EXPECT_EQ(lengthOf(u"ab"), 1U);
    EXPECT_EQ(lengthOf(u"(ab"), 3U);
    EXPECT_EQ(lengthOf(std::u16string(u"\0a", 2)), 1U);
    EXPECT_EQ(lengthOf(std::u16string(u"\0", 1)), 0U);
}

TEST(Unquote, QuoteCharacterOfZeroNeverReadsOutsideTheBuffer) {
    forEachText(std::u16string(u"\0()x", 4), LONGEST, [](const std::u16string& text) {
        const auto [expected, length] = plainUnquotedByZero(text);
        Buffer buffer(text);
        ASSERT_EQ(buffer.unquoteWith(u'\0'), length);
        ASSERT_EQ(buffer.first(expected.size()), expected);
    });
}

TEST(Unquote, GivesBackEveryShortTextThatWasQuoted) {
    // Brackets in a quoted run don't count, so this also holds with brackets.
    forEachText(ALPHABET, LONGEST, [](const std::u16string& text) {
        Buffer buffer(quoted(text));
        const std::size_t length = buffer.unquoteWith(QUOTE);
        ASSERT_EQ(length, text.size());
        ASSERT_EQ(buffer.first(length), text);
        ASSERT_EQ(buffer[length], u'\0');
    });
}

TEST(Unquote, AgreesWithAPlainOneOnEveryShortText) {
    forEachText(u"'()x", LONGEST, [](const std::u16string& text) {
        ASSERT_EQ(unquoted(text), plainUnquoted(text, QUOTE));
    });
}

TEST(Unquote, AgreesWithAPlainOneOnRandomTexts) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < rounds(3000); ++round) {
        const bool isLong = random.oneIn(100);
        const std::u16string text =
            randomText(random, random.below(isLong ? 20000 : 40), u"''''()[]{}xy\u00E9\xD800");
        ASSERT_EQ(unquoted(text), plainUnquoted(text, QUOTE));
        ASSERT_EQ(unquoted(quoted(text)), text);
        const char16_t quoteChar = random.pick(std::u16string_view(u"'()[]{}x"));
        ASSERT_EQ(unquoted(text, quoteChar), plainUnquoted(text, quoteChar));
        ASSERT_EQ(unquoted(quoted(text, quoteChar), quoteChar), text);
    }
}

} // namespace
} // namespace zt::orvex
