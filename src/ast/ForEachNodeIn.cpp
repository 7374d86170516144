#include <zt_orvex/ast/ForEachNodeIn.h>

#include "ast/TreeWalker.h"

namespace zt::orvex {

void forEachNodeIn(const NodeView& root, const std::function<void(NodeView)>& callback) {
    const auto hook = [&callback](const NodeView& node, NodeKind) { callback(node); };
    internal::TreeWalker{hook}(root);
}

} // namespace zt::orvex
