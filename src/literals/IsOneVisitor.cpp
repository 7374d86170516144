#include <zt_orvex/literals/IsOneVisitor.h>

namespace zt::orvex::internal {

bool IsOneVisitor::visit(signed char value) const noexcept { return value == 1; }
bool IsOneVisitor::visit(unsigned char value) const noexcept { return value == 1; }
bool IsOneVisitor::visit(short value) const noexcept { return value == 1; }
bool IsOneVisitor::visit(unsigned short value) const noexcept { return value == 1; }
bool IsOneVisitor::visit(int value) const noexcept { return value == 1; }
bool IsOneVisitor::visit(unsigned int value) const noexcept { return value == 1; }
bool IsOneVisitor::visit(long long value) const noexcept { return value == 1; }
bool IsOneVisitor::visit(unsigned long long value) const noexcept { return value == 1; }
bool IsOneVisitor::visit(double value) const noexcept { return value == 1; }
bool IsOneVisitor::visit(Imaginary) const noexcept { return false; }

} // namespace zt::orvex::internal
