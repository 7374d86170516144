// Numeric literals and their values.
#include "platform/Lines.h"
#include "platform/Sections.h"
#include "testing/Random.h"

#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/literals/IsNegativeVisitor.h>
#include <zt_orvex/literals/IsOneVisitor.h>
#include <zt_orvex/literals/IsZeroVisitor.h>
#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>
#include <zt_orvex/literals/NumberConversionError.h>
#include <zt_orvex/literals/ValueToStringVisitor.h>

#include <boost/variant.hpp>

#include <complex>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace zt::orvex::testing {

namespace {

const char* const TEXTS[] = {
    "",
    "0",
    "1",
    "12",
    "007",
    "0b",
    "0b0",
    "0b1",
    "0B101",
    "0b2",
    "0b101u8",
    "0b101s8",
    "0b111111111u8",
    "0b1u16",
    "0b1s16",
    "0b1u32",
    "0b1s32",
    "0b1u64",
    "0b1s64",
    "0b1u128",
    "0b1U8",
    "0b11111111s8",
    "0b1 ",
    " 0b1",
    "0b1i",
    "0b-1",
    "-0b1",
    "0b1111111111111111",
    "0b11111111111111111",
    "0b1111111111111111u16",
    "0b11111111111111111u16",
    "0b11111111111111111111111111111111",
    "0b1000000000000000000000000000000000000000000000000000000000000000",
    "0b10000000000000000000000000000000000000000000000000000000000000000",
    "0b1000000000000000000000000000000000000000000000000000000000000000s64",
    "0b0000000000000000000000000000000000000000000000000000000000000000000001",
    "0x",
    "0x0",
    "0xF",
    "0Xf",
    "0xg",
    "0xFF",
    "0x100",
    "0xFFu8",
    "0xFFs8",
    "0x80s8",
    "0x7Fs8",
    "0x1FFu8",
    "0x0FFu8",
    "0xFFFF",
    "0x10000",
    "0xFFFFu16",
    "0x8000s16",
    "0x10000s16",
    "0xFFFFFFFF",
    "0x100000000",
    "0xDEADBEEFu32",
    "0x80000000s32",
    "0xFFFFFFFFFFFFFFFF",
    "0x8000000000000000s64",
    "0x0123456789ABCDEFu64",
    "0x10000000000000000",
    "0xFFu",
    "0xFFu7",
    "0xFF_8",
    "0xFFi",
    "1.",
    ".5",
    "1.5",
    ".",
    "1e5",
    "1E5",
    "1d5",
    "1D-5",
    "1e+5",
    "1e",
    "1e+",
    "1.e5",
    ".e5",
    "1.5e-10",
    "1.5e400",
    "1e-400",
    "4.9e-324",
    "2.4703282292062327e-324",
    "2.4703282292062328e-324",
    "1.7976931348623157e308",
    "1.7976931348623159e308",
    "0.1",
    "0.3",
    "1e22",
    "1e23",
    "9007199254740993",
    "9007199254740992.5",
    "123456789012345678901234567890",
    "0.000000000000000000000000000001",
    "1i",
    "1j",
    "1.5i",
    "1.5e3j",
    "1ii",
    "i",
    "inf",
    "nan",
    "Inf",
    "NaN",
    "+1",
    "-1",
    "1,5",
    "1 ",
    " 1",
    "1_000",
    "1.2.3",
    "1e5.5",
    "1f",
    "0x1p3",
    "00.5",
    "1e0005",
    "2.2250738585072011e-308",
    "6.02214076e23",
    "3.14159265358979323846",
    "0e0",
    "0.0",
    "1e-5d",
};

const char* nameOf(internal::LiteralValidationResult result) {
    switch (result) {
    case internal::LiteralValidationResult::Valid:
        return "valid";
    case internal::LiteralValidationResult::Malformed:
        return "malformed";
    case internal::LiteralValidationResult::TooManyDigits:
        return "too many digits";
    }
    return "unknown";
}

std::string textOf(double value) {
    return internal::ValueToStringVisitor().visit(value) + " bits " + bitsOf(value);
}

struct IntegerText : boost::static_visitor<std::string> {
    template <typename Integer>
    std::string operator()(Integer value) const {
        return internal::ValueToStringVisitor().visit(value) + " zero " +
               shown(internal::IsZeroVisitor().visit(value)) + " one " +
               shown(internal::IsOneVisitor().visit(value)) + " negative " +
               shown(internal::IsNegativeVisitor().visit(value));
    }
};

std::string textOf(const internal::IntegerLiteralValue& value) {
    return std::to_string(value.which()) + " " + boost::apply_visitor(IntegerText(), value);
}

/// Both widths, and whether they agree.
template <typename Validate, typename Parse>
void probeLiteral(const char* kind, const std::string& text, Validate validate, Parse parse) {
    const std::u16string wide(text.begin(), text.end());
    const internal::LiteralValidationResult result = validate(std::string_view(text));
    const std::string name = std::string(kind) + " " + shown(text);
    line(name,
         std::string(nameOf(result)) + " wide " + nameOf(validate(std::u16string_view(wide))));
    if (result != internal::LiteralValidationResult::Valid) return;
    line(name + " parsed", outcome([&] { return textOf(parse(std::string_view(text))); }));
    line(name + " parsed wide", outcome([&] { return textOf(parse(std::u16string_view(wide))); }));
}

/// What can't be validated is refused by the parser, too, or read as far as it goes.
void probeErrors() {
    for (const char* text : {"", "abc", "inf", "nan", "1x", "--1", "1e", "e5"}) {
        line("double without validation " + shown(std::string_view(text)),
             outcome([&] { return textOf(internal::parseDoubleLiteral(std::string_view(text))); }));
    }
    for (const char16_t* text : {u"\u0661", u"1\u00E9", u"\uFF11", u"1\u2028"}) {
        line("double without validation " + shown(std::u16string_view(text)), outcome([&] {
                 return textOf(internal::parseDoubleLiteral(std::u16string_view(text)));
             }));
        line("validation of " + shown(std::u16string_view(text)),
             nameOf(internal::validateDoubleLiteral(std::u16string_view(text))));
    }
    const internal::NumberConversionError error("12x");
    line("conversion error", error.getText() + " | " + error.getReason() + " | " + error.what());
    const internal::NumberConversionError reasoned("12x", "not a digit");
    line("conversion error with a reason", reasoned.getMessage());
}

template <typename Integer>
void probeLimits(const char* type) {
    using Limits = std::numeric_limits<Integer>;
    for (const Integer value : {Limits::min(), Limits::max(), Integer{0}, Integer{1}, Integer{26}})
        line(std::string(type), IntegerText()(value));
}

void probeDouble(double value) {
    const Imaginary imaginary(value);
    line("double " + bitsOf(value),
         textOf(value) + " zero " + shown(internal::IsZeroVisitor().visit(value)) + " one " +
             shown(internal::IsOneVisitor().visit(value)) + " negative " +
             shown(internal::IsNegativeVisitor().visit(value)));
    line("imaginary " + bitsOf(value),
         internal::ValueToStringVisitor().visit(imaginary) + " zero " +
             shown(internal::IsZeroVisitor().visit(imaginary)) + " one " +
             shown(internal::IsOneVisitor().visit(imaginary)) + " negative " +
             shown(internal::IsNegativeVisitor().visit(imaginary)) + " complex " +
             bitsOf(imaginary.getComplexValue().real()) + " " +
             bitsOf(imaginary.getComplexValue().imag()) + " equals itself " +
             shown(imaginary == Imaginary(value)));
}

} // namespace

