#pragma once

#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/support/Export.h>

namespace zt::orvex::internal {

/// Whether the value of a literal is below 0. Minus 0 isn't, nor is a NaN.
class ZT_ORVEX_EXPORT IsNegativeVisitor {
public:
    /// @{
    /// Whether `value` is below 0: never if its type is unsigned.
    bool visit(signed char value) const noexcept;
    bool visit(unsigned char value) const noexcept;
    bool visit(short value) const noexcept;
    bool visit(unsigned short value) const noexcept;
    bool visit(int value) const noexcept;
    bool visit(unsigned int value) const noexcept;
    bool visit(long long value) const noexcept;
    bool visit(unsigned long long value) const noexcept;
    bool visit(double value) const noexcept;
    /// @}

    /// Deliberate: false, even below 0. An imaginary literal never counts as negative.
    bool visit(Imaginary value) const noexcept;
};

} // namespace zt::orvex::internal
