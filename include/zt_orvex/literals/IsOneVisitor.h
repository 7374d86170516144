#pragma once

#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/support/Export.h>

namespace zt::orvex::internal {

/// Whether the value of a literal equals 1.
class ZT_ORVEX_EXPORT IsOneVisitor {
public:
    /// @{
    /// Whether `value` is exactly 1.
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

    /// Deliberate: always false. An imaginary literal never counts as one.
    bool visit(Imaginary value) const noexcept;
};

} // namespace zt::orvex::internal
