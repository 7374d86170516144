// Input: the characters of a text.
#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>
#include <zt_orvex/literals/NumberConversionError.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

using namespace zt::orvex::internal;

void require(bool condition) {
    if (!condition) std::abort();
}

/// The result of `call` as text, or the message of what it throws.
template <class Call>
std::string outcomeOf(Call call) {
    try {
        return call();
    } catch (const NumberConversionError& error) {
        return error.getMessage();
    }
}

std::string describe(const IntegerLiteralValue& value) {
    return std::to_string(value.which()) + ":" +
           boost::apply_visitor([](auto integer) { return std::to_string(integer); }, value);
}

std::string describe(double value) {
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

/// Both widths must agree, and a valid text must convert.
template <class Validate, class Parse>
void check(std::string_view narrow, std::u16string_view wide, Validate validate, Parse parse) {
    const LiteralValidationResult result = validate(narrow);
    require(validate(wide) == result);
    const std::string outcome = outcomeOf([&] { return describe(parse(narrow)); });
    require(outcomeOf([&] { return describe(parse(wide)); }) == outcome);
    if (result == LiteralValidationResult::Valid) describe(parse(narrow));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string narrow;
    std::u16string wide;
    for (std::size_t i = 0; i < size; ++i) {
        narrow.push_back(static_cast<char>(data[i]));
        wide.push_back(data[i]);
    }
    check(
        narrow, wide, [](auto text) { return validateBinaryLiteral(text); },
        [](auto text) { return parseBinaryLiteral(text); });
    check(
        narrow, wide, [](auto text) { return validateHexLiteral(text); },
        [](auto text) { return parseHexLiteral(text); });
    check(
        narrow, wide, [](auto text) { return validateDoubleLiteral(text); },
        [](auto text) { return parseDoubleLiteral(text); });
    return 0;
}
