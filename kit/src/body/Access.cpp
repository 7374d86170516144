#include <zt_orvex_kit/body/Access.h>

#include "analysis/Effect.h"
#include "analysis/GenKillSets.h"

namespace zt::orvex::kit {

namespace {

using flow::internal::EffectKind;
using flow::internal::GenOrKill;

// The kinds of access are the library's kinds of effect, made public.
constexpr bool isSame(AccessKind access, EffectKind effect) {
    return static_cast<int>(access) == static_cast<int>(effect);
}
static_assert(isSame(AccessKind::CertainRead, EffectKind::CertainRead));
static_assert(isSame(AccessKind::ConditionalRead, EffectKind::ConditionalRead));
static_assert(isSame(AccessKind::WholeWrite, EffectKind::WholeWrite));
static_assert(isSame(AccessKind::PartialWrite, EffectKind::PartialWrite));
static_assert(isSame(AccessKind::ImplicitTarget, EffectKind::ImplicitTarget));

} // namespace

std::string_view toText(AccessKind kind) {
    switch (kind) {
    case AccessKind::CertainRead:
        return "certain read";
    case AccessKind::ConditionalRead:
        return "conditional read";
    case AccessKind::WholeWrite:
        return "whole write";
    case AccessKind::PartialWrite:
        return "partial write";
    case AccessKind::ImplicitTarget:
        return "implicit target";
    }
    return "unknown access";
}

LivenessEffect livenessEffectOf(AccessKind kind, flow::AnalysisTypeView type,
                                flow::AnalysisModeView mode) {
    switch (flow::internal::classify(static_cast<EffectKind>(kind), type, mode)) {
    case GenOrKill::Gen:
        return LivenessEffect::MakesLive;
    case GenOrKill::Kill:
        return LivenessEffect::EndsLiveness;
    case GenOrKill::Neither:
        break;
    }
    return LivenessEffect::None;
}

} // namespace zt::orvex::kit
