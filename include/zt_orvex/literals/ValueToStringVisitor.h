#pragma once

#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/support/Export.h>

#include <string>

namespace zt::orvex::internal {

/// Writes the value of a literal as text. Throws std::bad_alloc where memory runs out.
///
/// An integer becomes a hexadecimal literal of its type's full width, which `parseHexLiteral` reads
/// back as the same type and bits: -1 as `signed char` is 0xFFs8, and 26 as `unsigned int` is
/// 0x0000001Au32. The global locale makes no difference.
///
/// A double has up to 15 significant digits, and a point or an exponent only if it needs one: 1,
/// 0.1, 1e+20, 0.333333333333333, nan. Different doubles can print alike, and need not read back.
/// They print under the current global locale: where its decimal mark is a comma, 2.5 is 2,5. An
/// `Imaginary` is its double followed by an "i": 2.5i.
class ZT_ORVEX_EXPORT ValueToStringVisitor {
public:
    /// @{
    /// A hexadecimal literal with the suffix of the type and as many digits as it has room for.
    std::string visit(signed char value) const;
    std::string visit(unsigned char value) const;
    std::string visit(short value) const;
    std::string visit(unsigned short value) const;
    std::string visit(int value) const;
    std::string visit(unsigned int value) const;
    std::string visit(long long value) const;
    std::string visit(unsigned long long value) const;
    /// @}
    /// At most 15 significant digits, under the global locale.
    std::string visit(double value) const;
    /// The text of the imaginary part, followed by an "i".
    std::string visit(Imaginary value) const;
};

} // namespace zt::orvex::internal
