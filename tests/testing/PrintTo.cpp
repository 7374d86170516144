#include "testing/PrintTo.h"

#include "testing/FakeAst.h"

namespace zt::orvex {

void PrintTo(const NodeKind& kind, std::ostream* stream) {
    *stream << testing::nameOf(kind) << " (" << static_cast<int>(kind) << ')';
}

void PrintTo(const NodeView& node, std::ostream* stream) {
    *stream << testing::label(node) << " (0x" << std::hex << node.node << std::dec << ')';
}

void PrintTo(const SymbolView& symbol, std::ostream* stream) {
    *stream << testing::label(symbol) << " (0x" << std::hex << symbol.symbol << std::dec << ')';
}

} // namespace zt::orvex
