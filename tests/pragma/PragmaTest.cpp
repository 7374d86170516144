#include <zt_orvex/pragma/Pragma.h>

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace zt::orvex {
namespace {

using std::u16string_view;

template <class T, class = void>
constexpr bool HAS_COMPARISON = false;
template <class T>
constexpr bool
    HAS_COMPARISON<T, std::void_t<decltype(std::declval<const T&>() == std::declval<const T&>())>> =
        true;

static_assert(std::is_copy_constructible_v<Pragma> && std::is_move_constructible_v<Pragma>);
static_assert(!std::is_copy_assignable_v<Pragma> && !std::is_move_assignable_v<Pragma>);
static_assert(!std::is_default_constructible_v<Pragma>);
static_assert(!HAS_COMPARISON<Pragma> && HAS_COMPARISON<int>);

const char* const NO_PRAGMA = "Pragmas must be O_COMMENTS that begin with `%#`.";

Pragma parse(u16string_view text, unsigned position = 0) {
    const boost::optional<Pragma> pragma = parsePragma(text, position);
    EXPECT_TRUE(pragma.has_value());
    return *pragma;
}

u16string_view trim(u16string_view arguments) {
    static std::u16string text;
    static boost::optional<Pragma> pragma;
    text = u"%#ok";
    text += arguments;
    pragma.emplace(PragmaKind::ok, text, 0U, 4U);
    return pragma->getTrimmedArgumentsText();
}

std::string print(const Pragma& pragma) {
    std::ostringstream stream;
    stream << pragma;
    return stream.str();
}

TEST(ParsePragma, TextThatIsntAPragmaCommentThrows) {
    for (const u16string_view text : {u"", u"%", u"#", u"% foo", u"abc", u"% #ok", u"%%#ok"}) {
        try {
            parsePragma(text, 0);
            ADD_FAILURE() << text.size();
        } catch (const std::invalid_argument& error) {
            EXPECT_STREQ(error.what(), NO_PRAGMA);
        }
    }
}

TEST(ParsePragma, FirstCharacterIsntChecked) {
    EXPECT_EQ(parse(u"##ok").getKind(), PragmaKind::ok);
    EXPECT_EQ(parse(u"x#ok").getKind(), PragmaKind::ok);
    EXPECT_EQ(parse(u"\u2020#ok").getKind(), PragmaKind::ok);
}

TEST(ParsePragma, TextWithoutAWordGivesNothing) {
    for (const u16string_view text : {u"%#", u"%# ", u"%#\t \t", u"%#1a", u"%#_a", u"%#,a", u"%#(a",
                                      u"%# ,ok", u"%#\u00E9", u"%#\nok", u"%#%ok", u"%#\u00A0ok"})
        EXPECT_FALSE(parsePragma(text, 0)) << text.size();
}

TEST(ParsePragma, WordMayFollowTabsAndBlanks) {
    for (const u16string_view text :
         {u"%#function", u"%#  function a b", u"%#\t\tfunction\t", u"%# \t function(x)"})
        EXPECT_EQ(parse(text).getKind(), PragmaKind::function);
}

TEST(ParsePragma, WordEndsAtTheFirstOtherCharacter) {
    EXPECT_TRUE(parse(u"%#ok(x)").getPragmaName() == u"ok");
    EXPECT_TRUE(parse(u"%#ok,x").getPragmaName() == u"ok");
    EXPECT_TRUE(parse(u"%#ok\u00E9").getPragmaName() == u"ok");
    EXPECT_TRUE(parse(u"%#a_1Z9-b").getPragmaName() == u"a_1Z9");
    EXPECT_TRUE(parse(std::u16string(u"%#ok\0z", 6)).getPragmaName() == u"ok");
    EXPECT_EQ(parse(u"%#ok(x)").getKind(), PragmaKind::ok);
    EXPECT_EQ(parse(u"%#ok_").getKind(), PragmaKind::UNRECOGNIZED);
}

TEST(ParsePragma, UnknownWordStillMakesAPragma) {
    const Pragma pragma = parse(u"%#Function a");
    EXPECT_EQ(pragma.getKind(), PragmaKind::UNRECOGNIZED);
    EXPECT_TRUE(pragma.getPragmaName() == u"Function");
    EXPECT_EQ(parse(u"%#UNRECOGNIZED").getKind(), PragmaKind::UNRECOGNIZED);
    EXPECT_EQ(parse(u"%#TestStandardRun").getKind(), PragmaKind::TestStandard);
}

TEST(ParsePragma, EndOfTheWordIsSearchedForFromTheBeginning) {
    const Pragma pragma = parse(u"a#a b");
    EXPECT_TRUE(pragma.getPragmaName() == u"a");
    EXPECT_TRUE(pragma.getPragmaText() == u"a");
    EXPECT_TRUE(pragma.getArgumentsText() == u"#a b");
}

TEST(ParsePragma, PositionIsKeptAsGiven) {
    for (const unsigned position : {0U, 1U, std::numeric_limits<unsigned>::max()})
        EXPECT_EQ(parse(u"%#ok", position).getSourcePosition(), position);
}

TEST(ParsePragma, TextIsCopied) {
    std::u16string text = u"%#ok a";
    const Pragma pragma = parse(text);
    text = u"??????";
    EXPECT_TRUE(pragma.getSourceText() == u"%#ok a");
}

TEST(Pragma, GivesItsTextInParts) {
    const Pragma pragma = parse(u"%#function a, b");
    EXPECT_TRUE(pragma.getSourceText() == u"%#function a, b");
    EXPECT_TRUE(pragma.getPragmaName() == u"function");
    EXPECT_TRUE(pragma.getPragmaText() == u"%#function");
    EXPECT_TRUE(pragma.getArgumentsText() == u" a, b");
    EXPECT_TRUE(pragma.getTrimmedArgumentsText() == u"a, b");
}

TEST(Pragma, ViewsPointIntoItsOwnText) {
    const Pragma pragma = parse(u"%#  function a");
    const char16_t* const text = pragma.getSourceText().data();
    EXPECT_EQ(pragma.getPragmaName().data(), text + 4);
    EXPECT_EQ(pragma.getPragmaText().data(), text);
    EXPECT_EQ(pragma.getArgumentsText().data(), text + 12);
    EXPECT_EQ(pragma.getTrimmedArgumentsText().data(), text + 13);
}

TEST(Pragma, WithNothingAfterTheWordBothArgumentTextsAreEmpty) {
    const Pragma pragma = parse(u"%#ok");
    EXPECT_TRUE(pragma.getArgumentsText() == u"");
    EXPECT_TRUE(pragma.getTrimmedArgumentsText() == u"");
}

TEST(Pragma, WithOnlySeparatorsAfterTheWordTheTrimmedTextIsEmpty) {
    const Pragma pragma = parse(u"%#ok \t,");
    EXPECT_TRUE(pragma.getArgumentsText() == u" \t,");
    EXPECT_TRUE(pragma.getTrimmedArgumentsText() == u"");
}

TEST(Pragma, TrimKeepsAsManyAtTheEndAsItDropsAtTheBeginning) {
    EXPECT_TRUE(trim(u"foo, ") == u"foo");
    EXPECT_TRUE(trim(u" a  ") == u"a ");
    EXPECT_TRUE(trim(u" a") == u"a");
    EXPECT_TRUE(trim(u"  a ") == u"a ");
    EXPECT_TRUE(trim(u",\t a,,,,") == u"a,,,");
    EXPECT_TRUE(trim(u"a b") == u"a b");
    EXPECT_TRUE(trim(u" \u00A0 ") == u"\u00A0 ");
}

TEST(Pragma, TrimFollowsItsRuleOnRandomTexts) {
    testing::Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < testing::rounds(20000); ++round) {
        std::u16string arguments;
        for (std::size_t i = random.below(12); i > 0; --i)
            arguments += random.pick(u16string_view(u" \t,ab"));
        std::size_t front = 0;
        while (front < arguments.size() && arguments[front] < u'a')
            ++front;
        std::size_t back = 0;
        while (back < arguments.size() - front && arguments[arguments.size() - 1 - back] < u'a')
            ++back;
        std::u16string expected = arguments.substr(front);
        if (front == arguments.size()) {
            expected.clear();
        } else if (back > front) {
            expected.resize(expected.size() - (back - front));
        }
        ASSERT_TRUE(trim(arguments) == expected);
    }
}

TEST(Pragma, CopyAndMoveBothCopyTheText) {
    for (const u16string_view text :
         {u"%#ok", u"%#ok and a text that is too long for the object"}) {
        Pragma original = parse(text, 7);
        const u16string_view view = original.getSourceText();
        const Pragma copy(original);
        const Pragma moved(std::move(original));
        for (const Pragma* pragma : {&copy, &moved, &std::as_const(original)}) {
            EXPECT_EQ(pragma->getKind(), PragmaKind::ok);
            EXPECT_EQ(pragma->getSourcePosition(), 7U);
            EXPECT_TRUE(pragma->getSourceText() == text);
            EXPECT_TRUE(pragma->getPragmaText() == u"%#ok");
        }
        EXPECT_EQ(original.getSourceText().data(), view.data());
        EXPECT_NE(moved.getSourceText().data(), view.data());
        EXPECT_NE(copy.getSourceText().data(), view.data());
    }
}

TEST(Pragma, ConstructorChecksNothing) {
    const Pragma pragma(static_cast<PragmaKind>(2), u"abc", 3, 100);
    EXPECT_EQ(pragma.getKind(), static_cast<PragmaKind>(2));
    EXPECT_TRUE(pragma.getSourceText() == u"abc");
    EXPECT_TRUE(pragma.getPragmaText() == u"abc");
    EXPECT_THROW(pragma.getArgumentsText(), std::out_of_range);
    EXPECT_THROW(pragma.getTrimmedArgumentsText(), std::out_of_range);
    try {
        pragma.getPragmaName();
        ADD_FAILURE();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), NO_PRAGMA);
    }
}

