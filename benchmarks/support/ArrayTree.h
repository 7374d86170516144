#pragma once

#include <zt_orvex/ast/BasicAstView.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace zt::orvex::benchmarks {

/// A tree in three arrays: an `IAstView` over as little memory as a lean consumer would use.
///
/// A node is a number. Its kind is a byte. Its `word` is the number of its symbol if it is an
/// identifier, and otherwise the place of its children in one flat array: first those that its kind
/// always has, then, if its kind has a range, a count and the elements.
class ArrayTree final : public BasicAstView {
public:
    using Node = std::uint32_t;
    using Nodes = std::vector<Node>;
    static constexpr Node NONE = ~Node{0};

    // Building: children first
    Node leaf(NodeKind kind) { return add(kind, 0); }
    Node identifier(std::uint32_t symbol) { return add(NodeKind::Identifier, symbol); }
    Node assignment(Node lhs, Node rhs) { return fixed(NodeKind::AssignmentStatement, {lhs, rhs}); }
    Node binary(BinaryOperator op, Node lhs, Node rhs) {
        return fixed(NodeKind::BinaryOperation, {lhs, rhs, static_cast<Node>(op)});
    }
    Node parenthesized(Node inner) { return fixed(NodeKind::ParenthesizedExpression, {inner}); }
    Node whileLoop(Node condition, const Nodes& body) {
        return withRange(NodeKind::WhileStatement, {condition}, body);
    }
    /// `otherwise` is an else clause or `NONE`.
    Node ifStatement(Node condition, const Nodes& body, Node otherwise) {
        return withRange(NodeKind::IfStatement, {condition, otherwise}, body);
    }
    Node elseClause(const Nodes& body) { return withRange(NodeKind::ElseClause, {}, body); }
    /// Without parameters. `part` may be any node.
    Node function(Node name, Node part, const Nodes& members) {
        return withRange(NodeKind::FunctionDefinition, {name, part}, members);
    }
    Node program(const Nodes& nodes) { return withRange(NodeKind::Program, {}, nodes); }

    std::uint64_t size() const { return kinds.size(); }
    NodeView view(Node node) const { return {node, this}; }
    StatementRangeView bodyOf(Node whileLoop) const { return getWhileBody(whileLoop); }

    /// Calls `visit` with each child, in the order of a walk.
    template <typename Visitor>
    void forEachChild(Node node, Visitor visit) const {
        for (std::uint32_t i = 0; i < fixedChildren(kinds[node]); ++i)
            visit(children[words[node] + i]);
        if (!hasRange(kinds[node])) return;
        const std::uint32_t count = words[node] + fixedWords(kinds[node]);
        for (std::uint32_t i = 1; i <= children[count]; ++i)
            visit(children[count + i]);
        if (kinds[node] == NodeKind::IfStatement && children[words[node] + 1] != NONE) {
            visit(children[words[node] + 1]);
        }
    }

    // What the library asks
    NodeKind getNodeKind(std::uint64_t node) const override { return kinds[node]; }

    NodeView getAssignmentLhs(std::uint64_t node) const override { return child(node, 0); }
    NodeView getAssignmentRhs(std::uint64_t node) const override { return child(node, 1); }
    NodeView getBinaryLhs(std::uint64_t node) const override { return child(node, 0); }
    NodeView getBinaryRhs(std::uint64_t node) const override { return child(node, 1); }
    BinaryOperator getBinaryOperator(std::uint64_t node) const override {
        return static_cast<BinaryOperator>(children[words[node] + 2]);
    }
    NodeView getParenthesizedInner(std::uint64_t node) const override { return child(node, 0); }
    /// A name for each symbol, so that the tree is a correct one; there are eight symbols at most.
    std::u16string_view getIdentifierName(std::uint64_t node) const override {
        static constexpr std::u16string_view NAMES[] = {u"v0", u"v1", u"v2", u"v3",
                                                        u"v4", u"v5", u"v6", u"v7"};
        return NAMES[words[node]];
    }
    SymbolView getIdentifierSymbol(std::uint64_t node) const override {
        return {words[node], this};
    }

    NodeView getWhileCondition(std::uint64_t node) const override { return child(node, 0); }
    StatementRangeView getWhileBody(std::uint64_t node) const override {
        return range<StatementRangeView>(node, 1);
    }
    NodeView getIfCondition(std::uint64_t node) const override { return child(node, 0); }
    StatementRangeView getIfBody(std::uint64_t node) const override {
        return range<StatementRangeView>(node, 2);
    }
    boost::optional<NodeView> getIfElseClause(std::uint64_t node) const override {
        const Node clause = children[words[node] + 1];
        if (clause == NONE) return boost::none;
        return NodeView{clause, this};
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

    // A range is the place of its first element and its size. Each family's own operations are
    // overridden, which saves a virtual call for each question.
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
    /// How many children a kind always has.
    static std::uint32_t fixedChildren(NodeKind kind) {
        switch (kind) {
        case NodeKind::ParenthesizedExpression:
        case NodeKind::WhileStatement:
        case NodeKind::IfStatement:
            return 1;
        case NodeKind::AssignmentStatement:
        case NodeKind::BinaryOperation:
        case NodeKind::FunctionDefinition:
            return 2;
        default:
            return 0;
        }
    }
    /// How many words stand before the count of a kind's range.
    static std::uint32_t fixedWords(NodeKind kind) {
        return fixedChildren(kind) + (kind == NodeKind::IfStatement ? 1 : 0);
    }
    static bool hasRange(NodeKind kind) {
        return kind == NodeKind::WhileStatement || kind == NodeKind::IfStatement ||
               kind == NodeKind::ElseClause || kind == NodeKind::FunctionDefinition ||
               kind == NodeKind::Program;
    }

    Node add(NodeKind kind, std::uint32_t word) {
        kinds.push_back(kind);
        words.push_back(word);
        return static_cast<Node>(kinds.size() - 1);
    }
    Node fixed(NodeKind kind, std::initializer_list<Node> parts) {
        const auto place = static_cast<std::uint32_t>(children.size());
        children.insert(children.end(), parts);
        return add(kind, place);
    }
    Node withRange(NodeKind kind, std::initializer_list<Node> parts, const Nodes& elements) {
        const Node node = fixed(kind, parts);
        children.push_back(static_cast<Node>(elements.size()));
        children.insert(children.end(), elements.begin(), elements.end());
        return node;
    }

    NodeView child(std::uint64_t node, std::uint32_t place) const {
        return {children[words[node] + place], this};
    }
    template <typename Range>
    Range range(std::uint64_t node, std::uint32_t count) const {
        const std::uint32_t place = words[node] + count;
        return {place + 1, children[place], this};
    }

    std::vector<NodeKind> kinds;
    std::vector<std::uint32_t> words;
    Nodes children;
};

} // namespace zt::orvex::benchmarks
