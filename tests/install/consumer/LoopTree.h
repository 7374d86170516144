#pragma once

#include <zt_orvex/zt_orvex.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A tree for programs of `parfor` and `for` loops, assignments, sums, subscripts and names. Built
/// bottom-up, one function for each kind.
///
/// A handle is the index of a node in one vector. A range is a node and how many of its children
/// precede the range, which always ends with the last child.
class LoopTree : public zt::orvex::BasicAstView {
public:
    using NodeView = zt::orvex::NodeView;
    using NodeKind = zt::orvex::NodeKind;
    using Nodes = std::vector<NodeView>;

    NodeView id(const std::u16string& name) {
        const NodeView node = add(NodeKind::Identifier, {});
        nodes.back().symbol = symbolOf(name);
        return node;
    }
    NodeView number() { return add(NodeKind::NumberLiteral, {}); }
    NodeView sum(NodeView a, NodeView b) { return add(NodeKind::BinaryOperation, {a, b}); }
    NodeView at(NodeView base, NodeView index) {
        return add(NodeKind::ParenOperation, {base, index});
    }
    NodeView range(NodeView start, NodeView stop) {
        return add(NodeKind::ColonOperation, {start, stop});
    }
    NodeView assign(NodeView lhs, NodeView rhs) {
        return add(NodeKind::AssignmentStatement, {lhs, rhs});
    }
    NodeView loop(NodeKind kind, NodeView variable, NodeView over, const Nodes& body) {
        Nodes children{variable, over};
        children.insert(children.end(), body.begin(), body.end());
        return add(kind, std::move(children));
    }

    /// All names of the program, in the order of first appearance.
    zt::orvex::flow::OrderedSet<zt::orvex::SymbolView> universe() const {
        zt::orvex::flow::OrderedSet<zt::orvex::SymbolView> symbols;
        for (std::uint64_t symbol = 0; symbol < names.size(); ++symbol)
            symbols.add({symbol, this});
        return symbols;
    }
    const std::u16string& nameOf(zt::orvex::SymbolView symbol) const {
        return names[symbol.symbol];
    }

    NodeKind getNodeKind(std::uint64_t node) const override { return nodes[node].kind; }
    std::u16string_view getIdentifierName(std::uint64_t node) const override {
        return names[nodes[node].symbol];
    }
    zt::orvex::SymbolView getIdentifierSymbol(std::uint64_t node) const override {
        return {nodes[node].symbol, this};
    }

    zt::orvex::BinaryOperator getBinaryOperator(std::uint64_t) const override {
        return zt::orvex::BinaryOperator::Add;
    }
    NodeView getBinaryLhs(std::uint64_t node) const override { return child(node, 0); }
    NodeView getBinaryRhs(std::uint64_t node) const override { return child(node, 1); }

    NodeView getParenBase(std::uint64_t node) const override { return child(node, 0); }
    zt::orvex::ExpressionRangeView getParenArguments(std::uint64_t node) const override {
        return {node, 1, this};
    }

    NodeView getColonStart(std::uint64_t node) const override { return child(node, 0); }
    NodeView getColonStop(std::uint64_t node) const override { return child(node, 1); }

    NodeView getAssignmentLhs(std::uint64_t node) const override { return child(node, 0); }
    NodeView getAssignmentRhs(std::uint64_t node) const override { return child(node, 1); }

    NodeView getForVariable(std::uint64_t node) const override { return child(node, 0); }
    NodeView getForExpression(std::uint64_t node) const override { return child(node, 1); }
    zt::orvex::StatementRangeView getForBody(std::uint64_t node) const override {
        return {node, 2, this};
    }

    NodeView getParforVariable(std::uint64_t node) const override { return child(node, 0); }
    NodeView getParforExpression(std::uint64_t node) const override { return child(node, 1); }
    zt::orvex::StatementRangeView getParforBody(std::uint64_t node) const override {
        return {node, 2, this};
    }

protected:
    NodeView rangeElement(std::uint64_t index, std::uint64_t node,
                          std::uint64_t skipped) const override {
        return child(node, skipped + index);
    }
    std::uint64_t rangeSize(std::uint64_t node, std::uint64_t skipped) const override {
        return nodes[node].children.size() - skipped;
    }

private:
    struct Node {
        NodeKind kind;
        Nodes children;
        std::uint64_t symbol;
    };

    NodeView add(NodeKind kind, Nodes children) {
        nodes.push_back({kind, std::move(children), 0});
        return {nodes.size() - 1, this};
    }
    NodeView child(std::uint64_t node, std::uint64_t index) const {
        return nodes[node].children[index];
    }
    std::uint64_t symbolOf(const std::u16string& name) {
        for (std::size_t symbol = 0; symbol < names.size(); ++symbol)
            if (names[symbol] == name) return symbol;
        names.push_back(name);
        return names.size() - 1;
    }

    std::vector<Node> nodes;
    std::vector<std::u16string> names;
};
