#pragma once

#include <zt_orvex/support/Export.h>

#include <complex>
#include <ostream>

namespace zt::orvex {

/// The value of an imaginary literal such as 2.5i. Holds the imaginary part; the real part is zero
/// by definition.
///
///     const Imaginary value(2.5);
///     std::complex<double> z = value;  // (0, 2.5)
///     std::cout << value;              // 2.5i
class ZT_ORVEX_EXPORT Imaginary {
public:
    /// Converts implicitly: any `double` is an imaginary part.
    Imaginary(double imaginaryPart) noexcept;

    /// @{
    /// Compares as `double` does: a NaN is unequal to everything, and 0.0 equals -0.0.
    bool operator==(Imaginary other) const noexcept;
    bool operator!=(Imaginary other) const noexcept;
    /// @}

    /// @{
    /// The number with a real part of 0.
    operator std::complex<double>() const noexcept;
    std::complex<double> getComplexValue() const noexcept;
    /// @}

private:
    double value;
};

/// @{
/// Writes the value with the stream's flags, precision, width and fill, followed by an "i": the
/// padding belongs to the number. A 16-bit stream needs no locale for 16-bit characters.
ZT_ORVEX_EXPORT std::ostream& operator<<(std::ostream& stream, Imaginary value);
ZT_ORVEX_EXPORT std::basic_ostream<char16_t>& operator<<(std::basic_ostream<char16_t>& stream,
                                                         Imaginary value);
/// @}

} // namespace zt::orvex
