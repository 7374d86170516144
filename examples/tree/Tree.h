#pragma once

#include "tree/NodeShape.h"
#include "tree/TreeStorage.h"

#include <zt_orvex/ast/BasicAstView.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ostrel {

/// A parsed program, as the library sees it and as a report needs it.
///
/// Owns all nodes, names and symbols. Handles, `NodeView`s and `SymbolView`s stay valid, with the
/// same meaning, for as long as the tree lives; it can be neither copied nor moved. Every operation
/// is a look-up in an array. Immutable, so any thread may read it.
///
/// A node's handle is its `NodeId`, a symbol's handle its `SymbolId`; the two words of a range are
/// the start and the length of a run of children.
class Tree final : public zt::orvex::BasicAstView {
public:
    Tree(TreeStorage parts, NodeId rootNode);
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    /// The `Program`.
    zt::orvex::NodeView root() const { return view(rootId); }

    zt::orvex::NodeView view(NodeId node) const { return {node, this}; }
    zt::orvex::SymbolView symbolView(SymbolId symbol) const { return {symbol, this}; }

    /// Where a node's text begins and where it ends, in UTF-16 units of the source. An implicit
    /// `ans` and a `FillerNode` begin and end where their statement begins.
    std::size_t beginOffset(zt::orvex::NodeView node) const { return at(node).begin; }
    std::size_t endOffset(zt::orvex::NodeView node) const { return at(node).end; }

    /// A literal or a command word as the source spells it, with its quotes; empty for other nodes.
    std::u16string_view spelling(zt::orvex::NodeView node) const;

    /// Whether an `Identifier` is an implicit `ans`, which the text doesn't contain.
    bool isImplicit(zt::orvex::NodeView identifier) const;

    std::u16string_view symbolName(zt::orvex::SymbolView symbol) const;
    const SymbolData& symbolData(zt::orvex::SymbolView symbol) const;

    /// How many levels the tree has. Walkers recurse that deep.
    std::size_t height() const { return storage.nodes[rootId].height; }

    const TreeStorage& parts() const { return storage; }

    // The answers to IAstView. The accessors of children are derived from the table of kinds.
    bool isVariableSymbol(std::uint64_t symbol) const override;
    zt::orvex::NodeKind getNodeKind(std::uint64_t node) const override;
    zt::orvex::BinaryOperator getBinaryOperator(std::uint64_t node) const override;
    zt::orvex::UnaryOperator getUnaryOperator(std::uint64_t node) const override;
    std::u16string_view getIdentifierName(std::uint64_t node) const override;
    /// For a node that isn't an `Identifier`, and for a name that isn't a variable of any scope: a
    /// symbol that isn't a variable.
    zt::orvex::SymbolView getIdentifierSymbol(std::uint64_t node) const override;
    zt::orvex::NodeKind getInputParameterKind(std::uint64_t node) const override;

#define ZT_ORVEX_ONE(Kind, accessor)                                                               \
    zt::orvex::NodeView accessor(std::uint64_t node) const override {                              \
        return view(field(node, Kind##_##accessor).begin);                                         \
    }
#define ZT_ORVEX_MAYBE(Kind, accessor)                                                             \
    boost::optional<zt::orvex::NodeView> accessor(std::uint64_t node) const override {             \
        return optionalChild(field(node, Kind##_##accessor));                                      \
    }
#define ZT_ORVEX_EACH(Kind, accessor, View)                                                        \
    zt::orvex::View accessor(std::uint64_t node) const override {                                  \
        const Field range = field(node, Kind##_##accessor);                                        \
        return {range.begin, range.count, this};                                                   \
    }
#define ZT_ORVEX_HELD(Kind, accessor, Held)                                                        \
    boost::optional<zt::orvex::NodeView> accessor(std::uint64_t node) const override {             \
        return heldIfKind(node, zt::orvex::NodeKind::Held);                                        \
    }
#define ZT_ORVEX_SHARED_ONE(Kind, accessor)
#define ZT_ORVEX_SHARED_EACH(Kind, accessor, View)
#include <zt_orvex/ast/NodeKinds.def>

private:
    const Node& at(zt::orvex::NodeView node) const { return storage.nodes[node.node]; }
    Field field(std::uint64_t node, std::size_t index) const {
        return storage.fields[storage.nodes[node].data + index];
    }
    boost::optional<zt::orvex::NodeView> optionalChild(Field child) const {
        if (child.count == 0) return {};
        return view(child.begin);
    }
    /// What an InputParameter holds, if that has the kind.
    boost::optional<zt::orvex::NodeView> heldIfKind(std::uint64_t parameter,
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
