#pragma once

#include "tree/Parts.h"

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex_kit/tree/KindName.h>

#include <cstdint>
#include <locale>
#include <sstream>
#include <string>

namespace zt::orvex::kit::internal {

/// "0x1f".
inline std::string hexText(std::uint64_t handle) {
    std::ostringstream text;
    text.imbue(std::locale::classic()); // which doesn't group digits
    text << "0x" << std::hex << handle;
    return text.str();
}

/// "node 0x1f".
inline std::string handleText(const char* what, std::uint64_t handle) {
    return std::string(what) + ' ' + hexText(handle);
}

/// "IfStatement", or "unknown kind 200".
inline std::string kindText(NodeKind kind) {
    if (isKnown(kind)) return std::string(kindName(kind));
    return "unknown kind " + std::to_string(static_cast<int>(kind));
}

} // namespace zt::orvex::kit::internal
