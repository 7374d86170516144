#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/support/Export.h>

#include <boost/optional.hpp>

namespace zt::orvex {

/// A tree in the order left operand, node, right operand: that of its source text.
///
/// A point of contact between other modules. One of them derives from this class, another one
/// walks; the library declares and exports it and does nothing else with it. So it neither checks
/// what an implementation answers nor asks that the handles live longer than those two agree on.
///
///   for (auto node = adapter.getFirst(); node; node = adapter.getNext(*node)) print(*node);
///
/// The order of the declarations is part of the binary interface. Where there is no such node the
/// answer is an empty optional.
class ZT_ORVEX_EXPORT ILnrAdapter {
public:
    virtual ~ILnrAdapter();

    /// The node that has no parent; none in an empty tree.
    virtual boost::optional<NodeView> getRoot() const = 0;
    virtual boost::optional<NodeView> getParent(const NodeView& node) const = 0;
    /// The operand that stands in front of the node in source text.
    virtual boost::optional<NodeView> getLeft(const NodeView& node) const = 0;
    /// The operand that stands behind it.
    virtual boost::optional<NodeView> getRight(const NodeView& node) const = 0;
    /// Where a walk begins: the node that has no predecessor.
    virtual boost::optional<NodeView> getFirst() const = 0;
    virtual boost::optional<NodeView> getNext(const NodeView& node) const = 0;
    virtual boost::optional<NodeView> getPrevious(const NodeView& node) const = 0;

    ILnrAdapter();
    ILnrAdapter(const ILnrAdapter& other);
    /// Copies nothing: there is nothing to copy.
    ILnrAdapter& operator=(const ILnrAdapter& other);
};

} // namespace zt::orvex
