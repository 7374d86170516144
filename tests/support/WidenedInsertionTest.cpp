#include "support/WidenedInsertion.h"

#include <zt_orvex/support/Char16Locale.h>

#include <gtest/gtest.h>

#include <complex>
#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

namespace zt::orvex::internal {
namespace {

using Stream16 = std::basic_ostringstream<char16_t>;

/// The text of a stream whose units are all ASCII.
std::string textOf(const Stream16& stream) {
    std::string text;
    for (const char16_t unit : stream.str())
        text.push_back(unit < 0x80 ? char(unit) : '?');
    return text;
}

class GermanPunctuation : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Makes a bare stream that still has a fill.
void setFillThenForgetLocale(Stream16& stream, char16_t fill) {
    stream.imbue(getChar16Locale());
    stream.fill(fill);
    stream.imbue(std::locale::classic());
}

TEST(InsertText, BareStreamTakesTextWithoutAWidth) {
    Stream16 stream;
    insertText(insertText(stream, u"ab"), u"\u00E9");
    EXPECT_EQ(stream.str(), u"ab\u00E9");
    EXPECT_TRUE(stream.good());
}

TEST(InsertText, BareStreamPadsWithBlanksOnTheLeft) {
    Stream16 stream;
    stream << std::setw(4);
    insertText(stream, u"ab");
    EXPECT_EQ(textOf(stream), "  ab");
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(stream.width(), 0);
}

TEST(InsertText, AdjustmentIsKept) {
    for (const bool isBare : {true, false}) {
        Stream16 stream;
        if (!isBare) stream.imbue(getChar16Locale());
        stream << std::left << std::setw(4);
        insertText(stream, u"ab");
        stream << std::internal << std::setw(4);
        insertText(stream, u"cd");
        stream << std::right << std::setw(4);
        insertText(stream, u"ef");
        EXPECT_EQ(textOf(stream), "ab    cd  ef") << "bare: " << isBare;
    }
}

TEST(InsertText, TextAsWideAsTheFieldIsNotPaddedAndTakesTheWidth) {
    Stream16 stream;
    stream << std::setw(2);
    insertText(stream, u"ab");
    stream << std::setw(1);
    insertText(stream, u"cd");
    EXPECT_EQ(textOf(stream), "abcd");
    EXPECT_EQ(stream.width(), 0);
    EXPECT_TRUE(stream.good());
}

TEST(InsertText, FillOfAStreamWithTheLocaleApplies) {
    Stream16 stream;
    stream.imbue(getChar16Locale());
    stream << std::setfill(u'\u2022') << std::setw(3);
    insertText(stream, u"a");
    EXPECT_EQ(stream.str(), u"\u2022\u2022a");
}

TEST(InsertText, FillThatABareStreamStillHasApplies) {
    Stream16 stream;
    setFillThenForgetLocale(stream, u'*');
    stream << std::setw(3);
    insertText(stream, u"a");
    EXPECT_EQ(textOf(stream), "**a");
}

TEST(InsertText, StreamThatHasFailedTakesNothingAndKeepsItsWidth) {
    Stream16 stream;
    stream.setstate(std::ios_base::failbit);
    stream << std::setw(4);
    EXPECT_NO_THROW(insertText(stream, u"ab"));
    EXPECT_NO_THROW(insertNumber(stream, 1));
    EXPECT_EQ(textOf(stream), "");
    EXPECT_EQ(stream.width(), 4);
}

TEST(InsertText, StreamThatThrowsOnFailureDoesNotThrowForLackOfALocale) {
    Stream16 stream;
    stream.exceptions(std::ios_base::badbit | std::ios_base::failbit);
    stream << std::setw(4);
    insertText(stream, u"ab");
    stream << std::setw(4);
    insertNumber(stream, 7);
    EXPECT_EQ(textOf(stream), "  ab   7");
}

/// Formats `value` on a narrow stream, a bare one and one with the locale, with the same settings.
template <class Number, class SetUp>
void expectSameText(Number value, SetUp setUp) {
    std::ostringstream expected;
    setUp(expected);
    expected << value;
    Stream16 bare;
    setUp(bare);
    insertNumber(bare, value);
    Stream16 imbued;
    imbued.imbue(getChar16Locale());
    setUp(imbued);
    insertNumber(imbued, value);
    EXPECT_EQ(textOf(bare), expected.str());
    EXPECT_EQ(textOf(imbued), expected.str());
    EXPECT_EQ(bare.width(), 0);
    EXPECT_TRUE(bare.good());
    EXPECT_TRUE(imbued.good());
}

TEST(InsertNumber, FlagsPrecisionAndWidthApplyAsOnANarrowStream) {
    using Flags = std::ios_base::fmtflags;
    const Flags adjustments[] = {std::ios_base::left, std::ios_base::right, std::ios_base::internal,
                                 Flags()};
    const Flags notations[] = {Flags(), std::ios_base::fixed, std::ios_base::scientific,
                               std::ios_base::fixed | std::ios_base::scientific};
    const Flags extras[] = {Flags(), std::ios_base::showpos | std::ios_base::showpoint,
                            std::ios_base::uppercase | std::ios_base::hex |
                                std::ios_base::showbase};
    const double values[] = {0.0,
                             -0.0,
                             1.0 / 3,
                             -2.5e300,
                             std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()};
    for (const Flags adjustment : adjustments) {
        for (const Flags notation : notations) {
            for (const Flags extra : extras) {
                for (const int precision : {0, 3, 17}) {
                    for (const int width : {0, 5, 40}) {
                        const auto setUp = [=](auto& stream) {
                            stream.flags(adjustment | notation | extra);
                            stream.precision(precision);
                            stream.width(width);
                        };
                        for (const double value : values)
                            expectSameText(value, setUp);
                        expectSameText(-1234567, setUp);
                        expectSameText(255U, setUp);
                        expectSameText(true, setUp);
                    }
                }
            }
        }
    }
}

TEST(InsertNumber, FillOutsideAsciiStandsWhereTheAdjustmentPutsIt) {
    for (const bool isBare : {true, false}) {
        Stream16 stream;
        stream.imbue(getChar16Locale());
        stream.fill(u'\u2022');
        if (isBare) stream.imbue(std::locale::classic());
        stream << std::internal << std::setw(4);
        insertNumber(stream, -5);
        stream << std::left << std::setw(3);
        insertNumber(stream, 5);
        EXPECT_EQ(stream.str(), u"-\u2022\u20225"
                                u"5\u2022\u2022")
            << "bare: " << isBare;
    }
}

TEST(InsertNumber, BareStreamTakesThePunctuationOfItsNarrowLocale) {
    Stream16 stream;
    stream.imbue(std::locale(std::locale::classic(), new GermanPunctuation()));
    insertNumber(stream << std::fixed << std::setprecision(1), 1234567.5);
    EXPECT_EQ(textOf(stream), "1.234.567,5");
}

TEST(InsertNumber, TakesThePunctuationOfTheStreamsOwnCharactersWhenThereIsOne) {
    class Comma : public std::numpunct<char16_t> {
        char16_t do_decimal_point() const override { return u','; }
        std::string do_grouping() const override { return {}; }
        std::u16string do_truename() const override { return u"yes"; }
        std::u16string do_falsename() const override { return u"no"; }
        char16_t do_thousands_sep() const override { return u'.'; }
    };
    Stream16 stream;
    stream.imbue(std::locale(getChar16Locale(), new Comma()));
    insertNumber(stream, 2.5);
    EXPECT_EQ(textOf(stream), "2,5");
}

TEST(InsertNumber, LocaleWithPartOfTheFacetsIsAsGoodAsBare) {
    Stream16 stream;
    stream.imbue(std::locale(std::locale::classic(), new std::num_put<char16_t>()));
    stream << std::setw(4);
    insertNumber(stream, 2.5);
    EXPECT_EQ(textOf(stream), " 2.5");
    EXPECT_TRUE(stream.good());
}

} // namespace
} // namespace zt::orvex::internal
