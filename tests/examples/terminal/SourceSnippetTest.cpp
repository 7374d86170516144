#include "terminal/SourceSnippet.h"

#include "terminal/DisplayText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace ostrel::report::testing {

namespace {

Place placeAt(const SourceText& source, std::size_t offset, std::size_t length) {
    const Position position = source.position(offset);
    return {offset, length, position.line, position.column};
}

SourceSnippet snippet(std::u16string text, std::size_t offset, std::size_t length,
                      std::size_t width = 80) {
    const SourceText source(std::move(text));
    return cutSnippet(source, placeAt(source, offset, length), width);
}

std::size_t widthOf(const std::string& utf8) {
    const SourceText text = SourceText::fromUtf8(utf8).value();
    std::size_t width = 0;
    for (std::size_t i = 0; i < text.size();) {
        const CodePoint next = codePointAt(text.text(), i);
        width += widthAt(width, next.value);
        i += next.length;
    }
    return width;
}

TEST(SourceSnippet, MarksThePlace) {
    const SourceSnippet cut = snippet(u"a = 1;\nbb = ccc;\n", 12, 3);
    EXPECT_EQ(cut.source, "bb = ccc;");
    EXPECT_EQ(cut.marker, "     ^~~");
}

TEST(SourceSnippet, PlaceAtTheEndOfALineIsMarkedAfterIt) {
    const SourceSnippet cut = snippet(u"x = \r\n", 4, 1);
    EXPECT_EQ(cut.source, "x = ");
    EXPECT_EQ(cut.marker, "    ^");
}

TEST(SourceSnippet, EmptyTextHasAPlace) {
    EXPECT_EQ(snippet(u"", 0, 1).marker, "^");
    EXPECT_EQ(snippet(u"x\n", 2, 1).source, "");
}

TEST(SourceSnippet, TabsBecomeBlanksSoThatTheMarkIsAligned) {
    const SourceSnippet cut = snippet(u"\tx\ty = 1;", 3, 1);
    EXPECT_EQ(cut.source, "    x   y = 1;");
    EXPECT_EQ(cut.marker, "        ^");
}

TEST(SourceSnippet, WideCharactersTakeTwoColumnsAndCombiningOnesNone) {
    EXPECT_EQ(snippet(u"'\u5e45' + b", 6, 1).marker, "       ^");
    EXPECT_EQ(snippet(u"'e\u0301' + b", 7, 1).marker, "      ^");
    EXPECT_EQ(snippet(u"'\U0001F600' + b", 7, 1).marker, "       ^");
    EXPECT_EQ(snippet(u"'\u5e45'", 1, 1).marker, " ^~");
}

TEST(SourceSnippet, ControlCharactersAreNotPrinted) {
    EXPECT_EQ(snippet(u"'\x1b[31m' \u2028", 0, 1).source, "'\xEF\xBF\xBD[31m' \xEF\xBF\xBD");
}

TEST(SourceSnippet, CharactersThatChangeTheDirectionAreNamed) {
    const SourceSnippet cut = snippet(u"x = '\u202e\u2066'; y", 10, 1);
    EXPECT_EQ(cut.source, "x = '<U+202E><U+2066>'; y");
    EXPECT_EQ(cut.marker, "                        ^");
    for (const char16_t control : std::u16string(u"\u061C\u200E\u200F\u202A\u202E\u2066\u2069"))
        EXPECT_EQ(snippet(std::u16string(1, control), 0, 1).source.substr(0, 3), "<U+");
}

TEST(SourceSnippet, LongLineIsCutAroundThePlace) {
    const std::u16string line =
        std::u16string(1000, u'a') + u" wrong " + std::u16string(1000, u'b');
    const SourceSnippet cut = snippet(line, 1001, 5, 40);
    EXPECT_EQ(cut.source, "...aaaaaaaaaaaaaaaa wrong bbbbbbbbbbb...");
    EXPECT_EQ(cut.marker, "                    ^~~~~");
}

TEST(SourceSnippet, LineThatJustFitsIsNotCut) {
    const std::u16string line(40, u'a');
    EXPECT_EQ(snippet(line, 39, 1, 40).source.size(), 40U);
    EXPECT_EQ(snippet(line + u"a", 0, 1, 40).source, std::string(37, 'a') + "...");
    EXPECT_EQ(snippet(line + u"a", 41, 1, 40).source, "..." + std::string(17, 'a'));
}

TEST(SourceSnippet, NeverExceedsItsWidthAndMarksTheSameCharacter) {
    const std::u16string line = u"\t'\u5e45\u5e45e\u0301' + \tx\U0001F600" +
                                std::u16string(90, u'\u5e45') + u"\tzz" + std::u16string(30, u'\t');
    for (std::size_t width = 20; width < 60; ++width) {
        for (std::size_t offset = 0; offset < line.size(); ++offset) {
            const SourceSnippet cut = snippet(line, offset, 3, width);
            ASSERT_LE(widthOf(cut.source), width) << offset;
            ASSERT_LE(cut.marker.find('^'), widthOf(cut.source)) << offset;
        }
    }
}

TEST(SourceSnippet, CostDoesNotDependOnTheLengthOfTheLine) {
    const SourceText source(std::u16string(2'000'000, u'('));
    for (std::size_t i = 0; i < 2000; ++i) {
        const Place place{i * 1000, 1, 1, i * 1000 + 1};
        ASSERT_LE(cutSnippet(source, place, 100).source.size(), 100U);
    }
}

} // namespace

} // namespace ostrel::report::testing
