#include <zt_orvex/literals/IsNegativeVisitor.h>

namespace zt::orvex::internal {

bool IsNegativeVisitor::visit(signed char value) const noexcept { return value < 0; }
bool IsNegativeVisitor::visit(unsigned char) const noexcept { return false; }
bool IsNegativeVisitor::visit(short value) const noexcept { return value < 0; }
bool IsNegativeVisitor::visit(unsigned short) const noexcept { return false; }
bool IsNegativeVisitor::visit(int value) const noexcept { return value < 0; }
bool IsNegativeVisitor::visit(unsigned int) const noexcept { return false; }
bool IsNegativeVisitor::visit(long long value) const noexcept { return value < 0; }
bool IsNegativeVisitor::visit(unsigned long long) const noexcept { return false; }
bool IsNegativeVisitor::visit(double value) const noexcept { return value < 0; }
bool IsNegativeVisitor::visit(Imaginary) const noexcept { return false; }

} // namespace zt::orvex::internal
