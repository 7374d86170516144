// Input: the units of a text. All six functions, for 16-bit text and, if the text has no units above
// 0xFF, for 8-bit text, are compared with a plain second implementation.
#include "PlainParse.h"
#include "Require.h"
#include "TextFromBytes.h"
#include "literals/PlainLiterals.h"

#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>
#include <zt_orvex/literals/NumberConversionError.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

using namespace zt::orvex::internal;
using namespace zt::orvex::fuzz;

namespace {

template <typename CharT>
using View = std::basic_string_view<CharT>;

bool isAscii(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

/// A text that isn't ASCII is malformed.
LiteralValidationResult plainValidation(const std::u16string& text, bool isHex) {
    if (!isAscii(text)) return LiteralValidationResult::Malformed;
    return zt::orvex::testing::expectedResult(
        zt::orvex::testing::readInteger(lowBytesOf(text), isHex), isHex);
}

unsigned long long bitsOf(const IntegerLiteralValue& value, std::size_t width) {
    const auto bits = boost::apply_visitor(
        [](auto integer) { return static_cast<unsigned long long>(integer); }, value);
    return width == 64 ? bits : bits & ((1ULL << width) - 1);
}

template <typename Parse>
void checkInteger(Parse parse, const PlainInteger& plain) {
    try {
        const IntegerLiteralValue value = parse();
        require(!plain.isRefused, "the digits are converted");
        require(value.which() == plain.which(), "the literal's type");
        require(bitsOf(value, plain.width) == plain.bits, "the literal's bits");
    } catch (const NumberConversionError& error) {
        require(plain.isRefused, "only such digits are refused");
        require(error.getMessage() == plain.message(), "the message names the digits");
        const NumberConversionError copy(error);
        require(copy.what() == std::string(plain.message().c_str()), "a copy says the same");
        require(copy.getText() == lowBytesOf(plain.digits), "the digits");
        require(copy.getReason() == "Not Specified", "the reason");
    }
}

template <typename CharT>
void checkIntegers(View<CharT> text, const std::u16string& units) {
    require(validateBinaryLiteral(text) == plainValidation(units, false), "binary validation");
    require(validateHexLiteral(text) == plainValidation(units, true), "hexadecimal validation");
    checkInteger([&] { return parseBinaryLiteral(text); }, plainParse(units, false));
    checkInteger([&] { return parseHexLiteral(text); }, plainParse(units, true));
}

bool haveSameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

template <typename CharT>
void checkDouble(View<CharT> text, const std::u16string& units) {
    std::string rewritten = lowBytesOf(units);
    const bool isValid = isAscii(units) && zt::orvex::testing::isDouble(rewritten);
    require((validateDoubleLiteral(text) == LiteralValidationResult::Valid) == isValid,
            "double validation");
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (units[i] == u'd' || units[i] == u'D') rewritten[i] = 'e';
    }
    try {
        const double value = parseDoubleLiteral(text);
        require(isValid, "a valid literal has a value");
        require(haveSameBits(value, std::strtod(rewritten.c_str(), nullptr)), "the nearest double");
    } catch (const NumberConversionError& error) {
        require(!isValid, "a valid literal is converted");
        require(error.getMessage() ==
                    "Conversion failed converting '" + rewritten + "' Reason: Not Specified",
                "the message names the text");
    }
}

template <typename CharT>
void check(View<CharT> text, const std::u16string& units) {
    checkIntegers(text, units);
    checkDouble(text, units);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string units = unitsFrom(data, size);
    check(View<char16_t>(units), units);
    const bool isNarrow =
        std::all_of(units.begin(), units.end(), [](char16_t unit) { return unit < 0x100; });
    const std::string bytes = lowBytesOf(units);
    if (isNarrow) check(View<char>(bytes), units);
    return 0;
}
