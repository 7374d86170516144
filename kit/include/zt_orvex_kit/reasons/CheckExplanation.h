#pragma once

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex_kit/Export.h>
#include <zt_orvex_kit/body/FlowGraph.h>
#include <zt_orvex_kit/reasons/Explanation.h>

#include <string>

namespace zt::orvex::kit {

/// What a check of a reason found.
struct ExplanationCheck {
    /// What is wrong with it, as a sentence; empty if the reason proves its verdict.
    std::string objection;

    /// Whether the reason proves its verdict.
    bool isProof() const { return objection.empty(); }
};

/// @addtogroup kit_reasons
/// ## Checking reasons
///
/// The `check` functions say whether a reason proves what it claims. They know nothing of how
/// reasons are found, and look at nothing but nodes, edges and accesses: not at what the graph says
/// is live. They accept any bytes as a reason, and take time linear in the graph and the reason.

/// Whether the explanation proves that `symbol` is live at the entry of `graph`, or that it isn't.
ZT_ORVEX_KIT_EXPORT ExplanationCheck checkExplanation(const FlowGraph& graph,
                                                      const SymbolView& symbol,
                                                      const Explanation& explanation);
/// Whether the reason proves that an iteration of `body` may read what another one has written.
ZT_ORVEX_KIT_EXPORT ExplanationCheck checkCarried(const FlowGraph& body, const SymbolView& symbol,
                                                  const CarriedValue& reason);
/// Whether the reason proves that a value which `construct` writes may be read after it, in
/// `around`.
ZT_ORVEX_KIT_EXPORT ExplanationCheck checkUsedAfter(const FlowGraph& construct,
                                                    const FlowGraph& around,
                                                    const SymbolView& symbol,
                                                    const ValueUsedAfter& reason);
/// Whether the reason proves that a value which `construct` writes may still be there at the exit
/// of `around`.
ZT_ORVEX_KIT_EXPORT ExplanationCheck checkReachesExit(const FlowGraph& construct,
                                                      const FlowGraph& around,
                                                      const SymbolView& symbol,
                                                      const ValueUsedAfter& reason);

} // namespace zt::orvex::kit
