#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/support/Export.h>

#include <boost/optional.hpp>

namespace zt::orvex {

/// A tree in the order left operand, node, right operand: that of its source text.
///
/// An interface between other modules: one derives from this class, another one walks. The library
/// only declares and exports it. It doesn't check what an implementation returns, and how long
/// handles stay valid is for those two modules to agree on.
///
///     for (auto node = adapter.getFirst(); node; node = adapter.getNext(*node)) print(*node);
///
/// The order of the declarations is part of the binary interface. If there is no such node, the
/// answer is an empty optional.
class ZT_ORVEX_EXPORT ILnrAdapter {
public:
    virtual ~ILnrAdapter();

    /// The node without a parent; none in an empty tree.
    virtual boost::optional<NodeView> getRoot() const = 0;
    /// The node of which `node` is an operand; none for the root.
    virtual boost::optional<NodeView> getParent(const NodeView& node) const = 0;
    /// The operand that precedes the node in source text.
    virtual boost::optional<NodeView> getLeft(const NodeView& node) const = 0;
    /// The operand that follows it.
    virtual boost::optional<NodeView> getRight(const NodeView& node) const = 0;
    /// Where a walk begins: the node without a predecessor.
    virtual boost::optional<NodeView> getFirst() const = 0;
    /// The node that a walk comes to after `node`; none after the last.
    virtual boost::optional<NodeView> getNext(const NodeView& node) const = 0;
    /// The node that a walk comes to before `node`; none before the first.
    virtual boost::optional<NodeView> getPrevious(const NodeView& node) const = 0;

    ILnrAdapter();
    /// @{
    /// Copies nothing: there is nothing to copy.
    ILnrAdapter(const ILnrAdapter& other);
    ILnrAdapter& operator=(const ILnrAdapter& other);
    /// @}
};

} // namespace zt::orvex
