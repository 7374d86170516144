#include "report/analysis/CarriedValues.h"

#include <zt_orvex_kit/body/Access.h>
#include <zt_orvex_kit/reasons/Explain.h>

namespace ostrel::report {

using namespace zt::orvex;

boost::optional<kit::CarriedValue>
explainCarriedValue(const ConstructFacts& facts, const OwnElements& own, SymbolView variable) {
    const auto mayBeOthers = [&](const kit::Access& access) { return !own.isOwn(access); };
    const auto isPlain = [](const kit::Access& access) { return !kit::isWrite(access.kind); };
    kit::AccessChoice among;
    among.isRead = [&](const kit::Access& access) {
        return isPlain(access) && mayBeOthers(access);
    };
    if (auto why = kit::explainCarried(facts.graph, variable, among)) return why;
    among.isRead = mayBeOthers;
    if (auto why = kit::explainCarried(facts.graph, variable, among)) return why;
    return kit::explainCarried(facts.graph, variable);
}

} // namespace ostrel::report
