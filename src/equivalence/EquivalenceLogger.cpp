#include <zt_orvex/equivalence/EquivalenceLogger.h>

namespace zt::orvex {

EquivalenceLogger::EquivalenceLogger() = default;
EquivalenceLogger::~EquivalenceLogger() = default;

} // namespace zt::orvex
