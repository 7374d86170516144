#include <zt_orvex/literals/ValueToStringVisitor.h>

#include "literals/TrailingZeros.h"

#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <type_traits>

namespace zt::orvex::internal {

namespace {

// A stream turns a failed allocation into a shorter text, unless `badbit` throws.

template <class Integer>
std::string toHexLiteral(Integer value, const char* suffix) {
    using Bits = std::make_unsigned_t<Integer>;
    std::ostringstream stream;
    stream.exceptions(std::ios_base::badbit);
    // Under a global locale that groups digits the text wouldn't read back.
    stream.imbue(std::locale::classic());
    stream << "0x" << std::setfill('0') << std::setw(std::numeric_limits<Bits>::digits / 4)
           << std::uppercase << std::hex
           << static_cast<unsigned long long>(static_cast<Bits>(value)) << suffix;
    return stream.str();
}

} // namespace

std::string ValueToStringVisitor::visit(signed char value) const {
    return toHexLiteral(value, "s8");
}

std::string ValueToStringVisitor::visit(unsigned char value) const {
    return toHexLiteral(value, "u8");
}

std::string ValueToStringVisitor::visit(short value) const { return toHexLiteral(value, "s16"); }

std::string ValueToStringVisitor::visit(unsigned short value) const {
    return toHexLiteral(value, "u16");
}

std::string ValueToStringVisitor::visit(int value) const { return toHexLiteral(value, "s32"); }

std::string ValueToStringVisitor::visit(unsigned int value) const {
    return toHexLiteral(value, "u32");
}

std::string ValueToStringVisitor::visit(long long value) const {
    return toHexLiteral(value, "s64");
}

std::string ValueToStringVisitor::visit(unsigned long long value) const {
    return toHexLiteral(value, "u64");
}

// Deliberate: the stream's general format never ends a fraction in zero, so there is nothing to
// drop. The step states the form of the text independently of the format that precedes it.
std::string ValueToStringVisitor::visit(double value) const {
    std::ostringstream stream;
    stream.exceptions(std::ios_base::badbit);
    stream << std::setprecision(15) << value;
    return dropTrailingZeros(stream.str());
}

std::string ValueToStringVisitor::visit(Imaginary value) const {
    return visit(value.getComplexValue().imag()) + "i";
}

} // namespace zt::orvex::internal
