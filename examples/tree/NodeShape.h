#pragma once

#include <zt_orvex/ast/NodeKind.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace ostrel {

/// What a field of a node is.
enum class FieldKind : std::uint8_t { One, Maybe, Each };

/// The fields of a kind, in the order in which the library's walkers visit them.
struct NodeShape {
    std::uint8_t count = 0;
    std::array<FieldKind, 6> fields{};

    constexpr void add(FieldKind kind) { fields[count++] = kind; }
};

/// The place of each part among the fields of its kind: `IfStatement_getIfBody` is 1. An
/// `InputParameter` has one field for the node that it holds, of either kind.
enum FieldIndex : std::int32_t {
#define ZT_ORVEX_NODE_KIND(Kind, Class) BEFORE_##Kind = -1,
#define ZT_ORVEX_ONE(Kind, accessor) Kind##_##accessor,
#define ZT_ORVEX_MAYBE(Kind, accessor) Kind##_##accessor,
#define ZT_ORVEX_EACH(Kind, accessor, View) Kind##_##accessor,
#define ZT_ORVEX_HELD(Kind, accessor, Held) Kind##_##accessor = 0,
#include <zt_orvex/ast/NodeKinds.def>
};

constexpr std::size_t KIND_VALUES = 1
#define ZT_ORVEX_NODE_KIND(Kind, Class) +1
#include <zt_orvex/ast/NodeKinds.def>
    ;

/// The shape of the nodes of each kind, indexed by kind.
constexpr std::array<NodeShape, KIND_VALUES> makeNodeShapes() {
    using zt::orvex::NodeKind;
    std::array<NodeShape, KIND_VALUES> shapes{};
#define OSTREL_FIELD(Kind, kind) shapes[static_cast<std::size_t>(NodeKind::Kind)].add(kind);
#define ZT_ORVEX_ONE(Kind, accessor) OSTREL_FIELD(Kind, FieldKind::One)
#define ZT_ORVEX_MAYBE(Kind, accessor) OSTREL_FIELD(Kind, FieldKind::Maybe)
#define ZT_ORVEX_EACH(Kind, accessor, View) OSTREL_FIELD(Kind, FieldKind::Each)
#include <zt_orvex/ast/NodeKinds.def>
    OSTREL_FIELD(InputParameter, FieldKind::One)
#undef OSTREL_FIELD
    return shapes;
}

constexpr std::array<NodeShape, KIND_VALUES> NODE_SHAPES = makeNodeShapes();

constexpr const NodeShape& shapeOf(zt::orvex::NodeKind kind) {
    return NODE_SHAPES[static_cast<std::size_t>(kind)];
}

} // namespace ostrel
