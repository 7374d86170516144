#pragma once

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/support/Fnv1a.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>

namespace zt::orvex {

class IAstView;

/// A handle that names one node of a consumer's tree.
///
/// Two words, copied freely, owning nothing. Two views are equal when their handles are equal, and
/// hash by the handle alone; `view` is ignored. Neither word is checked: a null `view`, or a handle
/// that means nothing to it, is the caller's error.
struct NodeView {
    std::uint64_t node;   ///< Identifies the node to `view`; the library never looks inside.
    const IAstView* view; ///< The tree to ask; must outlive the handle.

    /// Asks `view` for the node's kind. Defined in IAstView.h, which callers must include.
    inline NodeKind getKind() const;

    /// @{
    /// Compares the handles alone. Nodes of two trees can be equal: don't mix them in one set.
    friend bool operator==(const NodeView& a, const NodeView& b) { return a.node == b.node; }
    friend bool operator!=(const NodeView& a, const NodeView& b) { return a.node != b.node; }
    /// @}
};

static_assert(sizeof(NodeView) == 16 && std::is_trivially_copyable_v<NodeView>);

} // namespace zt::orvex

/// Hashes by the handle alone, as equality compares; the same value on every machine.
template <>
struct std::hash<zt::orvex::NodeView> {
    /// The FNV-1a hash of the handle.
    std::size_t operator()(const zt::orvex::NodeView& node) const noexcept {
        return zt::orvex::internal::fnv1a(node.node);
    }
};
