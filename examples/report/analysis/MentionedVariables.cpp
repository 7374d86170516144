#include "report/analysis/MentionedVariables.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>

#include <algorithm>
#include <limits>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

constexpr std::size_t NO_RANK = std::numeric_limits<std::size_t>::max();

} // namespace

MentionedVariables::MentionedVariables(const ParsedFile& parsed)
    : file(parsed), ranks(parsed.tree->parts().symbols.size(), NO_RANK) {
    for (const ostrel::Scope& scope : file.scopes) {
        for (std::size_t i = 0; i < scope.universe.size(); ++i)
            ranks[scope.universe[i].symbol] = i;
    }
}

std::vector<SymbolView> MentionedVariables::in(const ostrel::Construct& construct) const {
    std::vector<std::size_t> found;
    forEachNodeIn(construct.node, [&](NodeView node) {
        if (node.getKind() != NodeKind::Identifier) return;
        const std::size_t rank = ranks[IdentifierView(node).getIdentifierSymbol().symbol];
        if (rank != NO_RANK) found.push_back(rank);
    });
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    std::vector<SymbolView> symbols;
    for (const std::size_t rank : found)
        symbols.push_back(file.scopes[construct.scope].universe[rank]);
    return symbols;
}

} // namespace ostrel::report
