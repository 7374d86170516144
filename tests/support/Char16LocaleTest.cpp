// Runs twice: linked with the library's objects, and with the shared library as a consumer, which
// also shows that both modules use the same facets.
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/support/Char16Locale.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

namespace zt::orvex {
namespace {

using Stream16 = std::basic_ostringstream<char16_t>;
using Classes = std::ctype<char16_t>;

Stream16 makeStream() {
    Stream16 stream;
    stream.imbue(getChar16Locale());
    return stream;
}

const Classes& facet() { return std::use_facet<Classes>(getChar16Locale()); }

TEST(Char16Locale, IsOneObject) { EXPECT_EQ(&getChar16Locale(), &getChar16Locale()); }

TEST(Char16Locale, CarriesTheFacetsThatTheClassicLocaleLacks) {
    EXPECT_TRUE(std::has_facet<std::ctype<char16_t>>(getChar16Locale()));
    EXPECT_TRUE(std::has_facet<std::numpunct<char16_t>>(getChar16Locale()));
    EXPECT_TRUE(std::has_facet<std::num_put<char16_t>>(getChar16Locale()));
    EXPECT_FALSE(std::has_facet<std::ctype<char16_t>>(std::locale::classic()));
}

TEST(Char16Locale, LeavesTheGlobalLocaleAlone) {
    getChar16Locale();
    EXPECT_EQ(std::locale(), std::locale::classic());
}

TEST(Char16Locale, EndlFillAndSingleCharactersWork) {
    Stream16 stream = makeStream();
    stream << std::setfill(u'*') << std::setw(3) << u"a" << 'b' << u'c' << "de" << std::endl;
    EXPECT_EQ(stream.str(), u"**abcde\n");
    EXPECT_TRUE(stream.good());
}

TEST(Char16Locale, DefaultFillIsABlank) {
    Stream16 stream = makeStream();
    EXPECT_EQ(stream.fill(), u' ');
    stream << std::setw(3) << 7;
    EXPECT_EQ(stream.str(), u"  7");
}

TEST(Char16Locale, NumbersFormatAsInTheClassicLocale) {
    Stream16 stream = makeStream();
    stream << 1234567 << u' ' << -2.5 << u' ' << 1e300L << u' ' << std::hex << std::showbase
           << std::uppercase << 255U << u' ' << std::boolalpha << true << u' ' << false << u' '
           << std::dec << std::setw(6) << std::setfill(u'0') << std::internal << -42 << u' '
           << std::numeric_limits<unsigned long long>::max() << u' ' << std::fixed
           << std::setprecision(3) << 0.0005;
    EXPECT_EQ(stream.str(),
              u"1234567 -2.5 1e+300 0XFF true false -00042 18446744073709551615 0.001");
    EXPECT_TRUE(stream.good());
}

TEST(Char16Locale, NumbersFormatAsOnANarrowStream) {
    const std::vector<double> values = {0.0, -0.0, 0.1, 1e20, 1.0 / 3, 5e-324, 1.7e308};
    for (const double value : values) {
        std::ostringstream narrow;
        narrow << value << ' ' << std::scientific << value << ' ' << std::hexfloat << value;
        Stream16 wide = makeStream();
        wide << value << u' ' << std::scientific << value << u' ' << std::hexfloat << value;
        const std::u16string text = wide.str();
        EXPECT_EQ(std::string(text.begin(), text.end()), narrow.str());
    }
}

TEST(Char16Locale, ClassifiesAsciiAsTheClassicLocaleAndNothingElse) {
    const std::ctype_base::mask masks[] = {
        std::ctype_base::space, std::ctype_base::print,  std::ctype_base::cntrl,
        std::ctype_base::upper, std::ctype_base::lower,  std::ctype_base::digit,
        std::ctype_base::punct, std::ctype_base::xdigit, std::ctype_base::alpha,
        std::ctype_base::blank, std::ctype_base::alnum,  std::ctype_base::graph};
    const auto& narrow = std::use_facet<std::ctype<char>>(std::locale::classic());
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const auto wide = static_cast<char16_t>(unit);
        for (const auto mask : masks) {
            const bool expected = unit < 0x80 && narrow.is(mask, static_cast<char>(unit));
            ASSERT_EQ(facet().is(mask, wide), expected) << unit;
        }
        std::ctype_base::mask all = std::ctype_base::space;
        EXPECT_EQ(facet().is(&wide, &wide + 1, &all), &wide + 1);
        ASSERT_EQ(all,
                  unit < 0x80 ? std::ctype<char>::classic_table()[unit] : std::ctype_base::mask());
    }
}

TEST(Char16Locale, AsciiAloneChangesCase) {
    const auto& narrow = std::use_facet<std::ctype<char>>(std::locale::classic());
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const auto wide = static_cast<char16_t>(unit);
        const auto c = static_cast<char>(unit);
        const auto upper = unit < 0x80 ? static_cast<char16_t>(narrow.toupper(c)) : wide;
        const auto lower = unit < 0x80 ? static_cast<char16_t>(narrow.tolower(c)) : wide;
        ASSERT_EQ(facet().toupper(wide), upper) << unit;
        ASSERT_EQ(facet().tolower(wide), lower) << unit;
    }
    std::u16string text = u"aB1\u00E9z";
    facet().toupper(text.data(), text.data() + text.size());
    EXPECT_EQ(text, u"AB1\u00E9Z");
    facet().tolower(text.data(), text.data() + text.size());
    EXPECT_EQ(text, u"ab1\u00E9z");
}

