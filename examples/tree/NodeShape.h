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
};

/// How a node of each kind is built, indexed by kind: NodeFields.def as a table.
constexpr std::array<NodeShape, 67> makeNodeShapes() {
    std::array<NodeShape, 67> shapes{};
#define OSTREL_FIELD(Kind, index, what)                                                            \
    shapes[static_cast<std::size_t>(zt::orvex::NodeKind::Kind)].fields[index] = FieldKind::what;   \
    shapes[static_cast<std::size_t>(zt::orvex::NodeKind::Kind)].count = index + 1;
#define OSTREL_ONE(Kind, index, accessor) OSTREL_FIELD(Kind, index, One)
#define OSTREL_MAYBE(Kind, index, accessor) OSTREL_FIELD(Kind, index, Maybe)
#define OSTREL_EACH(Kind, index, accessor, View) OSTREL_FIELD(Kind, index, Each)
#include "tree/NodeFields.def"
#undef OSTREL_FIELD
    return shapes;
}

constexpr std::array<NodeShape, 67> NODE_SHAPES = makeNodeShapes();

constexpr const NodeShape& shapeOf(zt::orvex::NodeKind kind) {
    return NODE_SHAPES[static_cast<std::size_t>(kind)];
}

} // namespace ostrel
