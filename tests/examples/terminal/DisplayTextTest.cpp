#include "terminal/DisplayText.h"

#include "source/Utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utf8proc.h>

namespace ostrel::testing {

namespace {

constexpr char32_t FIRST_AFTER_UNICODE = 0x110000;

utf8proc_category_t categoryOf(char32_t character) {
    return utf8proc_category(static_cast<utf8proc_int32_t>(character));
}

/// What is shown for a character at the beginning of a line.
DisplayText shown(char32_t character) {
    DisplayText text;
    appendForDisplay(text, character);
    return text;
}

std::u32string decoded(std::string_view utf8) {
    std::u32string text;
    for (std::size_t at = 0; at < utf8.size();) {
        char32_t character = 0;
        const std::size_t length = readCodePoint(utf8, at, character);
        if (length == 0) return U"\x1b"; // not UTF-8, which is as bad as a control character
        text += character;
        at += length;
    }
    return text;
}

bool isControl(char32_t character) {
    switch (categoryOf(character)) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
    case UTF8PROC_CATEGORY_CS:
        return true;
    default:
        return false;
    }
}

std::string utf8Of(char32_t character) {
    std::string text;
    appendUtf8(text, character);
    return text;
}

TEST(DisplayText, WidthOfEachCharacterIsThatOfWhatIsPrinted) {
    for (char32_t each = 0; each < FIRST_AFTER_UNICODE; ++each) {
        const DisplayText text = shown(each);
        std::size_t width = 0;
        for (const char32_t printed : decoded(text.utf8)) {
            width += static_cast<std::size_t>(
                utf8proc_charwidth(static_cast<utf8proc_int32_t>(printed)));
        }
        ASSERT_EQ(text.width, width) << codePointName(each);
        ASSERT_EQ(widthAt(0, each), width) << codePointName(each);
    }
}

TEST(DisplayText, NoCharacterIsPrintedAsAControl) {
    for (char32_t each = 0; each < FIRST_AFTER_UNICODE; ++each) {
        for (const char32_t printed : decoded(shown(each).utf8))
            ASSERT_FALSE(isControl(printed)) << codePointName(each);
        // As bytes, a surrogate is no UTF-8.
        for (const char32_t printed : decoded(displayed(utf8Of(each))))
            ASSERT_FALSE(isControl(printed)) << codePointName(each);
    }
}

TEST(DisplayText, PrintableCharactersStandForThemselves) {
    for (const char32_t each : std::u32string(U" ~a\u00E9\u5E45\U0001F600\uE000\u200B"))
        EXPECT_EQ(shown(each).utf8, utf8Of(each)) << codePointName(each);
}

TEST(DisplayText, CombiningCharactersTakeNoColumnAndWideOnesTwo) {
    EXPECT_EQ(widthAt(0, U'\u0301'), 0U);
    EXPECT_EQ(widthAt(0, U'\u00E9'), 1U);
    EXPECT_EQ(widthAt(0, U'\u5E45'), 2U);
    EXPECT_EQ(widthAt(0, U'\U0001F600'), 2U);
    EXPECT_EQ(displayText("e\xCC\x81\xE5\xB9\x85").width, 3U);
}

TEST(DisplayText, PrivateCharacterTakesOneColumn) {
    EXPECT_EQ(shown(0xE000).width, 1U);
    EXPECT_EQ(shown(0x10FFFD).width, 1U);
}

TEST(DisplayText, UnassignedCharacterIsNamed) {
    EXPECT_EQ(shown(0x0378).utf8, "<U+0378>");
    EXPECT_EQ(shown(0xFFFF).utf8, "<U+FFFF>");
    EXPECT_EQ(shown(0x10FFFF).utf8, "<U+10FFFF>");
}

TEST(DisplayText, ControlsSeparatorsAndSurrogatesAreReplaced) {
    for (const char32_t each : {0x00U, 0x0AU, 0x1BU, 0x7FU, 0x9BU, 0x2028U, 0x2029U, 0xD800U})
        EXPECT_EQ(shown(each).utf8, "\xEF\xBF\xBD") << codePointName(each);
}

TEST(DisplayText, CharactersThatChangeTheDirectionAreNamed) {
    EXPECT_EQ(shown(0x202E).utf8, "<U+202E>");
    EXPECT_EQ(shown(0x061C).utf8, "<U+061C>");
}

TEST(DisplayText, EachByteThatIsNotUtf8IsReplaced) {
    EXPECT_EQ(displayed("a\xFF\xC3z"), "a\xEF\xBF\xBD\xEF\xBF\xBDz");
}

TEST(DisplayText, LinesStayApart) {
    EXPECT_EQ(displayedLines("a\x1b\n\n\tb\n"), "a\xEF\xBF\xBD\n\n    b\n");
    EXPECT_EQ(displayedLines("a\nb"), "a\nb");
    EXPECT_EQ(displayedLines(""), "");
}

TEST(DisplayText, TellsWhetherATextIsSafe) {
    EXPECT_FALSE(hasUnsafeCharacter("a\n\xC3\xA9\xF0\x9F\x98\x80"));
    for (const char* text : {"\x1b", "\x7F", "\r", "\xC2\x9B", "\xE2\x80\xA8", "\xE2\x80\xAE"})
        EXPECT_TRUE(hasUnsafeCharacter(std::string("a") + text + "b")) << text;
}

} // namespace

} // namespace ostrel::testing
