#pragma once

#include "support/GeneratedSource.h"

#include <zt_orvex/ast/BasicAstView.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zt::orvex::benchmarks {

/// The tree of a generated source with a name for each variable, which an `ArrayTree` hasn't: there,
/// all have the same one. Otherwise it is as lean.
///
/// A node is a number. `firsts` has the place of its children in one flat array, in the order of a
/// walk, or the number of its symbol if it is an identifier.
class NamedTree final : public BasicAstView {
public:
    explicit NamedTree(const GeneratedSource& source) {
        for (int i = 0; i < 8; ++i)
            names.push_back(u"v" + std::u16string(1, static_cast<char16_t>(u'0' + i)));
        root = copy(source.tree, source.root);
    }

    NodeView rootView() const { return {root, this}; }
    std::uint64_t size() const { return kinds.size(); }

    NodeKind getNodeKind(std::uint64_t node) const override { return kinds[node]; }
    std::u16string_view getIdentifierName(std::uint64_t node) const override {
        return names[firsts[node]];
    }
    SymbolView getIdentifierSymbol(std::uint64_t node) const override {
        return {firsts[node], this};
    }
    BinaryOperator getBinaryOperator(std::uint64_t) const override { return BinaryOperator::Add; }
    NodeView getAssignmentLhs(std::uint64_t node) const override { return child(node, 0); }
    NodeView getAssignmentRhs(std::uint64_t node) const override { return child(node, 1); }
    NodeView getBinaryLhs(std::uint64_t node) const override { return child(node, 0); }
    NodeView getBinaryRhs(std::uint64_t node) const override { return child(node, 1); }
    NodeView getParenthesizedInner(std::uint64_t node) const override { return child(node, 0); }
    NodeView getWhileCondition(std::uint64_t node) const override { return child(node, 0); }
    StatementRangeView getWhileBody(std::uint64_t node) const override {
        return range<StatementRangeView>(node, 1);
    }
    NodeView getIfCondition(std::uint64_t node) const override { return child(node, 0); }
    StatementRangeView getIfBody(std::uint64_t node) const override {
        StatementRangeView body = range<StatementRangeView>(node, 1);
        --body.second; // The else clause.
        return body;
    }
    boost::optional<NodeView> getIfElseClause(std::uint64_t node) const override {
        return child(node, counts[node] - 1);
    }
    StatementRangeView getElseBody(std::uint64_t node) const override {
        return range<StatementRangeView>(node, 0);
    }
    NodeView getFunctionName(std::uint64_t node) const override { return child(node, 0); }
    NodeView getFunctionPart(std::uint64_t node) const override { return child(node, 1); }
    NodeRangeView getFunctionMembers(std::uint64_t node) const override {
        return range<NodeRangeView>(node, 2);
    }
    NodeRangeView getProgramNodes(std::uint64_t node) const override {
        return range<NodeRangeView>(node, 0);
    }
    NodeView getStatementRangeElement(std::uint64_t index, std::uint64_t first,
                                      std::uint64_t) const override {
        return {children[first + index], this};
    }
    std::uint64_t getStatementRangeSize(std::uint64_t, std::uint64_t size) const override {
        return size;
    }
    NodeView getNodeRangeElement(std::uint64_t index, std::uint64_t first,
                                 std::uint64_t) const override {
        return {children[first + index], this};
    }
    std::uint64_t getNodeRangeSize(std::uint64_t, std::uint64_t size) const override {
        return size;
    }

private:
    std::uint32_t copy(const ArrayTree& from, ArrayTree::Node node) {
        std::vector<std::uint32_t> copies;
        from.forEachChild(node, [&](ArrayTree::Node each) { copies.push_back(copy(from, each)); });
        const NodeKind kind = from.getNodeKind(node);
        const bool isName = kind == NodeKind::Identifier;
        kinds.push_back(kind);
        firsts.push_back(isName ? static_cast<std::uint32_t>(from.getIdentifierSymbol(node).symbol)
                                : static_cast<std::uint32_t>(children.size()));
        counts.push_back(static_cast<std::uint32_t>(copies.size()));
        children.insert(children.end(), copies.begin(), copies.end());
        return static_cast<std::uint32_t>(kinds.size() - 1);
    }

    NodeView child(std::uint64_t node, std::uint32_t place) const {
        return {children[firsts[node] + place], this};
    }
    template <typename Range>
    Range range(std::uint64_t node, std::uint32_t skipped) const {
        return {firsts[node] + skipped, counts[node] - skipped, this};
    }

    std::vector<NodeKind> kinds;
    std::vector<std::uint32_t> firsts;
    std::vector<std::uint32_t> counts;
    std::vector<std::uint32_t> children;
    std::vector<std::u16string> names;
    std::uint32_t root = 0;
};

} // namespace zt::orvex::benchmarks
