#pragma once

#include "testing/Widen.h"

#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>
#include <zt_orvex/literals/NumberConversionError.h>

#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <string>
#include <string_view>

namespace zt::orvex::internal {

/// For the messages of failing tests.
inline void PrintTo(LiteralValidationResult result, std::ostream* stream) {
    static const char* const NAMES[] = {"Valid", "Malformed", "TooManyDigits"};
    *stream << NAMES[static_cast<int>(result)];
}

} // namespace zt::orvex::internal

namespace zt::orvex::testing {

/// The index, the bits and the type of a value, in a form that can be compared and printed.
inline std::string describe(const internal::IntegerLiteralValue& value) {
    const std::string number = boost::apply_visitor(
        [](auto integer) {
            // Both, since the widest types of either sign don't fit into each other.
            return std::to_string(integer);
        },
        value);
    return "#" + std::to_string(value.which()) + " " + number;
}

inline std::string describe(double value) {
    unsigned long long bits = 0;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    return "double bits " + std::to_string(bits);
}

/// The result of `call`, or the message of what it throws.
template <class Call>
std::string outcomeOf(Call call) {
    try {
        return describe(call());
    } catch (const internal::NumberConversionError& error) {
        return error.what();
    }
}

// Each operation on a text and on the same text in 16 bits, which must agree.

#define ZT_ORVEX_BOTH_WIDTHS(function)                                                             \
    inline auto function(std::string_view text) {                                                  \
        const auto narrow = internal::function(text);                                              \
        EXPECT_EQ(internal::function(std::u16string_view(widen(text))), narrow)                    \
            << #function " of 16-bit '" << text << "'";                                            \
        return narrow;                                                                             \
    }
ZT_ORVEX_BOTH_WIDTHS(validateBinaryLiteral)
ZT_ORVEX_BOTH_WIDTHS(validateHexLiteral)
ZT_ORVEX_BOTH_WIDTHS(validateDoubleLiteral)
#undef ZT_ORVEX_BOTH_WIDTHS

#define ZT_ORVEX_BOTH_WIDTHS(function)                                                             \
    inline std::string function(std::string_view text) {                                           \
        const std::string narrow = outcomeOf([&] { return internal::function(text); });            \
        const std::u16string wide = widen(text);                                                   \
        EXPECT_EQ(outcomeOf([&] { return internal::function(std::u16string_view(wide)); }),        \
                  narrow)                                                                          \
            << #function " of 16-bit '" << text << "'";                                            \
        return narrow;                                                                             \
    }
ZT_ORVEX_BOTH_WIDTHS(parseBinaryLiteral)
ZT_ORVEX_BOTH_WIDTHS(parseHexLiteral)
ZT_ORVEX_BOTH_WIDTHS(parseDoubleLiteral)
#undef ZT_ORVEX_BOTH_WIDTHS

} // namespace zt::orvex::testing
