// Input: eight bytes, which are each of the types that a literal's value can have, and the settings
// of a stream. Visitors are compared with plain arithmetic and the C library's printing; printed
// integers are read back.
#include "Require.h"
#include "testing/Random.h"

#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/literals/IsNegativeVisitor.h>
#include <zt_orvex/literals/IsOneVisitor.h>
#include <zt_orvex/literals/IsZeroVisitor.h>
#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>
#include <zt_orvex/literals/LiteralValue.h>
#include <zt_orvex/literals/ValueToStringVisitor.h>
#include <zt_orvex/support/Char16Locale.h>

#include <complex>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iomanip>
#include <ios>
#include <sstream>
#include <string>
#include <type_traits>

using namespace zt::orvex;
using fuzz::require;

namespace {

template <typename Integer>
void checkInteger(std::uint64_t bits) {
    const auto value = static_cast<Integer>(bits);
    constexpr std::size_t WIDTH = 8 * sizeof value;
    const std::uint64_t shown = WIDTH == 64 ? bits : bits & ((std::uint64_t{1} << WIDTH % 64) - 1);
    char expected[64];
    std::snprintf(expected, sizeof expected, "0x%0*llX%c%zu", static_cast<int>(WIDTH / 4),
                  static_cast<unsigned long long>(shown), std::is_signed_v<Integer> ? 's' : 'u',
                  WIDTH);
    const std::string text = internal::ValueToStringVisitor().visit(value);
    require(text == expected, "an integer is a hexadecimal literal");
    require(internal::validateHexLiteral(text) == internal::LiteralValidationResult::Valid,
            "the literal is valid");
    require(internal::parseHexLiteral(text) == internal::IntegerLiteralValue(value),
            "it reads back as the same type and value");
    require(internal::IsZeroVisitor().visit(value) == (shown == 0), "zero");
    require(internal::IsOneVisitor().visit(value) == (shown == 1), "one");
    require(internal::IsNegativeVisitor().visit(value) ==
                (std::is_signed_v<Integer> && shown >> (WIDTH - 1) != 0),
            "negative");
}

bool areAlike(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

void checkDouble(double value) {
    char expected[64];
    std::snprintf(expected, sizeof expected, "%.15g", value);
    const internal::ValueToStringVisitor toString;
    require(toString.visit(value) == expected, "a double as the C library prints it");
    require(toString.visit(Imaginary(value)) == expected + std::string("i"), "and an i");

    const bool isZero = value == 0.0;
    require(internal::IsZeroVisitor().visit(value) == isZero, "zero");
    require(internal::IsZeroVisitor().visit(Imaginary(value)) == isZero, "zero");
    require(internal::IsOneVisitor().visit(value) == (value == 1.0), "one");
    require(!internal::IsOneVisitor().visit(Imaginary(value)), "never one");
    require(internal::IsNegativeVisitor().visit(value) == (value < 0.0), "negative");
    require(!internal::IsNegativeVisitor().visit(Imaginary(value)), "never negative");
}

void checkImaginary(double a, double b) {
    const std::complex<double> converted = Imaginary(a);
    require(areAlike(converted.imag(), a) && areAlike(converted.real(), 0.0), "the complex value");
    require(areAlike(Imaginary(a).getComplexValue().imag(), a), "the same");
    require((Imaginary(a) == Imaginary(b)) == (a == b), "equal");
    require((Imaginary(a) != Imaginary(b)) == (a != b), "unequal");
}

template <typename Stream>
void configure(Stream& stream, std::uint64_t settings) {
    constexpr std::ios_base::fmtflags FLAGS[] = {
        std::ios_base::fixed,    std::ios_base::scientific, std::ios_base::showpoint,
        std::ios_base::showpos,  std::ios_base::uppercase,  std::ios_base::left,
        std::ios_base::internal, std::ios_base::right};
    for (std::size_t i = 0; i < 8; ++i) {
        if ((settings >> i & 1) != 0) stream.setf(FLAGS[i]);
    }
    stream.width(static_cast<std::streamsize>(settings >> 8 & 31));
    stream.precision(static_cast<std::streamsize>(settings >> 16 & 31));
}

/// On streams of both widths, with and without a locale for 16-bit characters.
void checkInserters(double value, std::uint64_t settings) {
    std::ostringstream plain;
    configure(plain, settings);
    plain << value;
    const std::string expected = plain.str() + "i";

    std::ostringstream narrow;
    configure(narrow, settings);
    narrow << Imaginary(value);
    require(narrow.str() == expected, "as the number, and an i");

    for (const bool isImbued : {false, true}) {
        std::basic_ostringstream<char16_t> wide;
        if (isImbued) wide.imbue(getChar16Locale());
        configure(wide, settings);
        wide << Imaginary(value);
        require(wide.good() && wide.width() == 0, "the stream is usable");
        require(wide.str() == std::u16string(expected.begin(), expected.end()),
                "the same in 16 bits");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    testing::Random random(data, size);
    const std::uint64_t bits = random.next();
    checkInteger<signed char>(bits);
    checkInteger<unsigned char>(bits);
    checkInteger<short>(bits);
    checkInteger<unsigned short>(bits);
    checkInteger<int>(bits);
    checkInteger<unsigned int>(bits);
    checkInteger<long long>(bits);
    checkInteger<unsigned long long>(bits);

    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    const std::uint64_t settings = random.next();
    double other = 0;
    std::memcpy(&other, &settings, sizeof other);
    for (const double each : {value, static_cast<double>(bits), static_cast<double>(bits) / 1e9,
                              static_cast<double>(bits % 4096) / 64 - 32}) {
        checkDouble(each);
        checkImaginary(each, random.oneIn(4) ? each : other);
        checkInserters(each, settings);
    }
    return 0;
}
