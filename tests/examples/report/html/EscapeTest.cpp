#include "report/html/Escape.h"

#include <gmock/gmock.h>

namespace ostrel::report {

using ::testing::HasSubstr;

TEST(Escape, NoCharacterOfMarkupRemains) {
    EXPECT_EQ(escaped("</script><!-- \"a\" & 'b' -->"),
              "&lt;/script&gt;&lt;!-- &quot;a&quot; &amp; &#39;b&#39; --&gt;");
    EXPECT_EQ(escaped(u"<\u00E9>"), "&lt;\xC3\xA9&gt;");
    EXPECT_EQ(escapedValue("\" onclick='x'"), "&quot; onclick=&#39;x&#39;");
}

TEST(Escape, CharacterThatChangesTheDirectionIsABoxedName) {
    EXPECT_EQ(escaped("\xE2\x80\xAE"),
              "<span class=\"boxed\" title=\"changes the direction of writing\">U+202E</span>");
    EXPECT_THAT(escaped(u"\u061C"), HasSubstr(">U+061C</span>"));
}

TEST(Escape, ControlCharactersOtherThanTabsAreBoxedNames) {
    EXPECT_EQ(escaped("\x1b"), "<span class=\"boxed\" title=\"a control character\">U+001B</span>");
    EXPECT_THAT(escaped(u"\u2028"), HasSubstr(">U+2028</span>"));
    EXPECT_THAT(escaped(std::u16string_view(u"\0", 1)), HasSubstr(">U+0000</span>"));
    EXPECT_EQ(escaped("a\tb"), "a\tb");
}

TEST(Escape, ByteThatIsNotUtf8IsABoxedReplacementCharacter) {
    EXPECT_EQ(escaped("a\xFF"), "a<span class=\"boxed\" title=\"a byte that is not "
                                "UTF-8\">\xEF\xBF\xBD</span>");
}

TEST(Escape, LoneSurrogateBecomesAReplacementCharacter) {
    EXPECT_EQ(escaped(u"a\xD800"), "a\xEF\xBF\xBD");
}

TEST(Escape, ValueOfAnAttributeHasNoBoxes) {
    EXPECT_EQ(escapedValue("a\x1b\xE2\x80\xAE\xFF"), "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

} // namespace ostrel::report
