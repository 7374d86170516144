#include "terminal/Wrap.h"

#include <gmock/gmock.h>

namespace ostrel::testing {

namespace {

using ::testing::ElementsAre;

TEST(Wrap, BreaksBetweenWords) {
    EXPECT_THAT(wrap("one two three", 7), ElementsAre("one two", "three"));
    EXPECT_THAT(wrap("one two three", 6), ElementsAre("one", "two", "three"));
    EXPECT_THAT(wrap("one two three", 13), ElementsAre("one two three"));
}

TEST(Wrap, LongWordStaysWhole) {
    EXPECT_THAT(wrap("a incomprehensible b", 5), ElementsAre("a", "incomprehensible", "b"));
}

TEST(Wrap, EmptyTextIsOneLine) { EXPECT_THAT(wrap("", 5), ElementsAre("")); }

TEST(Wrap, CountsColumnsRatherThanBytes) {
    // Two words of four columns each, of six and five bytes.
    EXPECT_THAT(wrap("\xE5\xB9\x85\xE5\xB9\x85 caf\xC3\xA9", 9),
                ElementsAre("\xE5\xB9\x85\xE5\xB9\x85 caf\xC3\xA9"));
    EXPECT_THAT(wrap("\xE5\xB9\x85\xE5\xB9\x85 caf\xC3\xA9", 8),
                ElementsAre("\xE5\xB9\x85\xE5\xB9\x85", "caf\xC3\xA9"));
}

} // namespace

} // namespace ostrel::testing
