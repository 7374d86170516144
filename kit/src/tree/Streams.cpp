#include <zt_orvex_kit/tree/Streams.h>

#include "support/Utf16ToUtf8.h"
#include "tree/HandleText.h"
#include "tree/Parts.h"

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex_kit/tree/KindName.h>

#include <algorithm>
#include <vector>

namespace zt::orvex::kit {

namespace {

template <typename Symbols>
void printList(std::ostream& stream, const Symbols& symbols) {
    const char* separator = "{";
    for (const SymbolView& symbol : symbols) {
        stream << separator;
        print(stream, symbol);
        separator = ", ";
    }
    stream << (*separator == '{' ? "{}" : "}");
}

} // namespace

void print(std::ostream& stream, const NodeView& node) {
    const std::string handle = internal::handleText("node", node.node);
    if (node.view == nullptr) {
        stream << handle << " without a view";
        return;
    }
    const NodeKind kind = node.getKind();
    stream << internal::kindText(kind);
    if (kind == NodeKind::Identifier) {
        const std::u16string_view name = node.view->getIdentifierName(node.node);
        stream << ' ' << zt::orvex::internal::utf16ToUtf8(name);
    }
    stream << " (" << handle << ')';
}

void print(std::ostream& stream, const SymbolView& symbol) {
    stream << internal::handleText("symbol", symbol.symbol);
    if (symbol.view == nullptr) {
        stream << " without a view";
    } else if (!symbol.view->isVariableSymbol(symbol.symbol)) {
        stream << " (not a variable)";
    }
}

void print(std::ostream& stream, const std::unordered_set<SymbolView>& symbols) {
    std::vector<SymbolView> sorted(symbols.begin(), symbols.end());
    std::sort(sorted.begin(), sorted.end(),
              [](const SymbolView& a, const SymbolView& b) { return a.symbol < b.symbol; });
    printList(stream, sorted);
}

void print(std::ostream& stream, const flow::OrderedSet<SymbolView>& symbols) {
    printList(stream, symbols);
}

} // namespace zt::orvex::kit
