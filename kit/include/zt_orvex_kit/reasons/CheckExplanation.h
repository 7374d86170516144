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

    bool isProof() const { return objection.empty(); }
};

// Whether a reason proves what it claims. These know nothing of how reasons are found, and look at
// nothing but nodes, edges and accesses: not at what the graph says is live. They accept any bytes as
// a reason, and take time linear in the graph and the reason.

ZT_ORVEX_KIT_EXPORT ExplanationCheck checkExplanation(const FlowGraph& graph,
                                                      const SymbolView& symbol,
                                                      const Explanation& explanation);
ZT_ORVEX_KIT_EXPORT ExplanationCheck checkCarried(const FlowGraph& body, const SymbolView& symbol,
                                                  const CarriedValue& reason);
ZT_ORVEX_KIT_EXPORT ExplanationCheck checkUsedAfter(const FlowGraph& construct,
                                                    const FlowGraph& around,
                                                    const SymbolView& symbol,
                                                    const ValueUsedAfter& reason);
ZT_ORVEX_KIT_EXPORT ExplanationCheck checkReachesExit(const FlowGraph& construct,
                                                      const FlowGraph& around,
                                                      const SymbolView& symbol,
                                                      const ValueUsedAfter& reason);

} // namespace zt::orvex::kit
