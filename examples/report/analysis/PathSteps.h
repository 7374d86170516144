#pragma once

#include "report/analysis/PlaceFinder.h"
#include "report/model/Remark.h"

#include <zt_orvex_kit/body/FlowGraph.h>

#include <string>
#include <vector>

namespace ostrel::report {

/// The decisions on a path of control, in words: which way it takes at each loop, condition and
/// case, and where an error or a jump leads it. Statements that control only passes have no step.
/// Cost: linear in the path.
Path decisionsOn(const zt::orvex::kit::FlowGraph& graph,
                 const std::vector<zt::orvex::kit::FlowNode>& path, const PlaceFinder& places);

/// Such as `15:5`.
std::string lineAndColumn(const Place& place);

} // namespace ostrel::report
