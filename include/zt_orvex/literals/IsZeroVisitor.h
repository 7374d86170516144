#pragma once

#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/support/Export.h>

namespace zt::orvex::internal {

/// Whether the value of a literal equals 0. Minus 0 does, a NaN doesn't.
class ZT_ORVEX_EXPORT IsZeroVisitor {
public:
    /// @{
    /// Whether `value` is 0.
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

    /// Whether the imaginary part is 0: then the whole number is.
    bool visit(Imaginary value) const noexcept;
};

} // namespace zt::orvex::internal
