#pragma once

#include "base/BasicAstView.h"
#include "tree/TreeStorage.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ostrel {

/// A parsed program, as the library sees it and as a report needs it.
///
/// Owns all nodes, names and symbols. Handles, `NodeView`s and `SymbolView`s stay valid and mean
/// the same for as long as the tree lives; it can be neither copied nor moved. Every operation is a
/// look-up in an array. Immutable, so any thread may read it.
///
/// A node's handle is its `NodeId`, a symbol's handle its `SymbolId`; the two words of a range are
/// the begin and the length of a run of children.
class Tree final : public BasicAstView {
public:
    Tree(TreeStorage parts, NodeId rootNode);
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    /// The `Program`.
    zt::orvex::NodeView root() const { return view(rootId); }

    zt::orvex::NodeView view(NodeId node) const { return {node, this}; }
    zt::orvex::SymbolView symbolView(SymbolId symbol) const { return {symbol, this}; }

    /// Where a node's text begins and where it ends, in UTF-16 units of the source. An `ans` that
    /// stands nowhere in the text, and a `FillerNode`, begin and end at their statement's begin.
    std::size_t beginOffset(zt::orvex::NodeView node) const { return at(node).begin; }
    std::size_t endOffset(zt::orvex::NodeView node) const { return at(node).end; }

    /// A literal or a command word as the source spells it, quotes and all; else empty.
    std::u16string_view spelling(zt::orvex::NodeView node) const;

    /// Whether an `Identifier` is an `ans` that stands nowhere in the text.
    bool isImplicit(zt::orvex::NodeView identifier) const;

    std::u16string_view symbolName(zt::orvex::SymbolView symbol) const;
    const SymbolData& symbolData(zt::orvex::SymbolView symbol) const;

    /// How many levels the tree has; walkers recurse that deep.
    std::size_t height() const { return storage.nodes[rootId].height; }

    const TreeStorage& parts() const { return storage; }

    // What IAstView asks. The accessors of children come from NodeFields.def.
    bool isVariableSymbol(std::uint64_t symbol) const override;
    zt::orvex::NodeKind getNodeKind(std::uint64_t node) const override;
    zt::orvex::BinaryOperator getBinaryOperator(std::uint64_t node) const override;
    zt::orvex::UnaryOperator getUnaryOperator(std::uint64_t node) const override;
    std::u16string_view getIdentifierName(std::uint64_t node) const override;
    /// Of a node that is no Identifier, and of a name that is no variable of any scope: a symbol
    /// that is no variable.
    zt::orvex::SymbolView getIdentifierSymbol(std::uint64_t node) const override;
    zt::orvex::NodeKind getInputParameterKind(std::uint64_t node) const override;
    boost::optional<zt::orvex::NodeView>
    getInputParameterIdentifier(std::uint64_t node) const override;
    boost::optional<zt::orvex::NodeView>
    getInputParameterIgnored(std::uint64_t node) const override;
    boost::optional<zt::orvex::NodeView> getCharacterLiteralPart(std::uint64_t) const override {
        return {};
    }
    boost::optional<zt::orvex::NodeView> getStringLiteralPart(std::uint64_t) const override {
        return {};
    }

#define OSTREL_ONE(Kind, index, accessor)                                                          \
    zt::orvex::NodeView accessor(std::uint64_t node) const override {                              \
        return view(field(node, index).begin);                                                     \
    }
#define OSTREL_MAYBE(Kind, index, accessor)                                                        \
    boost::optional<zt::orvex::NodeView> accessor(std::uint64_t node) const override {             \
        return optionalChild(field(node, index));                                                  \
    }
#define OSTREL_EACH(Kind, index, accessor, View)                                                   \
    zt::orvex::View accessor(std::uint64_t node) const override {                                  \
        return {field(node, index).begin, field(node, index).count, this};                         \
    }
#define OSTREL_SAME_ONE(Kind, index, accessor)
#define OSTREL_SAME_EACH(Kind, index, accessor, View)
#include "tree/NodeFields.def"

private:
    const Node& at(zt::orvex::NodeView node) const { return storage.nodes[node.node]; }
    Field field(std::uint64_t node, std::uint32_t index) const {
        return storage.fields[storage.nodes[node].data + index];
    }
    boost::optional<zt::orvex::NodeView> optionalChild(Field child) const {
        if (child.count == 0) return {};
        return view(child.begin);
    }
    boost::optional<zt::orvex::NodeView> parameterIfKind(std::uint64_t node,
                                                         zt::orvex::NodeKind kind) const;

    zt::orvex::NodeView rangeElement(std::uint64_t index, std::uint64_t first,
                                     std::uint64_t) const override {
        return view(storage.elements[first + index]);
    }
    std::uint64_t rangeSize(std::uint64_t, std::uint64_t second) const override { return second; }

    TreeStorage storage;
    NodeId rootId;
};

} // namespace ostrel
