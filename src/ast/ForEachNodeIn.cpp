#include <zt_orvex/ast/ForEachNodeIn.h>

#include "ast/TreeWalker.h"

namespace zt::orvex {

void forEachNodeIn(const NodeView& root, const std::function<void(NodeView)>& callback) {
    internal::TreeWalker{callback}(root);
}

} // namespace zt::orvex
