// Streams of 16-bit characters, with the library's locale and without.
#include "platform/Lines.h"
#include "platform/Sections.h"

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/support/Char16Locale.h>

#include <ios>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

namespace zt::orvex::testing {

namespace {

using Stream16 = std::basic_ostringstream<char16_t>;
using Base = std::ios_base;

struct Settings {
    const char* name;
    Base::fmtflags flags;
    int width;
    int precision;
};

const Settings SETTINGS[] = {
    {"plain", Base::dec, 0, 6},
    {"wide", Base::dec, 12, 6},
    {"left", Base::dec | Base::left, 9, 3},
    {"internal", Base::dec | Base::internal | Base::showpos, 10, 3},
    {"fixed", Base::dec | Base::fixed, 0, 2},
    {"scientific", Base::dec | Base::scientific | Base::uppercase, 14, 5},
    {"precise", Base::dec, 0, 17},
    {"pointed", Base::dec | Base::showpoint, 11, 4},
    {"hexadecimal", Base::hex | Base::showbase | Base::internal, 10, 6},
    {"octal", Base::oct | Base::showbase, 0, 6},
    {"words", Base::dec | Base::boolalpha, 7, 6},
};

Stream16 makeStream(const Settings& settings, bool isBare) {
    Stream16 stream;
    if (!isBare) {
        stream.imbue(getChar16Locale());
        stream.fill(u'\u2022');
    }
    stream.flags(settings.flags);
    stream.width(settings.width);
    stream.precision(settings.precision);
    return stream;
}

std::string stateOf(const Stream16& stream) {
    return shown(std::u16string_view(stream.str())) + (stream.good() ? "" : " failed") + " width " +
           std::to_string(stream.width());
}

template <typename Value>
void probeInsertion(const Settings& settings, const std::string& name, const Value& value) {
    Stream16 stream = makeStream(settings, false);
    stream << value;
    line("imbued " + std::string(settings.name) + " " + name, stateOf(stream));
}

/// The library's own inserters work without the locale, too.
template <typename Value>
void probeOwnInsertion(const Settings& settings, const std::string& name, const Value& value) {
    probeInsertion(settings, name, value);
    Stream16 stream = makeStream(settings, true);
    line("bare " + std::string(settings.name) + " " + name, outcome([&] {
             stream << value;
             return stateOf(stream);
         }));
}

std::string classesOf(const std::ctype<char16_t>& facet, char16_t unit) {
    const std::pair<std::ctype_base::mask, char> classes[] = {
        {std::ctype_base::space, 's'},  {std::ctype_base::print, 'p'},
        {std::ctype_base::cntrl, 'c'},  {std::ctype_base::upper, 'u'},
        {std::ctype_base::lower, 'l'},  {std::ctype_base::alpha, 'a'},
        {std::ctype_base::digit, 'd'},  {std::ctype_base::punct, 't'},
        {std::ctype_base::xdigit, 'x'}, {std::ctype_base::blank, 'b'},
        {std::ctype_base::alnum, 'n'},  {std::ctype_base::graph, 'g'}};
    std::string text;
    for (const auto& [mask, letter] : classes) {
        if (facet.is(mask, unit)) text += letter;
    }
    return text.empty() ? "-" : text;
}

void probeClasses() {
    const auto& facet = std::use_facet<std::ctype<char16_t>>(getChar16Locale());
    for (unsigned value = 0; value <= 0x81; ++value) {
        const auto unit = static_cast<char16_t>(value);
        const char16_t cases[] = {facet.toupper(unit), facet.tolower(unit)};
        line("unit " + shown(std::u16string_view(&unit, 1)),
             classesOf(facet, unit) + " cases " + shown(std::u16string_view(cases, 2)) +
                 " narrow " + shown(std::string(1, facet.narrow(unit, '?'))));
    }
    for (const char c : {'a', '\x7F', '\x80', '\xFF'}) {
        const char16_t wide = facet.widen(c);
        line("widened " + shown(std::string(1, c)), shown(std::u16string_view(&wide, 1)));
    }
    const std::u16string text = u"ab1 \u00E9Z\n";
    for (const auto mask : {std::ctype_base::alpha, std::ctype_base::space, std::ctype_base::upper})
        line("scanned",
             std::to_string(facet.scan_is(mask, text.data(), text.data() + text.size()) -
                            text.data()) +
                 " " +
                 std::to_string(facet.scan_not(mask, text.data(), text.data() + text.size()) -
                                text.data()));
    const auto& punctuation = std::use_facet<std::numpunct<char16_t>>(getChar16Locale());
    line("punctuation", shown(std::u16string(1, punctuation.decimal_point())) + " " +
                            shown(std::u16string(1, punctuation.thousands_sep())) + " " +
                            shown(punctuation.grouping()) + " " + shown(punctuation.truename()) +
                            " " + shown(punctuation.falsename()));
}

class OwnPunctuation : public std::numpunct<char16_t> {
    char16_t do_decimal_point() const override { return u','; }
    char16_t do_thousands_sep() const override { return u'\u2009'; }
    std::string do_grouping() const override { return "\3\2"; }
    std::u16string do_truename() const override { return u"j\u00E4"; }
    std::u16string do_falsename() const override { return u"nein"; }
};

void probeDerivedLocale() {
    Stream16 stream;
    stream.imbue(std::locale(getChar16Locale(), new OwnPunctuation()));
    stream << std::fixed << 1234567.25 << u' ' << 123456789012LL << u' ' << std::boolalpha << true
           << u' ' << false << u' ' << Imaginary(-12345.5);
    line("another punctuation", stateOf(stream));
}

} // namespace

// Without bool: standard libraries don't agree on its sign and its width.
void probeStreams() {
    for (const Settings& settings : SETTINGS) {
        for (const double value : {0.0, -0.0, 2.5, 1.0 / 3, -1e100, 123456789.0,
                                   std::numeric_limits<double>::infinity()}) {
            probeInsertion(settings, "double " + bitsOf(value), value);
            probeOwnInsertion(settings, "imaginary " + bitsOf(value), Imaginary(value));
        }
        for (const int value : {0, 42, -42, std::numeric_limits<int>::min()})
            probeInsertion(settings, "int " + std::to_string(value), value);
        probeInsertion(settings, "unsigned long long",
                       std::numeric_limits<unsigned long long>::max());
        probeInsertion(settings, "text", u"t\u00E9xt");
        probeInsertion(settings, "narrow character", 'c');
        probeOwnInsertion(settings, "kind", NodeKind::IfStatement);
        probeOwnInsertion(settings, "binary operator", BinaryOperator::NotEqual);
        probeOwnInsertion(settings, "unary operator", UnaryOperator::DotApostrophe);
    }
    probeClasses();
    probeDerivedLocale();
}

} // namespace zt::orvex::testing
