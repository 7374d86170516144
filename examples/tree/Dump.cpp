#include "tree/Dump.h"

#include "source/Utf8.h"
#include "tree/NodeShape.h"

#include <zt_orvex/ast/Operators.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace ostrel {

using zt::orvex::BinaryOperator;
using zt::orvex::NodeKind;
using zt::orvex::NodeView;
using zt::orvex::UnaryOperator;

namespace {

constexpr std::array<std::string_view, KIND_VALUES> KIND_NAMES{
    "Invalid",
#define ZT_ORVEX_NODE_KIND(Name, Class) #Name,
#include <zt_orvex/ast/NodeKinds.def>
};

bool isLiteral(NodeKind kind) {
    return kind == NodeKind::CharacterLiteral || kind == NodeKind::NumberLiteral ||
           kind == NodeKind::StringLiteral;
}

class Dumper {
public:
    explicit Dumper(const Tree& of) : tree(of), storage(of.parts()) {}

    void node(NodeId id) {
        const Node& at = storage.nodes[id];
        const NodeShape& shape = shapeOf(at.kind);
        if (shape.count == 0 || isLiteral(at.kind)) return leaf(id);
        text += '(';
        text += kindName(at.kind);
        if (at.kind == NodeKind::BinaryOperation) {
            text += ' ' + toString(static_cast<BinaryOperator>(at.op));
        }
        if (at.kind == NodeKind::UnaryOperation) {
            text += ' ' + toString(static_cast<UnaryOperator>(at.op));
        }
        for (std::uint32_t i = 0; i < shape.count; ++i) {
            text += ' ';
            field(storage.fields[at.data + i], shape.fields[i]);
        }
        text += ')';
    }

    std::string text;

private:
    void leaf(NodeId id) {
        const NodeView view = tree.view(id);
        const NodeKind kind = view.getKind();
        if (isLiteral(kind)) {
            text += toUtf8(tree.spelling(view));
        } else if (kind == NodeKind::Identifier) {
            const std::string name = toUtf8(tree.getIdentifierName(id));
            text += tree.isImplicit(view) ? '<' + name + '>' : name;
        } else {
            text += kindName(kind);
        }
    }

    void field(Field of, FieldKind kind) {
        switch (kind) {
        case FieldKind::One:
            return node(of.begin);
        case FieldKind::Maybe:
            if (of.count == 0) {
                text += '-';
                return;
            }
            return node(of.begin);
        case FieldKind::Each:
            break;
        }
        text += '[';
        for (std::uint32_t i = 0; i < of.count; ++i) {
            if (i > 0) text += ' ';
            node(storage.elements[of.begin + i]);
        }
        text += ']';
    }

    const Tree& tree;
    const TreeStorage& storage;
};

class Comparer {
public:
    Comparer(const Tree& first, const Tree& second) : a(first), b(second) {}

    bool same(NodeId x, NodeId y) const {
        const Node& left = a.parts().nodes[x];
        const Node& right = b.parts().nodes[y];
        if (left.kind != right.kind || left.op != right.op) return false;
        if (left.kind == NodeKind::Identifier) {
            return a.getIdentifierName(x) == b.getIdentifierName(y) &&
                   a.isImplicit(a.view(x)) == b.isImplicit(b.view(y));
        }
        if (isLiteral(left.kind)) return a.spelling(a.view(x)) == b.spelling(b.view(y));
        const NodeShape& shape = shapeOf(left.kind);
        for (std::uint32_t i = 0; i < shape.count; ++i) {
            const bool isSame = same(a.parts().fields[left.data + i],
                                     b.parts().fields[right.data + i], shape.fields[i]);
            if (!isSame) return false;
        }
        return true;
    }

private:
    bool same(Field x, Field y, FieldKind kind) const {
        if (x.count != y.count) return false;
        if (kind != FieldKind::Each) return x.count == 0 || same(x.begin, y.begin);
        for (std::uint32_t i = 0; i < x.count; ++i) {
            if (!same(a.parts().elements[x.begin + i], b.parts().elements[y.begin + i])) {
                return false;
            }
        }
        return true;
    }

    const Tree& a;
    const Tree& b;
};

} // namespace

std::string_view kindName(NodeKind kind) {
    const auto index = static_cast<std::size_t>(kind);
    return KIND_NAMES[index < KIND_NAMES.size() ? index : 0];
}

std::string dump(const Tree& tree, NodeView node) {
    Dumper dumper(tree);
    dumper.node(static_cast<NodeId>(node.node));
    return dumper.text;
}

bool isSameTree(const Tree& a, const Tree& b) {
    return Comparer(a, b).same(static_cast<NodeId>(a.root().node),
                               static_cast<NodeId>(b.root().node));
}

} // namespace ostrel
