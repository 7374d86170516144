#pragma once

#include "frontend/ParsedFile.h"
#include "report/analysis/BodyAround.h"
#include "report/analysis/Occurrences.h"

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex_kit/body/FlowGraph.h>
#include <zt_orvex_kit/reasons/Explanation.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace ostrel::report {

/// A value that a `parfor` loses, and that is used after it all the same.
struct LostValue {
    zt::orvex::kit::ValueUsedAfter reason; ///< In `around`. At the exit, a function returns it.
    std::shared_ptr<const zt::orvex::kit::FlowGraph> around;
};

/// Finds the uses of values after the constructs of a file that have written them, in the body
/// around: the body of the innermost enclosing construct, or that of the function or script.
class UsedAfter {
public:
    /// Refers to `parsed`. Cost: linear in the file.
    explicit UsedAfter(const ParsedFile& parsed);

    /// For a construct, in source order, and a variable that its body writes, or its head if
    /// `isLoopVariable`. `body` is the graph of its body.
    std::optional<LostValue> find(std::size_t construct, const zt::orvex::kit::FlowGraph& body,
                                  zt::orvex::SymbolView variable, bool isLoopVariable);

    /// Where the function around a construct declares the variable, one of its outputs.
    zt::orvex::NodeView declaredOutput(std::size_t construct, zt::orvex::SymbolView variable) const;

private:
    std::optional<LostValue> findFrom(std::size_t construct, const zt::orvex::kit::FlowGraph& body,
                                      zt::orvex::SymbolView variable, bool isLoopVariable);
    BodyAround& bodyAround(std::size_t construct);
    zt::orvex::NodeView scopeAround(std::size_t construct) const;

    const ParsedFile& file;
    const Occurrences occurrences;
    std::vector<zt::orvex::NodeView> functions; ///< In source order.
    std::vector<std::optional<std::size_t>> enclosing;
    std::vector<std::uint64_t> elements; ///< Of each construct: where its range has it.
    std::unordered_map<zt::orvex::NodeView, std::unique_ptr<BodyAround>> bodies;
};

} // namespace ostrel::report
