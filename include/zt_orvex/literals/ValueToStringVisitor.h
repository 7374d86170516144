#pragma once

#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/support/Export.h>

#include <string>

namespace zt::orvex::internal {

/// The text of a literal's value.
///
/// An integer is a hexadecimal literal of its type's full width, sign and all in the bits, which
/// parseHexLiteral reads back as the same type and bits: -1 as `signed char` is 0xFFs8 and 26 as
/// `unsigned int` is 0x0000001Au32. It looks so under every global locale.
///
/// A double has up to 15 significant digits and no more form than it needs: 1, 0.1, 1e+20,
/// 0.333333333333333, nan. Two doubles can print alike. An `Imaginary` is the same with an "i"
/// behind it: 2.5i. Doubles don't promise to read back, and they print under the global locale of
/// the moment: where its decimal mark is a comma, 2.5 is 2,5.
class ZT_ORVEX_EXPORT ValueToStringVisitor {
public:
    std::string visit(signed char value) const;
    std::string visit(unsigned char value) const;
    std::string visit(short value) const;
    std::string visit(unsigned short value) const;
    std::string visit(int value) const;
    std::string visit(unsigned int value) const;
    std::string visit(long long value) const;
    std::string visit(unsigned long long value) const;
    std::string visit(double value) const;
    std::string visit(Imaginary value) const;
};

} // namespace zt::orvex::internal
