#pragma once

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex_kit/Export.h>
#include <zt_orvex_kit/body/FlowGraph.h>
#include <zt_orvex_kit/reasons/Explanation.h>

#include <boost/optional.hpp>

#include <functional>

namespace zt::orvex::kit {

/// @addtogroup kit_reasons
/// ## Finding reasons
///
/// The `explain` functions give reasons for what the library answers. The `check` function for each
/// accepts them.
///
/// Paths are the shortest there are; among several, the one whose nodes come first in the source.
/// So the same program has the same reasons on every machine. Each takes time linear in the graph,
/// but for `NotReadOnAPath` where control can only go round in loops: then in the graph times the
/// depth of the loops.
///
/// All throw std::invalid_argument("element not found") for a symbol outside the universe, or
/// outside that part of it that the graph knows.

/// Why the variable is live at the entry, or why it isn't, under the type and mode of the graph.
///
///     const Explanation why = explain(graph, symbol);
///     for (const FlowNode node : why.path.nodes) show(graph.nodeAt(node));
ZT_ORVEX_KIT_EXPORT Explanation explain(const FlowGraph& graph, const SymbolView& symbol);

/// Why an iteration of the construct whose body this is may read what an earlier one has written;
/// nothing if it can't. Throws std::invalid_argument("The graph is not one of type May") for
/// another.
ZT_ORVEX_KIT_EXPORT boost::optional<CarriedValue> explainCarried(const FlowGraph& body,
                                                                 const SymbolView& symbol);

/// Which accesses to a variable a reason may name: those that the functions accept. An empty
/// function accepts all.
struct AccessChoice {
    std::function<bool(const Access&)> isRead;  ///< Whether a reason may end at this read.
    std::function<bool(const Access&)> isWrite; ///< Whether a reason may begin at this write.
};

/// As above, but the value must reach one of the chosen reads, and come from one of the chosen
/// writes. A consumer that knows more of some accesses leaves them out: in
/// `u(i) = u(i) + u(i - 1)`, an iteration reads at `u(i)` only what it has written itself.
///
/// The writes that aren't chosen still end the way of a value. So does none of the reads. The
/// functions are called for accesses to the variable alone, maybe more than once for each.
ZT_ORVEX_KIT_EXPORT boost::optional<CarriedValue>
explainCarried(const FlowGraph& body, const SymbolView& symbol, const AccessChoice& among);

/// Why a value that the construct writes may be read after it; nothing if it can't. `construct` is
/// the graph of its body, `around` that of a body which holds the construct. Throws as
/// `explainCarried` does.
ZT_ORVEX_KIT_EXPORT boost::optional<ValueUsedAfter>
explainUsedAfter(const FlowGraph& construct, const FlowGraph& around, const SymbolView& symbol);

/// Why a value that the construct writes may still be there at the exit of `around`, where the
/// caller of a function takes its outputs; nothing if it can't. The path ends at the exit, not at a
/// read. Otherwise as `explainUsedAfter`.
ZT_ORVEX_KIT_EXPORT boost::optional<ValueUsedAfter>
explainReachesExit(const FlowGraph& construct, const FlowGraph& around, const SymbolView& symbol);

} // namespace zt::orvex::kit
