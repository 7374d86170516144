#include <zt_orvex/literals/IsZeroVisitor.h>

namespace zt::orvex::internal {

bool IsZeroVisitor::visit(signed char value) const noexcept { return value == 0; }
bool IsZeroVisitor::visit(unsigned char value) const noexcept { return value == 0; }
bool IsZeroVisitor::visit(short value) const noexcept { return value == 0; }
bool IsZeroVisitor::visit(unsigned short value) const noexcept { return value == 0; }
bool IsZeroVisitor::visit(int value) const noexcept { return value == 0; }
bool IsZeroVisitor::visit(unsigned int value) const noexcept { return value == 0; }
bool IsZeroVisitor::visit(long long value) const noexcept { return value == 0; }
bool IsZeroVisitor::visit(unsigned long long value) const noexcept { return value == 0; }
bool IsZeroVisitor::visit(double value) const noexcept { return value == 0; }
bool IsZeroVisitor::visit(Imaginary value) const noexcept { return value == Imaginary(0.0); }

} // namespace zt::orvex::internal
