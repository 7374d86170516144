#include "match/SubtreeClasses.h"

#include "tree/LiteralText.h"
#include "tree/NodeShape.h"
#include "tree/NumberValue.h"

#include <zt_orvex/literals/Imaginary.h>

#include <cstring>
#include <type_traits>

namespace ostrel {

using zt::orvex::NodeKind;
using zt::orvex::NodeView;

namespace {

/// The bits of a value, in UTF-16 units. A number of the source is neither a NaN nor -0.0, so equal
/// values have equal bits.
struct BitsOf {
    template <typename Value>
    std::u16string operator()(const Value& value) const {
        std::u16string bits(4, u'\0');
        static_assert(sizeof value <= 4 * sizeof(char16_t));
        std::memcpy(bits.data(), &value, sizeof value);
        return bits;
    }
    std::u16string operator()(const zt::orvex::Imaginary& value) const {
        return (*this)(value.getComplexValue().imag());
    }
    using result_type = std::u16string;
};

std::u16string numberKey(std::u16string_view spelling) {
    const zt::orvex::LiteralValue value = numberValue(spelling);
    return static_cast<char16_t>(value.which()) + boost::apply_visitor(BitsOf(), value);
}

} // namespace

NodeClasses SubtreeClasses::of(const Tree& tree) {
    const TreeStorage& parts = tree.parts();
    NodeClasses classes;
    classes.own.resize(parts.nodes.size());
    classes.whole.resize(parts.nodes.size());
    std::u32string key;
    for (NodeId id = 1; id < parts.nodes.size(); ++id) { // children come before their parents
        const Node& node = parts.nodes[id];
        const auto text = texts.try_emplace(ownText(tree, tree.view(id)),
                                            static_cast<std::uint32_t>(texts.size()));
        key = {static_cast<char32_t>(node.kind), node.op, text.first->second};
        classes.own[id] = numberOf(owns, key);
        const NodeShape& shape = shapeOf(node.kind);
        key = {classes.own[id]};
        for (std::size_t i = 0; i < shape.count; ++i) {
            const Field field = parts.fields[node.data + i];
            key += field.count;
            for (std::uint32_t j = 0; j < field.count; ++j) {
                const bool isRange = shape.fields[i] == FieldKind::Each;
                key += classes.whole[isRange ? parts.elements[field.begin + j] : field.begin];
            }
        }
        classes.whole[id] = numberOf(wholes, key);
    }
    return classes;
}

/// What a node says by itself, without its kind and operator.
std::u16string SubtreeClasses::ownText(const Tree& tree, NodeView node) {
    switch (node.getKind()) {
    case NodeKind::Identifier:
        return std::u16string(tree.getIdentifierName(node.node));
    case NodeKind::NumberLiteral:
        return numberKey(tree.spelling(node));
    case NodeKind::CharacterLiteral:
    case NodeKind::StringLiteral:
        return literalText(tree, node);
    default:
        return {};
    }
}

std::uint32_t SubtreeClasses::numberOf(std::unordered_map<std::u32string, std::uint32_t>& known,
                                       const std::u32string& key) {
    return known.try_emplace(key, static_cast<std::uint32_t>(known.size())).first->second;
}

} // namespace ostrel
