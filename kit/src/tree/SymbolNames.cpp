#include <zt_orvex_kit/tree/SymbolNames.h>

#include "support/Utf16ToUtf8.h"
#include "tree/HandleText.h"

#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex_kit/tree/Traversal.h>

#include <algorithm>
#include <vector>

namespace zt::orvex::kit {

namespace {

template <typename Symbols>
std::string listNames(const SymbolNames& names, const Symbols& symbols) {
    std::vector<std::string> sorted;
    for (const SymbolView& symbol : symbols)
        sorted.push_back(names.of(symbol));
    std::sort(sorted.begin(), sorted.end());
    std::string text;
    for (const std::string& name : sorted)
        text += (text.empty() ? "" : " ") + name;
    return text;
}

} // namespace

SymbolNames::SymbolNames(const NodeView& root) {
    traverse(root, {[this](const Visit& visit) {
                        if (visit.kind() == NodeKind::Identifier) {
                            const IdentifierView identifier(visit.node());
                            const auto [name, isNew] =
                                names.try_emplace(identifier.getIdentifierSymbol());
                            if (isNew) {
                                name->second = zt::orvex::internal::utf16ToUtf8(
                                    identifier.getIdentifierName());
                            }
                        }
                        return Next::Descend;
                    },
                    {}});
}

std::string SymbolNames::of(const SymbolView& symbol) const {
    const auto found = names.find(symbol);
    return found == names.end() ? internal::handleText("symbol", symbol.symbol) : found->second;
}

std::string SymbolNames::list(const std::unordered_set<SymbolView>& symbols) const {
    return listNames(*this, symbols);
}

std::string SymbolNames::list(const flow::OrderedSet<SymbolView>& symbols) const {
    return listNames(*this, symbols);
}

} // namespace zt::orvex::kit
