#include <zt_orvex/support/SmallString.h>

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace zt::orvex::internal {
namespace {

using testing::Random;
using testing::rounds;

using View = ConvertibleBasicStringView<char>;

std::string padded(std::string text) {
    text.resize(SmallString::MAX_LENGTH, '\0');
    return text;
}

/// Eight bytes of a padded text as a little-endian number.
std::uint64_t wordAt(const std::string& text, std::size_t offset) {
    std::uint64_t word = 0;
    for (std::size_t i = 8; i > 0; --i) {
        word = word * 256 + static_cast<unsigned char>(text[offset + i - 1]);
    }
    return word;
}

std::string randomText(Random& random, std::size_t length) {
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
        text.push_back(static_cast<char>(random.below(256)));
    return text;
}

/// Makes each `SmallString` from a buffer of exactly its size, so that a sanitizer notices any byte
/// that is read outside it.
SmallString fromExactBuffer(const std::string& text) {
    const std::unique_ptr<char[]> buffer(new char[text.size()]);
    std::copy(text.begin(), text.end(), buffer.get());
    return SmallString(View(buffer.get(), text.size()));
}

TEST(SmallString, TakesSixteenBytes) {
    static_assert(sizeof(SmallString) == 16);
    static_assert(SmallString::MAX_LENGTH == 16);
    static_assert(std::is_same_v<decltype(SmallString::MAX_LENGTH), const std::size_t>);
}

TEST(SmallString, GivesBackEveryLengthUpToSixteen) {
    const std::string text = "abcdefghijklmnop";
    for (std::size_t length = 0; length <= 16; ++length) {
        EXPECT_EQ(fromExactBuffer(text.substr(0, length)).str(), text.substr(0, length));
    }
}

TEST(SmallString, EmptyTextIsAllZeros) {
    const SmallString empty("");
    EXPECT_EQ(empty.str(), "");
    EXPECT_EQ(empty.hashCode(), 0U);
    EXPECT_TRUE(empty == SmallString(View()));
    EXPECT_TRUE(empty == SmallString(View("\0\0\0", 3)));
}

TEST(SmallString, HashIsHighWordTimes29PlusLowWord) {
    EXPECT_EQ(SmallString("a").hashCode(), 0x61U);
    EXPECT_EQ(SmallString("ab").hashCode(), 0x6261U);
    EXPECT_EQ(SmallString("abcdefgh").hashCode(), 0x6867666564636261U);
    EXPECT_EQ(SmallString(View("\0\0\0\0\0\0\0\0\1", 9)).hashCode(), 29U);
    EXPECT_EQ(SmallString("abcdefghi").hashCode(), 0x6867666564636261U + 29 * 0x69);
}

TEST(SmallString, HashWrapsAt64Bits) {
    const std::string ones(16, '\xFF');
    EXPECT_EQ(SmallString(ones).hashCode(), static_cast<std::size_t>(-30));
}

TEST(SmallString, ZeroInsideIsComparedButCutsTheTextShort) {
    const SmallString a(View("a\0b", 3));
    const SmallString b(View("a\0c", 3));
    EXPECT_TRUE(a != b);
    EXPECT_FALSE(a == b);
    EXPECT_EQ(a.str(), "a");
    EXPECT_EQ(b.str(), "a");
}

TEST(SmallString, ZeroAtTheEndMakesNoDifference) {
    EXPECT_TRUE(SmallString("a") == SmallString(View("a\0", 2)));
    EXPECT_FALSE(SmallString("a") != SmallString(View("a\0", 2)));
}

TEST(SmallString, AnySingleByteDistinguishesTwoTexts) {
    for (std::size_t i = 0; i < 16; ++i) {
        std::string text(16, 'x');
        const SmallString a(text);
        text[i] = 'y';
        EXPECT_TRUE(a != SmallString(text)) << i;
        EXPECT_FALSE(a == SmallString(text)) << i;
    }
}

TEST(SmallString, AssignmentCopiesAndLeavesTheSource) {
    SmallString a("a");
    SmallString b("bb");
    const SmallString copy(a);
    EXPECT_EQ(copy.str(), "a");
    EXPECT_EQ(&(a = b), &a);
    EXPECT_EQ(a.str(), "bb");
    SmallString c("c");
    EXPECT_EQ(&(c = std::move(b)), &c);
    EXPECT_EQ(c.str(), "bb");
    EXPECT_EQ(b.str(), "bb");
    EXPECT_EQ(SmallString(std::move(b)).str(), "bb");
}

TEST(SmallString, AgreesWithAPlainPaddedText) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < rounds(20000); ++round) {
        const std::string a = randomText(random, random.below(17));
        std::string b = a;
        if (!b.empty()) b[random.below(b.size())] = static_cast<char>(random.below(256));
        const SmallString smallA = fromExactBuffer(a);
        const SmallString smallB = fromExactBuffer(b);
        ASSERT_EQ(smallA == smallB, padded(a) == padded(b));
        ASSERT_EQ(smallA != smallB, padded(a) != padded(b));
        ASSERT_EQ(smallA.hashCode(), wordAt(padded(a), 8) * 29 + wordAt(padded(a), 0));
        ASSERT_EQ(smallA.str(), std::string(a.c_str()));
    }
}

} // namespace
} // namespace zt::orvex::internal
