#include "tree/NodeFacts.h"

#include "support/Utf16ToUtf8.h"
#include "tree/HandleText.h"

#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/ast/TypedViews.h>

#include <stdexcept>

namespace zt::orvex::kit::internal {

namespace {

template <typename Operator>
std::string spell(Operator op) {
    try {
        return toString(op);
    } catch (const std::out_of_range&) {
        return "unknown operator " + std::to_string(static_cast<std::uint32_t>(op));
    }
}

void addIdentifier(const IdentifierView& identifier, NodeFacts& facts) {
    facts.name = zt::orvex::internal::utf16ToUtf8(identifier.getIdentifierName());
    const SymbolView symbol = identifier.getIdentifierSymbol();
    facts.symbol = hexText(symbol.symbol);
    facts.isVariable = symbol.view == nullptr || symbol.view->isVariableSymbol(symbol.symbol);
}

} // namespace

NodeFacts factsOf(const NodeView& node, const DumpOptions& options) {
    NodeFacts facts;
    facts.node = node;
    facts.hasView = node.view != nullptr;
    if (!facts.hasView) return facts;
    facts.kind = node.getKind();
    switch (facts.kind) {
    case NodeKind::Identifier:
        addIdentifier(IdentifierView(node), facts);
        break;
    case NodeKind::BinaryOperation:
        facts.spelling = spell(BinaryOperationView(node).getBinaryOperator());
        break;
    case NodeKind::UnaryOperation:
        facts.spelling = spell(UnaryOperationView(node).getUnaryOperator());
        break;
    case NodeKind::CharacterLiteral:
    case NodeKind::NumberLiteral:
    case NodeKind::StringLiteral:
        if (options.literalText) facts.literal = options.literalText(node);
        break;
    default:
        break;
    }
    return facts;
}

} // namespace zt::orvex::kit::internal
