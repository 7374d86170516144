#pragma once

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/NodeView.h>

#include <cstdint>

namespace zt::orvex::internal {

/// The classes of nodes, as bits. Deliberate: the bit of value 8 is kept free; no kind has it.
enum NodeClass : std::uint8_t {
    AnyNode = 1,
    StatementNode = 2,
    ExpressionNode = 4,
    MethodNode = 16,
};

/// The class word of each class that a row of NodeKinds.def can have.
namespace class_words {
constexpr std::uint8_t Other = AnyNode;
constexpr std::uint8_t Statement = AnyNode | StatementNode;
constexpr std::uint8_t Expression = AnyNode | ExpressionNode;
constexpr std::uint8_t Method = AnyNode | MethodNode;
} // namespace class_words

/// The class word of each kind, indexed by value; `Invalid` counts as other.
constexpr std::uint8_t CLASS_WORDS[] = {
    class_words::Other,
#define ZT_ORVEX_NODE_KIND(Name, Class) class_words::Class,
#include <zt_orvex/ast/NodeKinds.def>
};

/// The class word of `kind`; unknown kinds count as other.
constexpr std::uint8_t getClassWord(NodeKind kind) {
    const auto value = static_cast<std::uint8_t>(kind);
    return value < sizeof(CLASS_WORDS) ? CLASS_WORDS[value] : class_words::Other;
}

/// Whether `word` has all bits of `flags`. Deliberate: false for every word if `flags` is 0.
constexpr bool flagsContain(std::uint8_t word, std::uint8_t flags) {
    return flags != 0 && (word & flags) == flags;
}

constexpr bool kindHasClass(NodeKind kind, std::uint8_t flags) {
    return flagsContain(getClassWord(kind), flags);
}

inline bool hasClass(const NodeView& node, std::uint8_t flags) {
    return kindHasClass(node.getKind(), flags);
}

inline bool isKind(const NodeView& node, NodeKind kind) { return node.getKind() == kind; }

} // namespace zt::orvex::internal
