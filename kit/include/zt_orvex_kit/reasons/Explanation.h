#pragma once

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex_kit/body/Access.h>
#include <zt_orvex_kit/body/FlowGraph.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <vector>

namespace zt::orvex::kit {

/// Why a path ends where it ends.
enum class PathEnd : std::uint8_t {
    Read,  ///< At a node that makes the variable live.
    Write, ///< At a node that ends its liveness.
    Exit,  ///< At the exit.
    Loop,  ///< At a node that the path has passed before: from there it goes round for ever.
};

/// A path of control flow: each node is a successor of the one before.
struct FlowPath {
    std::vector<FlowNode> nodes;    ///< From the first to the last, both included.
    PathEnd end = PathEnd::Exit;    ///< What the last node is.
    boost::optional<Access> access; ///< The read or write at which it ends.
};

/// What proves that a variable is live at the entry of a body, or isn't.
enum class ReasonKind : std::uint8_t {
    /// May, live: a shortest path from the entry to a read, with no whole write before it.
    ReadOnAPath,
    /// May, not live: every path to a read comes to one of the `writes` first. Without any, no path
    /// comes to a read at all.
    WrittenFirst,
    /// Must, live: all paths meet a certain read before any write.
    ReadOnEveryPath,
    /// Must, not live: a shortest path from the entry that meets a write, the exit, or itself, but
    /// no certain read.
    NotReadOnAPath,
};

/// A flow node, and when the solution reached it.
struct RankedNode {
    FlowNode node; ///< The node that has the rank.
    /// 0 for a node that reads the variable for certain; else one more than the highest rank among
    /// its successors. The path from any node is thus finite, and ends at a read.
    std::uint32_t rank;
};

/// Why a variable is live at the entry of a body, or why it isn't.
struct Explanation {
    SymbolView symbol;             ///< The variable.
    bool isLive;                   ///< The verdict.
    ReasonKind kind;               ///< Which of the fields below holds the reason.
    FlowPath path;                 ///< `ReadOnAPath` and `NotReadOnAPath`.
    std::vector<FlowNode> writes;  ///< `WrittenFirst`: in ascending order.
    std::vector<RankedNode> ranks; ///< `ReadOnEveryPath`: ascending by node, the entry among them.
};

/// Why an iteration may read what an earlier one has written.
struct CarriedValue {
    SymbolView symbol; ///< The variable.
    /// From the node that writes to the exit, with no whole write after the first; `access` is the
    /// write. Some path leads from the entry to the first node.
    FlowPath write;
    /// From the entry to the read, as in an explanation of `ReadOnAPath`.
    FlowPath read;
};

/// Why a value that a construct writes is read after it, or is still there at the end.
struct ValueUsedAfter {
    SymbolView symbol; ///< The variable.
    Access write;      ///< The write in the construct: an access of the first node of `path`.
    /// In the graph of the body around the construct: from the node inside that writes, out of the
    /// construct, and on to the read or the exit, with no whole write between. Some path leads from
    /// the entry to the first node.
    FlowPath path;
};

} // namespace zt::orvex::kit
