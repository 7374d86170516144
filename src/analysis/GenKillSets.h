#pragma once

#include "analysis/Effect.h"

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/flow/internal/BitSetAccess.h>

#include <cstdint>

namespace zt::orvex::flow::internal {

/// The set of a node's transfer function that an effect adds its variable to.
enum class GenOrKill : std::uint8_t { Neither, Gen, Kill };

/// What an effect counts as under the settings of an analysis.
///
///     effect             May                             Must
///     certain read       gen                             gen
///     conditional read   gen                             neither: it may not happen
///     whole write        kill                            kill
///     partial write      gen: the rest stays live        kill: it ends liveness
///     implicit target    kill in mode `Ans`, or neither  kill
///
/// Deliberate: under `May`, the modes other than `Ans` ignore implicit targets.
constexpr GenOrKill classify(EffectKind effect, AnalysisTypeView type, AnalysisModeView mode) {
    const bool isMay = type == AnalysisTypeView::May;
    switch (effect) {
    case EffectKind::CertainRead:
        return GenOrKill::Gen;
    case EffectKind::ConditionalRead:
        return isMay ? GenOrKill::Gen : GenOrKill::Neither;
    case EffectKind::WholeWrite:
        return GenOrKill::Kill;
    case EffectKind::PartialWrite:
        return isMay ? GenOrKill::Gen : GenOrKill::Kill;
    case EffectKind::ImplicitTarget:
        return isMay && mode != AnalysisModeView::Ans ? GenOrKill::Neither : GenOrKill::Kill;
    }
    return GenOrKill::Neither;
}

/// A sink of `HeadEffects` that gathers the two sets of a node's transfer function.
class GenKillSets {
public:
    GenKillSets(const OrderedSet<SymbolView>& universe, AnalysisTypeView analysisType,
                AnalysisModeView analysisMode)
        : type(analysisType), mode(analysisMode), genSet(universe), killSet(universe) {}

    /// Empties both sets and brings them to the size of the universe.
    void clear() {
        genSet.clear();
        killSet.clear();
    }

    // Always inlined, so that no `Effect` is ever built in memory: most calls know its kind.
    [[gnu::always_inline]] inline void record(const Effect& effect) {
        switch (classify(effect.kind, type, mode)) {
        case GenOrKill::Gen:
            return insert(effect.index, genSet);
        case GenOrKill::Kill:
            return insert(effect.index, killSet);
        case GenOrKill::Neither:
            return;
        }
    }

    /// The variables that the node makes live.
    const BitSet<SymbolView>& gen() const { return genSet; }
    /// The variables whose liveness after the node ends at it.
    const BitSet<SymbolView>& kill() const { return killSet; }

private:
    /// By index, since the symbol has been looked up already.
    static void insert(std::uint64_t index, BitSet<SymbolView>& set) {
        set.growToUniverse();
        BitSetAccess::addIndex(set, index);
    }

    AnalysisTypeView type;
    AnalysisModeView mode;
    BitSet<SymbolView> genSet;
    BitSet<SymbolView> killSet;
};

} // namespace zt::orvex::flow::internal
