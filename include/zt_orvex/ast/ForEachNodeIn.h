#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/support/Export.h>

#include <functional>

namespace zt::orvex {

/// Calls `callback` for `root` and for every node below it, parent before children.
///
/// The order of the children is fixed for each kind. A node of kind 0, or of a kind above 66, is
/// skipped with all that is below it: no call, no error, and the walk goes on behind it.
///
///   std::size_t loops = 0;
///   forEachNodeIn(program, [&](NodeView node) {
///       if (node.getKind() == NodeKind::ForStatement) ++loops;
///   });
///
/// The function object is not copied, so one that has state keeps it over the whole walk. A
/// callback may start walks of its own. A callback that takes the view by reference must copy it to
/// keep it: the reference is valid during the call only.
///
/// What the walk asks: the kind of every node once; the size of a range anew before each element;
/// an optional child once to see whether it is there and, if so, once more to use it.
///
/// Cost: one `getNodeKind` and one call of `callback` a node, nothing on the heap. The walk
/// recurses on the stack, as deep as the tree; there is no limit and no detection of cycles.
///
/// Throws std::bad_function_call if `callback` is empty and the kind of `root` is valid. Exceptions
/// from `callback` or from the tree pass out unchanged; they are the only way to stop early.
ZT_ORVEX_EXPORT void forEachNodeIn(const NodeView& root,
                                   const std::function<void(NodeView)>& callback);

} // namespace zt::orvex
