#include "report/analysis/Occurrences.h"

#include <zt_orvex/ast/NodeKind.h>

#include <algorithm>

namespace ostrel::report {

using zt::orvex::NodeKind;

// Counts the mentions of each symbol, makes room for them, and fills it in.
Occurrences::Occurrences(const Tree& tree) {
    const TreeStorage& parts = tree.parts();
    begins.resize(parts.symbols.size() + 1);
    const auto symbolOf = [&](const Node& node) { return parts.identifiers[node.data].symbol; };
    for (const Node& node : parts.nodes) {
        if (node.kind == NodeKind::Identifier) ++begins[symbolOf(node)];
        if (node.kind == NodeKind::ReturnStatement) jumps.push_back(node.begin);
    }
    std::uint32_t room = 0;
    for (std::uint32_t& begin : begins) {
        room += begin;
        begin = room; // for now, where the symbol's mentions end
    }
    all.resize(room);
    for (auto node = parts.nodes.rbegin(); node != parts.nodes.rend(); ++node) {
        if (node->kind == NodeKind::Identifier) all[--begins[symbolOf(*node)]] = node->begin;
    }
    for (std::size_t symbol = 0; symbol + 1 < begins.size(); ++symbol) {
        const auto first = all.begin() + begins[symbol];
        const auto last = all.begin() + begins[symbol + 1];
        if (!std::is_sorted(first, last)) std::sort(first, last);
    }
    std::sort(jumps.begin(), jumps.end());
}

} // namespace ostrel::report
