#include <zt_orvex/support/ConvertibleBasicStringView.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>

namespace {

using View = ConvertibleBasicStringView<char16_t>;
using NarrowView = ConvertibleBasicStringView<char>;

/// Takes its argument through one implicit conversion, as the functions of the library do.
std::u16string received(View text) { return std::u16string(text); }
std::string receivedNarrow(NarrowView text) { return std::string(text); }

std::string overloaded(std::u16string_view) { return "std"; }
std::string overloaded(const std::u16string&) = delete;

TEST(ConvertibleBasicStringView, DefaultViewIsEmpty) {
    constexpr View view;
    EXPECT_TRUE(view.empty());
    EXPECT_EQ(view.size(), 0U);
    EXPECT_EQ(view.data(), nullptr);
    EXPECT_EQ(view.begin(), view.end());
}

TEST(ConvertibleBasicStringView, LiteralConverts) {
    EXPECT_EQ(received(u"abc"), u"abc");
    EXPECT_EQ(receivedNarrow("abc"), "abc");
    EXPECT_EQ(received(u""), u"");
}

TEST(ConvertibleBasicStringView, LiteralEndsAtItsFirstZero) {
    EXPECT_EQ(received(u"ab\0c"), u"ab");
    EXPECT_EQ(View(u"ab\0c", 4).size(), 4U);
}

TEST(ConvertibleBasicStringView, StandardStringConvertsWithZerosInside) {
    const std::u16string text(u"a\0b", 3);
    const View view = text;
    EXPECT_EQ(view.data(), text.data());
    EXPECT_EQ(received(text), text);
    EXPECT_EQ(receivedNarrow(std::string("x")), "x");
}

TEST(ConvertibleBasicStringView, StandardViewConvertsBothWays) {
    const std::u16string_view text = u"abc";
    EXPECT_EQ(received(text), u"abc");
    const std::u16string_view back = View(text);
    EXPECT_EQ(back.data(), text.data());
    EXPECT_EQ(back.size(), text.size());
}

TEST(ConvertibleBasicStringView, BoostReferenceConverts) {
    const boost::basic_string_ref<char16_t> text(u"abc");
    EXPECT_EQ(received(text), u"abc");
    EXPECT_EQ(receivedNarrow(boost::string_ref("x")), "x");
}

TEST(ConvertibleBasicStringView, ConvertsOnlyToTheStandardView) {
    static_assert(std::is_convertible_v<View, std::u16string_view>);
    static_assert(!std::is_convertible_v<View, std::u16string>);
    static_assert(!std::is_convertible_v<View, boost::basic_string_ref<char16_t>>);
    static_assert(!std::is_convertible_v<View, const char16_t*>);
    static_assert(!std::is_convertible_v<View, NarrowView>);
    EXPECT_EQ(overloaded(View(u"a")), "std");
}

TEST(ConvertibleBasicStringView, IsAPointerAndALength) {
    static_assert(sizeof(View) == sizeof(void*) + sizeof(std::size_t));
    const char16_t* const text = u"abc";
    const View view(text, 2);
    EXPECT_EQ(view.data(), text);
    EXPECT_EQ(view.size(), 2U);
    EXPECT_EQ(view[1], u'b');
    EXPECT_EQ(view.end(), text + 2);
}

TEST(ConvertibleBasicStringView, ComparesCharactersWithEveryKindOfText) {
    const View view = u"abc";
    EXPECT_TRUE(view == View(std::u16string(u"abc")));
    EXPECT_TRUE(view != View(u"abd"));
    EXPECT_TRUE(view == u"abc");
    EXPECT_TRUE(u"abc" == view);
    EXPECT_TRUE(view == std::u16string(u"abc"));
    EXPECT_TRUE(std::u16string(u"abc") == view);
    EXPECT_TRUE(view == std::u16string_view(u"abc"));
    EXPECT_TRUE(std::u16string_view(u"abc") == view);
    EXPECT_TRUE(view == boost::basic_string_ref<char16_t>(u"abc"));
    EXPECT_TRUE(view != std::u16string_view(u"ab"));
    EXPECT_TRUE(u"ab" != view);
    EXPECT_FALSE(View() != u"");
}

} // namespace
