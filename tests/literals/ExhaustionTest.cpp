// A program of its own: it replaces the global allocation functions. No test may use a literal
// before it asks for the first use.

#include "testing/Exhaustion.h"

#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>
#include <zt_orvex/literals/NumberConversionError.h>
#include <zt_orvex/literals/ValueToStringVisitor.h>
#include <zt_orvex/support/Char16Locale.h>

#include <gtest/gtest.h>

#include <ios>
#include <sstream>
#include <string>

namespace zt::orvex::internal {
namespace {

using testing::expectRightOrThrow;
using testing::expectRightOrThrowAtFirstUse;

/// Tries the first use in fresh processes, and then a warm one here.
template <typename Call>
void expectBoth(Call call) {
    expectRightOrThrowAtFirstUse(call);
    expectRightOrThrow(call);
}

TEST(LiteralsExhaustion, ValidationIsRightOrThrows) {
    expectBoth([] { return validateBinaryLiteral("0b1u8"); });
    expectBoth([] { return validateBinaryLiteral(u"0b1u8"); });
    expectBoth([] { return validateHexLiteral("0x1FFu8"); });
    expectBoth([] { return validateHexLiteral(u"0x1FFu8"); });
    expectBoth([] { return validateDoubleLiteral("1.5d3"); });
    expectBoth([] { return validateDoubleLiteral(u"1.5d"); });
}

TEST(LiteralsExhaustion, ParsingIsRightOrThrows) {
    expectBoth([] { return parseBinaryLiteral("0b10110111000101110010u32").which(); });
    expectBoth([] { return parseBinaryLiteral(u"0b10110111000101110010u32").which(); });
    expectBoth([] { return parseHexLiteral("0xFFFFFFFFFFFFFFFFs64").which(); });
    expectBoth([] { return parseHexLiteral(u"0xFFFFFFFFFFFFFFFFs64").which(); });
    expectBoth([] { return parseDoubleLiteral(std::string(5000, '7')); });
    expectBoth([] { return parseDoubleLiteral(std::u16string(5000, u'7')); });
}

/// The text of the exception, or nothing.
template <typename Call>
std::string failureOf(Call call) {
    try {
        call();
        return {};
    } catch (const NumberConversionError& error) {
        return error.getMessage() + NumberConversionError(error).getText();
    }
}

TEST(LiteralsExhaustion, FailureOfParsingIsRightOrThrows) {
    const std::string wrong = "0b" + std::string(100, '2');
    const std::u16string wide(wrong.begin(), wrong.end());
    expectBoth([&] { return failureOf([&] { parseBinaryLiteral(wrong); }); });
    expectBoth([&] { return failureOf([&] { parseHexLiteral(wide + u"zzz"); }); });
    expectBoth([&] { return failureOf([&] { parseDoubleLiteral(wrong); }); });
    expectBoth([&] { return failureOf([&] { parseDoubleLiteral(wide); }); });
}

TEST(LiteralsExhaustion, TextOfAValueIsWholeOrThrows) {
    const ValueToStringVisitor visitor;
    expectBoth([&] { return visitor.visit(-1LL); });
    expectBoth([&] { return visitor.visit(~0ULL); });
    expectBoth([&] { return visitor.visit(static_cast<signed char>(-1)); });
}

TEST(LiteralsExhaustion, TextOfADoubleIsWholeOrThrows) {
#if defined(_LIBCPP_VERSION)
    GTEST_SKIP() << "std::regex of libc++ uses a null pointer where memory runs out";
#endif
    const ValueToStringVisitor visitor;
    expectBoth([&] { return visitor.visit(-1.23456789012345e-300); });
    expectBoth([&] { return visitor.visit(Imaginary(1.0 / 3)); });
}

TEST(LiteralsExhaustion, InsertionIsWholeOrThrows) {
    expectBoth([] {
        std::ostringstream stream;
        stream.exceptions(std::ios_base::badbit);
        stream << Imaginary(1.0 / 3);
        return stream.str();
    });
    const auto insertWide = [](std::basic_ostringstream<char16_t>& stream) {
        stream.exceptions(std::ios_base::badbit);
        stream.width(40);
        stream << Imaginary(1.0 / 3);
        return stream.str();
    };
    expectBoth([&] {
        std::basic_ostringstream<char16_t> bare;
        return insertWide(bare);
    });
    expectBoth([&] {
        std::basic_ostringstream<char16_t> stream;
        stream.imbue(getChar16Locale());
        return insertWide(stream);
    });
}

} // namespace
} // namespace zt::orvex::internal
