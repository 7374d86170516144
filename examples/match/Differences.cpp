#include "match/Differences.h"

#include "match/Alignment.h"
#include "match/SubtreeClasses.h"
#include "tree/NodeShape.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace ostrel {

using zt::orvex::NodeKind;

namespace {

// How alike two elements are that aren't equal.
constexpr int UNLIKE = 1;
constexpr int SAME_KIND = 10;
constexpr int SAME_KIND_AND_HEAD = MAX_LIKENESS;

/// What differs between two nodes of a kind that differ by themselves.
DifferenceKind ownDifference(NodeKind kind) {
    switch (kind) {
    case NodeKind::Identifier:
        return DifferenceKind::Name;
    case NodeKind::NumberLiteral:
        return DifferenceKind::Number;
    case NodeKind::CharacterLiteral:
    case NodeKind::StringLiteral:
        return DifferenceKind::Text;
    default:
        return DifferenceKind::Operator;
    }
}

/// A tree with what comparing it takes.
class Side {
public:
    Side(const Tree& of, SubtreeClasses& classes) : tree(of), nodes(classes.of(of)) {}

    NodeKind kind(NodeId node) const { return parts().nodes[node].kind; }
    std::uint32_t own(NodeId node) const { return nodes.own[node]; }
    std::uint32_t whole(NodeId node) const { return nodes.whole[node]; }
    const Field& field(NodeId node, std::size_t index) const {
        return parts().fields[parts().nodes[node].data + index];
    }
    NodeId element(const Field& range, std::size_t index) const {
        return parts().elements[range.begin + index];
    }

    /// The statement in a PrintStatement; any other node itself.
    NodeId printed(NodeId node) const {
        return kind(node) == NodeKind::PrintStatement ? field(node, 0).begin : node;
    }

    /// The class of what a node says first, such as the target of an assignment; of the node itself
    /// if it begins with a list or is a leaf.
    std::uint32_t head(NodeId node) const {
        const NodeShape& shape = shapeOf(kind(node));
        const bool hasHead = shape.count > 0 && shape.fields[0] == FieldKind::One;
        return whole(hasHead ? field(node, 0).begin : node);
    }

    std::vector<std::uint32_t> classesOf(const Field& range) const {
        std::vector<std::uint32_t> classes;
        for (std::size_t i = 0; i < range.count; ++i)
            classes.push_back(whole(element(range, i)));
        return classes;
    }

    NodeId root() const { return static_cast<NodeId>(tree.root().node); }

private:
    const TreeStorage& parts() const { return tree.parts(); }

    const Tree& tree;
    NodeClasses nodes;
};

class Comparison {
public:
    Comparison(const Tree& a, const Tree& b) : first(a, classes), second(b, classes) {}

    std::vector<Difference> run() {
        compare(first.root(), second.root());
        return std::move(differences);
    }

private:
    void compare(NodeId a, NodeId b) {
        if (first.whole(a) == second.whole(b)) return;
        if (first.kind(a) != second.kind(b)) return compareKinds(a, b);
        if (first.own(a) != second.own(b)) return add(ownDifference(first.kind(a)), a, b);
        const NodeShape& shape = shapeOf(first.kind(a));
        for (std::size_t i = 0; i < shape.count; ++i) {
            const Field& inFirst = first.field(a, i);
            const Field& inSecond = second.field(b, i);
            if (shape.fields[i] == FieldKind::Each) {
                compareLists(a, b, inFirst, inSecond);
            } else if (inFirst.count != 0 && inSecond.count != 0) {
                compare(inFirst.begin, inSecond.begin);
            } else if (inFirst.count != inSecond.count) {
                const bool isInFirst = inFirst.count != 0;
                add(isInFirst ? DifferenceKind::OnlyInFirst : DifferenceKind::OnlyInSecond,
                    isInFirst ? inFirst.begin : a, isInFirst ? b : inSecond.begin);
            }
        }
    }

    /// Two statements of which one prints its result are compared as if neither did, if they are
    /// of the same kind otherwise.
    void compareKinds(NodeId a, NodeId b) {
        const NodeId printedA = first.printed(a);
        const NodeId printedB = second.printed(b);
        if (first.kind(printedA) != second.kind(printedB)) return add(DifferenceKind::Kind, a, b);
        add(DifferenceKind::Printing, a, b);
        compare(printedA, printedB);
    }

    void compareLists(NodeId a, NodeId b, const Field& inFirst, const Field& inSecond) {
        const auto likeness = [&](std::size_t i, std::size_t j) {
            const NodeId x = first.printed(first.element(inFirst, i));
            const NodeId y = second.printed(second.element(inSecond, j));
            if (first.kind(x) != second.kind(y)) return UNLIKE;
            return first.head(x) == second.head(y) ? SAME_KIND_AND_HEAD : SAME_KIND;
        };
        const std::vector<AlignedPair> pairs =
            align(first.classesOf(inFirst), second.classesOf(inSecond), likeness);
        // The last element passed in each list.
        NodeId lastInFirst = 0;
        NodeId lastInSecond = 0;
        for (const AlignedPair& pair : pairs) {
            const bool isInFirst = pair.first != AlignedPair::NONE;
            const bool isInSecond = pair.second != AlignedPair::NONE;
            if (isInFirst) lastInFirst = first.element(inFirst, pair.first);
            if (isInSecond) lastInSecond = second.element(inSecond, pair.second);
            if (isInFirst && isInSecond) {
                compare(lastInFirst, lastInSecond);
            } else if (isInFirst) {
                const Anchor anchor = anchorIn(second, inSecond, lastInSecond, b);
                differences.push_back(
                    {DifferenceKind::OnlyInFirst, lastInFirst, anchor.node, anchor.whereabouts});
            } else {
                const Anchor anchor = anchorIn(first, inFirst, lastInFirst, a);
                differences.push_back(
                    {DifferenceKind::OnlyInSecond, anchor.node, lastInSecond, anchor.whereabouts});
            }
        }
    }

    struct Anchor {
        NodeId node;
        Whereabouts whereabouts;
    };

    /// What a list that lacks an element has at its place.
    static Anchor anchorIn(const Side& side, const Field& list, NodeId last, NodeId parent) {
        if (last != 0) return {last, Whereabouts::After};
        if (list.count > 0) return {side.element(list, 0), Whereabouts::Before};
        return {parent, Whereabouts::In};
    }

    void add(DifferenceKind kind, NodeId a, NodeId b) { differences.push_back({kind, a, b}); }

    SubtreeClasses classes;
    Side first;
    Side second;
    std::vector<Difference> differences;
};

} // namespace

std::vector<Difference> findDifferences(const Tree& first, const Tree& second) {
    return Comparison(first, second).run();
}

} // namespace ostrel