void probeLiterals() {
    for (const std::string text : TEXTS) {
        probeLiteral(
            "binary", text, [](auto view) { return internal::validateBinaryLiteral(view); },
            [](auto view) { return internal::parseBinaryLiteral(view); });
        probeLiteral(
            "hex", text, [](auto view) { return internal::validateHexLiteral(view); },
            [](auto view) { return internal::parseHexLiteral(view); });
        probeLiteral(
            "double", text, [](auto view) { return internal::validateDoubleLiteral(view); },
            [](auto view) { return internal::parseDoubleLiteral(view); });
    }
    probeErrors();
}

void probeLiteralValues() {
    probeLimits<signed char>("signed char");
    probeLimits<unsigned char>("unsigned char");
    probeLimits<short>("short");
    probeLimits<unsigned short>("unsigned short");
    probeLimits<int>("int");
    probeLimits<unsigned int>("unsigned int");
    probeLimits<long long>("long long");
    probeLimits<unsigned long long>("unsigned long long");

    using Limits = std::numeric_limits<double>;
    for (const double value : {0.0,
                               -0.0,
                               1.0,
                               -1.0,
                               0.1,
                               1.0 / 3,
                               2.5,
                               -2.5e-7,
                               1e15,
                               1e16,
                               1e20,
                               123456.789,
                               100.0,
                               1e-5,
                               Limits::max(),
                               Limits::min(),
                               Limits::denorm_min(),
                               Limits::epsilon(),
                               Limits::infinity(),
                               -Limits::infinity(),
                               Limits::quiet_NaN()})
        probeDouble(value);
    Random random(6);
    for (std::size_t number = 0; number < 20; ++number) {
        const auto mantissa = static_cast<double>(random.below(1U << 30));
        probeDouble(mantissa / static_cast<double>(1 + random.below(100000)));
    }
}

} // namespace zt::orvex::testing