TEST(Pragma, OffsetAtTheEndOfTheTextIsntAnError) {
    EXPECT_TRUE(Pragma(PragmaKind::ok, u"%#ok", 0, 4).getArgumentsText() == u"");
}

TEST(Pragma, TextWithoutAWordHasAnEmptyName) {
    EXPECT_TRUE(Pragma(PragmaKind::ok, u"%#  ", 0, 2).getPragmaName() == u"");
}

TEST(Pragma, Prints) {
    EXPECT_EQ(print(parse(u"%#function a", 7)),
              "Pragma<Pos = 7, Kind = %#function, Text = %#function a>");
    EXPECT_EQ(print(parse(u"%#ok", std::numeric_limits<std::uint32_t>::max())),
              "Pragma<Pos = 4294967295, Kind = %#ok, Text = %#ok>");
    EXPECT_EQ(print(parse(u"%#ok", 0)), "Pragma<Pos = 0, Kind = %#ok, Text = %#ok>");
}

TEST(Pragma, PrintsTheWordOfTheKindAndNotTheOneWritten) {
    EXPECT_EQ(print(parse(u"%#strange", 1)),
              "Pragma<Pos = 1, Kind = %#UNRECOGNIZED, Text = %#strange>");
    EXPECT_EQ(print(parse(u"%#TestStandardRun", 1)),
              "Pragma<Pos = 1, Kind = %#TestStandard, Text = %#TestStandardRun>");
}

TEST(Pragma, PrintsItsTextAsUtf8) {
    EXPECT_EQ(print(parse(u"%#ok \u00E9\U0001F600\xD800", 1)),
              "Pragma<Pos = 1, Kind = %#ok, Text = %#ok \xC3\xA9\xF0\x9F\x98\x80\xEF\xBF\xBD>");
}

TEST(Pragma, PrintsItsPositionUnderTheSettingsOfTheStream) {
    std::ostringstream stream;
    stream << std::hex << std::showbase << parse(u"%#ok", 255);
    EXPECT_EQ(stream.str(), "Pragma<Pos = 0xff, Kind = %#ok, Text = %#ok>");
}

TEST(Pragma, KindWithoutAWordThrowsBeforeAnythingIsPrinted) {
    std::ostringstream stream;
    try {
        stream << Pragma(static_cast<PragmaKind>(3), u"%#ok", 0, 0);
        ADD_FAILURE();
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "invalid map<K, T> key");
    }
    EXPECT_EQ(stream.str(), "");
    EXPECT_TRUE(stream.good());
}

} // namespace
} // namespace zt::orvex
