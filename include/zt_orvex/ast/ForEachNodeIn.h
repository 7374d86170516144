#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/support/Export.h>

#include <functional>

namespace zt::orvex {

/// Calls `callback` for `root` and for every node below it, parent before children.
///
/// The order of the children is fixed for each kind: that of the rows in NodeKinds.def. A node of
/// an unknown kind is skipped with its subtree: no call, no error, and the walk continues with the
/// next node.
///
///     std::size_t loops = 0;
///     forEachNodeIn(program, [&](NodeView node) {
///         if (node.getKind() == NodeKind::ForStatement) ++loops;
///     });
///
/// The function object isn't copied, so a stateful one keeps its state for the whole walk. A
/// callback may start walks of its own. A callback that takes the view by reference must copy it to
/// keep it: the reference is valid during the call only.
///
/// What the walk asks: the kind of every node once; the size of a range anew before each element;
/// an optional child once to see whether it is there and, if so, a second time to use it.
///
/// Cost: one `getNodeKind` and one call of `callback` for each node, and no heap allocation. The
/// walk recurses on the stack, as deep as the tree; there is no limit and no detection of cycles.
///
/// Throws std::bad_function_call if `callback` is empty and the kind of `root` is known. Exceptions
/// from `callback` or from the tree propagate unchanged; they are the only way to stop early.
ZT_ORVEX_EXPORT void forEachNodeIn(const NodeView& root,
                                   const std::function<void(NodeView)>& callback);

} // namespace zt::orvex
