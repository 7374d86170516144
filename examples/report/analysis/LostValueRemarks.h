#pragma once

#include "report/analysis/Classify.h"
#include "report/analysis/PlaceFinder.h"
#include "report/analysis/UsedAfter.h"
#include "report/model/Remark.h"

#include <zt_orvex_kit/body/FlowGraph.h>

#include <cstddef>
#include <optional>
#include <string>

namespace ostrel::report {

/// The remark that a value of a variable of a `parfor` is lost, if it is used after the construct.
/// `construct` is its index among the parsed ones, `body` the graph of its body, and `function` the
/// name of the function around it.
std::optional<Remark> remarkOnLostValue(UsedAfter& usedAfter, std::size_t construct,
                                        const zt::orvex::kit::FlowGraph& body,
                                        const ClassifiedVariable& variable,
                                        const std::string& loopVariable,
                                        const std::string& function, const PlaceFinder& places);

} // namespace ostrel::report
