#include "ast/ForEachForStatementIn.h"

#include "ast/TreeWalker.h"

namespace zt::orvex::internal {

namespace {

struct ForStatementHook {
    const std::function<void(ForStatementView)>& callback;

    void operator()(const NodeView& node, NodeKind kind) const {
        if (kind == NodeKind::ForStatement) callback(ForStatementView(node));
    }
};

} // namespace

void forEachForStatementIn(const NodeView& root,
                           const std::function<void(ForStatementView)>& callback) {
    const ForStatementHook hook{callback};
    TreeWalker{hook}(root);
}

} // namespace zt::orvex::internal
