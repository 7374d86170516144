#include "literals/DecimalToDouble.h"

#include <zt_orvex/literals/NumberConversionError.h>

#include <fast_float/fast_float.h>

#include <string>
#include <system_error>

namespace zt::orvex::internal {

namespace {

constexpr char16_t LAST_ASCII_UNIT = 0x7F;

[[noreturn]] void fail(const char* text, std::size_t length) {
    throw NumberConversionError(std::string(text, length));
}

/// The converter also accepts a minus sign, "inf" and "nan", none of which begins like this.
bool beginsLikeNumber(const char* text) { return (*text >= '0' && *text <= '9') || *text == '.'; }

} // namespace

double decimalToDouble(const char* text, std::size_t length) {
    if (!beginsLikeNumber(text)) fail(text, length);
    double value = 0;
    const auto result = fast_float::from_chars(text, text + length, value);
    // Whether a number out of range is an error depends on the version; all versions store the
    // value.
    if (result.ec == std::errc::invalid_argument || result.ptr != text + length) fail(text, length);
    return value;
}

double decimalToDouble(char16_t* text, std::size_t length) {
    // Writing never overtakes reading: each wide unit has two bytes, each narrow one a single byte.
    char* const narrow = reinterpret_cast<char*>(text);
    unsigned seen = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const char16_t unit = text[i];
        seen |= unit;
        narrow[i] = static_cast<char>(unit);
    }
    narrow[length] = '\0';
    if (seen > LAST_ASCII_UNIT) fail(narrow, length);
    return decimalToDouble(static_cast<const char*>(narrow), length);
}

} // namespace zt::orvex::internal
