#pragma once

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex_kit/Export.h>

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string_view>

namespace zt::orvex::kit {

/// What a child is to its parent.
struct ChildRole {
    /// The operation of `IAstView` that returned the child, or the range that it is in:
    /// "getIfBody". It lives as long as the program. Empty for a root, which nobody returned.
    std::string_view accessor;
    std::uint64_t index = 0;     ///< In its range, from 0.
    bool isRangeElement = false; ///< Whether `index` means something.

    /// @{
    /// Compares all three; the accessors by their text.
    friend bool operator==(const ChildRole& a, const ChildRole& b) {
        return a.accessor == b.accessor && a.index == b.index &&
               a.isRangeElement == b.isRangeElement;
    }
    friend bool operator!=(const ChildRole& a, const ChildRole& b) { return !(a == b); }
    /// @}
};

/// Writes "getIfCondition", or "getIfBody[2]" for an element of a range.
ZT_ORVEX_KIT_EXPORT std::ostream& operator<<(std::ostream& stream, const ChildRole& role);

/// Calls `callback` with each child of `node` and its role, in the order in which `forEachNodeIn`
/// visits them. It doesn't descend.
///
///     forEachChild(node, [](NodeView child, const ChildRole& role) {
///         std::cout << role << ": " << kindName(child.getKind()) << '\n';
///     });
///
/// A node of an unknown kind has no children. An optional child is asked for once, the size of a
/// range before each element. Exceptions of the tree and of the callback pass through.
ZT_ORVEX_KIT_EXPORT void
forEachChild(const NodeView& node,
             const std::function<void(const NodeView&, const ChildRole&)>& callback);

} // namespace zt::orvex::kit
