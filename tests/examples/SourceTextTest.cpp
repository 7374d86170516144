#include "source/SourceText.h"
#include "source/Utf8.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

TEST(SourceText, LinesEndAtLfCrlfOrCr) {
    const SourceText text(u"a\nb\r\nc\rd");
    ASSERT_EQ(text.lineCount(), 4U);
    EXPECT_EQ(text.line(1), u"a");
    EXPECT_EQ(text.line(2), u"b");
    EXPECT_EQ(text.line(3), u"c");
    EXPECT_EQ(text.line(4), u"d");
}

TEST(SourceText, ColumnsCountCodePoints) {
    const auto text = SourceText::fromUtf8("\xF0\x9F\x99\x82\xC3\xA9x\n y");
    ASSERT_TRUE(text);
    const std::size_t x = text->text().find(u'x');
    EXPECT_EQ(x, 3U); // the first character takes two units
    EXPECT_EQ(text->position(x).column, 3U);
    EXPECT_EQ(text->position(text->text().find(u'y')).line, 2U);
    EXPECT_EQ(text->position(text->text().find(u'y')).column, 2U);
}

TEST(SourceText, PositionAgreesWithCounting) {
    const auto text = SourceText::fromUtf8("ab\r\n\xF0\x9F\x99\x82"
                                           "c\xF0\x9F\x99\x82\xF0\x9F\x99\x82\r\rd\n");
    Position expected{1, 1};
    for (std::size_t offset = 0; offset <= text->size(); ++offset) {
        const Position actual = text->position(offset);
        EXPECT_EQ(actual.line, expected.line) << offset;
        EXPECT_EQ(actual.column, expected.column) << offset;
        if (!isLowSurrogate(text->at(offset))) ++expected.column;
        const bool isInCrLf = text->at(offset) == u'\r' && text->at(offset + 1) == u'\n';
        const bool isLineEnd = text->at(offset) == u'\n' || text->at(offset) == u'\r';
        if (isLineEnd && !isInCrLf) expected = {expected.line + 1, 1};
    }
}

TEST(SourceText, PositionBeyondTheEndIsTheEnd) {
    EXPECT_EQ(SourceText(u"ab").position(9).column, 3U);
}

TEST(SourceText, ByteOrderMarkIsNotPartOfTheText) {
    EXPECT_EQ(SourceText::fromUtf8("\xEF\xBB\xBFx")->text(), u"x");
}

TEST(SourceText, InvalidUtf8IsRejected) {
    for (const char* wrong : {"\x80", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                              "\xE2\x82", "\xFF", "a\xC3(", "\xF0\x80\x80\x80"}) {
        EXPECT_FALSE(SourceText::fromUtf8(wrong)) << wrong;
    }
    EXPECT_EQ(SourceText::validUtf8Prefix("ab\xC3(x"), 2U);
}

TEST(SourceText, Utf8SurvivesTheRoundTripThroughUtf16) {
    const std::string all = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x99\x82";
    EXPECT_EQ(toUtf8(SourceText::fromUtf8(all)->text()), all);
    EXPECT_EQ(toUtf8(std::u16string(1, char16_t{0xD800})), "\xEF\xBF\xBD");
}

} // namespace
} // namespace ostrel
