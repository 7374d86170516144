#include <zt_orvex/literals/Imaginary.h>

#include "support/WidenedInsertion.h"

namespace zt::orvex {

Imaginary::Imaginary(double imaginaryPart) noexcept : value(imaginaryPart) {}

bool Imaginary::operator==(Imaginary other) const noexcept { return value == other.value; }
bool Imaginary::operator!=(Imaginary other) const noexcept { return value != other.value; }

Imaginary::operator std::complex<double>() const noexcept { return getComplexValue(); }
std::complex<double> Imaginary::getComplexValue() const noexcept { return {0.0, value}; }

std::ostream& operator<<(std::ostream& stream, Imaginary value) {
    return stream << value.getComplexValue().imag() << "i";
}

std::basic_ostream<char16_t>& operator<<(std::basic_ostream<char16_t>& stream, Imaginary value) {
    internal::insertNumber(stream, value.getComplexValue().imag());
    return internal::insertText(stream, u"i");
}

} // namespace zt::orvex
