#pragma once

#include "testing/FakeAst.h"

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/RangeViews.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <functional>
#include <string_view>

namespace zt::orvex::testing {

/// A tree that answers as a FakeAst does, except where a test lies.
///
/// Each hook gets a call and its true answer, and may change the answer or throw. Handles are those
/// of the FakeAst, and `view`s point here.
///
///     LyingAst lying(t.ast);
///     lying.onKind = [&](const Call& call, NodeKind& kind) {
///         if (call.arguments[0] == node.node) kind = NodeKind::Invalid;
///     };
///     checkTree(lying.view(root));
class LyingAst : public IAstView {
public:
    explicit LyingAst(const FakeAst& trueTree) : truth(trueTree) {}

    NodeView view(const NodeView& node) const { return {node.node, this}; }

    struct Words {
        std::uint64_t first;
        std::uint64_t second;
        const IAstView* view;
    };

    std::function<void(const Call&, NodeView&)> onNode; ///< Children, elements and pseudo nodes.
    std::function<void(const Call&, boost::optional<NodeView>&)> onMaybe;
    std::function<void(const Call&, Words&)> onRange;
    std::function<void(const Call&, std::uint64_t&)> onSize;
    std::function<void(const Call&, NodeKind&)> onKind; ///< Of a node, and of what one holds.
    std::function<void(const Call&, SymbolView&)> onSymbol;
    std::function<void(const Call&, std::u16string_view&)> onName;
    std::function<void(const Call&, std::uint32_t&)> onOperator;
    std::function<void(const Call&, bool&)> onVariable;

    // IAstView
#define ZT_ORVEX_TEST_ONE(name)                                                                    \
    NodeView name(std::uint64_t node) const override {                                             \
        return lie(onNode, {Operation::name, {node}}, here(truth.name(node)));                     \
    }
#define ZT_ORVEX_TEST_MAYBE(name)                                                                  \
    boost::optional<NodeView> name(std::uint64_t node) const override {                            \
        return lie(onMaybe, {Operation::name, {node}}, here(truth.name(node)));                    \
    }
#define ZT_ORVEX_TEST_RANGE(name, View)                                                            \
    View name(std::uint64_t node) const override {                                                 \
        const View range = truth.name(node);                                                       \
        const Words words =                                                                        \
            lie(onRange, {Operation::name, {node}}, Words{range.first, range.second, this});       \
        return View{words.first, words.second, words.view};                                        \
    }
#define ZT_ORVEX_TEST_ELEMENT(name, View)                                                          \
    NodeView name(std::uint64_t index, std::uint64_t first, std::uint64_t second) const override { \
        return lie(onNode, {Operation::name, {index, first, second}},                              \
                   here(truth.name(index, first, second)));                                        \
    }
#define ZT_ORVEX_TEST_SIZE(name, View)                                                             \
    std::uint64_t name(std::uint64_t first, std::uint64_t second) const override {                 \
        return lie(onSize, {Operation::name, {first, second}}, truth.name(first, second));         \
    }
#define ZT_ORVEX_TEST_NODE std::uint64_t
#define ZT_ORVEX_TEST_NO_ARGUMENT
#define ZT_ORVEX_TEST_UNSETTLED(name, arguments)                                                   \
    std::uint64_t name(ZT_ORVEX_TEST_##arguments) const override { return 0; }
#include "testing/IAstViewOperations.def"
#undef ZT_ORVEX_TEST_NODE
#undef ZT_ORVEX_TEST_NO_ARGUMENT
    bool isVariableSymbol(std::uint64_t symbol) const override {
        return lie(onVariable, {Operation::isVariableSymbol, {symbol}},
                   truth.isVariableSymbol(symbol));
    }
    NodeView getEntryNode() const override {
        return lie(onNode, {Operation::getEntryNode, {}}, here(truth.getEntryNode()));
    }
    NodeView getExitNode() const override {
        return lie(onNode, {Operation::getExitNode, {}}, here(truth.getExitNode()));
    }
    BinaryOperator getBinaryOperator(std::uint64_t node) const override {
        const auto op = static_cast<std::uint32_t>(truth.getBinaryOperator(node));
        return BinaryOperator{lie(onOperator, {Operation::getBinaryOperator, {node}}, op)};
    }
    UnaryOperator getUnaryOperator(std::uint64_t node) const override {
        const auto op = static_cast<std::uint32_t>(truth.getUnaryOperator(node));
        return UnaryOperator{lie(onOperator, {Operation::getUnaryOperator, {node}}, op)};
    }
    std::u16string_view getIdentifierName(std::uint64_t node) const override {
        return lie(onName, {Operation::getIdentifierName, {node}}, truth.getIdentifierName(node));
    }
    SymbolView getIdentifierSymbol(std::uint64_t node) const override {
        return lie(onSymbol, {Operation::getIdentifierSymbol, {node}},
                   SymbolView{truth.getIdentifierSymbol(node).symbol, this});
    }
    NodeKind getInputParameterKind(std::uint64_t node) const override {
        return lie(onKind, {Operation::getInputParameterKind, {node}},
                   truth.getInputParameterKind(node));
    }
    NodeKind getNodeKind(std::uint64_t node) const override {
        return lie(onKind, {Operation::getNodeKind, {node}}, truth.getNodeKind(node));
    }

private:
    NodeView here(const NodeView& node) const {
        return node.view == &truth ? NodeView{node.node, this} : node;
    }
    boost::optional<NodeView> here(const boost::optional<NodeView>& node) const {
        if (!node) return boost::none;
        return here(*node);
    }
    template <typename Answer>
    static Answer lie(const std::function<void(const Call&, Answer&)>& hook, const Call& call,
                      Answer answer) {
        if (hook) hook(call, answer);
        return answer;
    }

    const FakeAst& truth;
};

} // namespace zt::orvex::testing
