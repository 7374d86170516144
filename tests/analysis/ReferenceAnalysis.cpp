#include "analysis/ReferenceAnalysis.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <utility>
#include <vector>

namespace zt::orvex::testing {

using Handle = ReferenceFlowGraph::Handle;

ReferenceAnalysis::ReferenceAnalysis(const ReferenceFlowGraph& over,
                                     ReferenceSettings settingsToUse)
    : settings(std::move(settingsToUse)), graph(over) {
    for (const auto& [handle, node] : graph.getNodes()) {
        const bool isPseudo = handle == graph.getEntry() || handle == graph.getExit();
        effects[handle] = isPseudo ? Effects() : effectsOf(node, settings);
    }
}

Symbols ReferenceAnalysis::liveBefore(Handle node, const std::map<Handle, Symbols>& live) const {
    Symbols after;
    bool isFirst = true;
    for (const Handle successor : graph.getSuccessors(node)) {
        const Symbols& there = live.at(successor);
        Symbols merged;
        if (isFirst)
            merged = there;
        else if (settings.type == flow::AnalysisTypeView::May)
            std::set_union(after.begin(), after.end(), there.begin(), there.end(),
                           std::inserter(merged, merged.end()));
        else
            std::set_intersection(after.begin(), after.end(), there.begin(), there.end(),
                                  std::inserter(merged, merged.end()));
        after = merged;
        isFirst = false;
    }
    for (const std::uint64_t symbol : effects.at(node).kill)
        after.erase(symbol);
    for (const std::uint64_t symbol : effects.at(node).gen)
        after.insert(symbol);
    return after;
}

Symbols ReferenceAnalysis::getLiveAtEntry(Random& random) const {
    std::vector<Handle> order;
    std::map<Handle, Symbols> live;
    for (const auto& [handle, node] : graph.getNodes()) {
        order.push_back(handle);
        live[handle];
    }
    for (bool changed = true; changed;) {
        changed = false;
        for (std::size_t i = order.size(); i > 1; --i)
            std::swap(order[i - 1], order[random.below(i)]);
        for (const Handle node : order) {
            Symbols before = liveBefore(node, live);
            if (before == live[node]) continue;
            live[node] = std::move(before);
            changed = true;
        }
    }
    return live[graph.getEntry()];
}

bool ReferenceAnalysis::walkPaths(Handle node, const Symbols& overwritten, Symbols& readFirst,
                                  std::size_t& left) const {
    const Effects& here = effects.at(node);
    for (const std::uint64_t symbol : here.gen)
        if (overwritten.count(symbol) == 0) readFirst.insert(symbol);
    if (graph.getSuccessors(node).empty()) return left-- > 0;
    Symbols after = overwritten;
    after.insert(here.kill.begin(), here.kill.end());
    for (const Handle successor : graph.getSuccessors(node))
        if (!walkPaths(successor, after, readFirst, left)) return false;
    return true;
}

boost::optional<Symbols> ReferenceAnalysis::getReadFirstOnSomePath(std::size_t limit) const {
    Symbols readFirst;
    std::size_t left = limit;
    if (!walkPaths(graph.getEntry(), Symbols(), readFirst, left)) return boost::none;
    return readFirst;
}

std::string ReferenceAnalysis::describe() const {
    std::ostringstream text;
    for (const auto& [handle, node] : graph.getNodes()) {
        text << handle;
        if (handle == graph.getEntry())
            text << " entry";
        else if (handle == graph.getExit())
            text << " exit";
        else
            text << " kind " << static_cast<int>(node.getKind());
        text << " gen";
        for (const std::uint64_t symbol : effects.at(handle).gen)
            text << ' ' << symbol;
        text << " kill";
        for (const std::uint64_t symbol : effects.at(handle).kill)
            text << ' ' << symbol;
        text << " ->";
        for (const Handle successor : graph.getSuccessors(handle))
            text << ' ' << successor;
        text << '\n';
    }
    return text.str();
}

} // namespace zt::orvex::testing
