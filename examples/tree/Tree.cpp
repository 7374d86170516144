#include "tree/Tree.h"

#include <utility>

namespace ostrel {

using zt::orvex::BinaryOperator;
using zt::orvex::NodeKind;
using zt::orvex::NodeView;
using zt::orvex::SymbolView;
using zt::orvex::UnaryOperator;

Tree::Tree(TreeStorage parts, NodeId rootNode) : storage(std::move(parts)), rootId(rootNode) {}

std::u16string_view Tree::spelling(NodeView node) const {
    switch (at(node).kind) {
    case NodeKind::CharacterLiteral:
    case NodeKind::NumberLiteral:
    case NodeKind::StringLiteral: {
        const Field run = field(node.node, shapeOf(at(node).kind).count);
        return std::u16string_view(storage.characters).substr(run.begin, run.count);
    }
    default:
        return {};
    }
}

bool Tree::isImplicit(NodeView identifier) const {
    return storage.identifiers[at(identifier).data].role == Role::Implicit;
}

std::u16string_view Tree::symbolName(SymbolView symbol) const {
    return storage.names[symbolData(symbol).name];
}

const SymbolData& Tree::symbolData(SymbolView symbol) const {
    return storage.symbols[symbol.symbol];
}

bool Tree::isVariableSymbol(std::uint64_t symbol) const {
    return storage.symbols[symbol].isVariable;
}

NodeKind Tree::getNodeKind(std::uint64_t node) const { return storage.nodes[node].kind; }

BinaryOperator Tree::getBinaryOperator(std::uint64_t node) const {
    return static_cast<BinaryOperator>(storage.nodes[node].op);
}

UnaryOperator Tree::getUnaryOperator(std::uint64_t node) const {
    return static_cast<UnaryOperator>(storage.nodes[node].op);
}

std::u16string_view Tree::getIdentifierName(std::uint64_t node) const {
    return storage.names[storage.identifiers[storage.nodes[node].data].name];
}

SymbolView Tree::getIdentifierSymbol(std::uint64_t node) const {
    if (getNodeKind(node) != NodeKind::Identifier) return symbolView(0);
    return symbolView(storage.identifiers[storage.nodes[node].data].symbol);
}

NodeKind Tree::getInputParameterKind(std::uint64_t node) const {
    return getNodeKind(field(node, 0).begin);
}

boost::optional<NodeView> Tree::heldIfKind(std::uint64_t parameter, NodeKind kind) const {
    if (getInputParameterKind(parameter) != kind) return {};
    return view(field(parameter, 0).begin);
}

} // namespace ostrel