TEST(Char16Locale, ScansForAClassAndForItsEnd) {
    const std::u16string text = u"ab1 \u00E9";
    const char16_t* const first = text.data();
    const char16_t* const last = first + text.size();
    EXPECT_EQ(facet().scan_is(std::ctype_base::digit, first, last), first + 2);
    EXPECT_EQ(facet().scan_is(std::ctype_base::punct, first, last), last);
    EXPECT_EQ(facet().scan_not(std::ctype_base::alpha, first, last), first + 2);
    EXPECT_EQ(facet().scan_not(std::ctype_base::alnum, first, last), first + 3);
    EXPECT_EQ(facet().scan_not(std::ctype_base::alnum, last, last), last);
}

TEST(Char16Locale, AsciiWidensAndNarrowsAndNothingElseDoes) {
    for (int c = 0; c < 0x80; ++c) {
        EXPECT_EQ(facet().widen(static_cast<char>(c)), static_cast<char16_t>(c));
        EXPECT_EQ(facet().narrow(static_cast<char16_t>(c), '?'), static_cast<char>(c));
    }
    EXPECT_EQ(facet().widen('\x80'), u'\uFFFD');
    EXPECT_EQ(facet().widen('\xFF'), u'\uFFFD');
    EXPECT_EQ(facet().narrow(u'\u0080', '?'), '?');
    EXPECT_EQ(facet().narrow(u'\uFFFF', '?'), '?');

    const std::string narrow = "a\xC3z";
    std::u16string wide(3, u' ');
    facet().widen(narrow.data(), narrow.data() + narrow.size(), wide.data());
    EXPECT_EQ(wide, u"a\uFFFDz");
    std::string back(3, ' ');
    facet().narrow(wide.data(), wide.data() + wide.size(), '?', back.data());
    EXPECT_EQ(back, "a?z");
}

TEST(Char16Locale, DerivedLocaleMayHaveAnotherPunctuation) {
    class Comma : public std::numpunct<char16_t> {
        char16_t do_decimal_point() const override { return u','; }
        char16_t do_thousands_sep() const override { return u'.'; }
        std::string do_grouping() const override { return "\3"; }
        std::u16string do_truename() const override { return u"ja"; }
        std::u16string do_falsename() const override { return u"nein"; }
    };
    Stream16 stream;
    stream.imbue(std::locale(getChar16Locale(), new Comma()));
    stream << std::fixed << std::setprecision(1) << 1234.5 << u' ' << std::boolalpha << true;
    EXPECT_EQ(stream.str(), u"1.234,5 ja");
}

TEST(Char16Locale, StreamsOfTwoModulesShareTheFacets) {
    // The facets come from this module; the library writes to the stream.
    Stream16 stream;
    stream.imbue(std::locale(std::locale::classic(), new std::ctype<char16_t>()));
    stream << std::setfill(u'*') << std::setw(4) << NodeKind::IfStatement;
    EXPECT_EQ(stream.str(), u"**38");
    EXPECT_TRUE(stream.good());
}

} // namespace
} // namespace zt::orvex
