#pragma once

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex_kit/tree/DumpTree.h>

#include <optional>
#include <string>

namespace zt::orvex::kit::internal {

/// What a dump shows of one node, apart from its place. All text is UTF-8.
struct NodeFacts {
    NodeView node = {};
    bool hasView = false; ///< If not, the rest isn't known.
    NodeKind kind = NodeKind::Invalid;
    std::optional<std::string> name;     ///< Of an identifier.
    std::optional<std::string> symbol;   ///< "0x5", of an identifier.
    bool isVariable = true;              ///< Whether that symbol is one.
    std::optional<std::string> spelling; ///< Of the operator of an operation.
    std::optional<std::string> literal;
};

NodeFacts factsOf(const NodeView& node, const DumpOptions& options);

} // namespace zt::orvex::kit::internal
