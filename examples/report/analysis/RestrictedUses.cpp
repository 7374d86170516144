#include "report/analysis/RestrictedUses.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex/support/RestrictedExternals.h>

#include <string>
#include <unordered_set>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

class RestrictedFinder {
public:
    void visit(NodeView node) {
        switch (node.getKind()) {
        case NodeKind::DotOperation:
            labels.insert(DotOperationView(node).getDotField());
            break;
        case NodeKind::NamedArgument:
            labels.insert(NamedArgumentView(node).getNamedArgumentName());
            break;
        case NodeKind::Identifier:
            if (isRestricted(IdentifierView(node))) uses.push_back(node);
            break;
        default:
            break;
        }
    }

    std::vector<NodeView> uses;

private:
    bool isRestricted(IdentifierView name) const {
        const auto& restricted = getRestrictedExternals();
        if (restricted.count(std::u16string(name.getIdentifierName())) == 0) return false;
        const SymbolView symbol = name.getIdentifierSymbol();
        return labels.count(name) == 0 && !symbol.view->isVariableSymbol(symbol.symbol);
    }

    /// Names of fields and arguments. The walk visits their parents first, so they are known here.
    std::unordered_set<NodeView> labels;
};

} // namespace

std::vector<NodeView> findRestrictedUses(StatementRangeView body) {
    RestrictedFinder finder;
    for (const NodeView statement : body)
        forEachNodeIn(statement, [&](NodeView node) { finder.visit(node); });
    return finder.uses;
}

} // namespace ostrel::report
