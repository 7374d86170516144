#include "report/analysis/LostValueRemarks.h"

#include "report/analysis/PathSteps.h"
#include "report/analysis/Remarks.h"

#include <utility>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

/// An `ans` that isn't in the text is written where its statement is.
NodeView placeOfWrite(const LostValue& lost) {
    const kit::ValueUsedAfter& reason = lost.reason;
    return reason.write.kind == kit::AccessKind::ImplicitTarget
               ? lost.around->nodeAt(reason.path.nodes.front())
               : reason.write.identifier;
}

} // namespace

std::optional<Remark> remarkOnLostValue(UsedAfter& usedAfter, std::size_t construct,
                                        const kit::FlowGraph& body,
                                        const ClassifiedVariable& variable,
                                        const std::string& loopVariable,
                                        const std::string& function, const PlaceFinder& places) {
    const std::string& name = variable.variable.name;
    const bool isLoopVariable = variable.variable.role == Role::LoopVariable;
    const auto lost = usedAfter.find(construct, body, variable.symbol, isLoopVariable);
    if (!lost) return {};
    const Place write = places.of(placeOfWrite(*lost));
    Path path{stepOfWrite(name, write)};
    for (Step& step : decisionsOn(*lost->around, lost->reason.path.nodes, places))
        path.push_back(std::move(step));
    Remark remark;
    if (lost->reason.path.access) {
        const kit::Access& access = *lost->reason.path.access;
        const Place read = places.of(access.identifier);
        remark = remarkOnUseAfter(name, write, read, loopVariable);
        path.push_back(stepOfRead(name, read, kit::isWrite(access.kind)));
    } else {
        const Place output = places.of(usedAfter.declaredOutput(construct, variable.symbol));
        remark = remarkOnLostOutput(name, write, function, loopVariable);
        path.push_back(stepOfOutput(name, output));
    }
    remark.paths.push_back(std::move(path));
    return remark;
}

} // namespace ostrel::report
