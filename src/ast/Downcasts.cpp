#include "ast/Downcasts.h"

#include <stdexcept>

namespace zt::orvex::internal {

void throwUnexpectedKind(const char* message) { throw std::logic_error(message); }

} // namespace zt::orvex::internal
