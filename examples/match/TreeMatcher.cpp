#include "match/TreeMatcher.h"

#include "tree/LiteralText.h"
#include "tree/NodeShape.h"
#include "tree/NumberValue.h"

#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/support/Quote.h>
#include <zt_orvex_kit/tree/KindName.h>

namespace ostrel {

using zt::orvex::NodeKind;
using zt::orvex::NodeView;

namespace {

Position positionOf(const MatchedProgram& program, NodeView node) {
    return program.source.position(program.tree.beginOffset(node));
}

std::string describe(const MatchedProgram& program, NodeView node) {
    const Position position = positionOf(program, node);
    return std::string(zt::orvex::kit::kindName(node.getKind())) + " at " +
           std::to_string(position.line) + ":" + std::to_string(position.column);
}

unsigned lineOf(const MatchedProgram& program, NodeView node) {
    return static_cast<unsigned>(positionOf(program, node).line);
}

const Field& fieldOf(const Tree& tree, NodeView node, std::size_t index) {
    return tree.parts().fields[tree.parts().nodes[node.node].data + index];
}

} // namespace

bool TreeMatcher::match() {
    logger.startNewMatch();
    return matchNodes(first.tree.root(), second.tree.root());
}

bool TreeMatcher::matchNodes(NodeView a, NodeView b) {
    logger.beginMatching(describe(first, a), describe(second, b));
    const bool matched = matchKinds(a, b) && matchOwnText(a, b) && matchChildren(a, b);
    logger.doneMatching(matched);
    return matched;
}

bool TreeMatcher::matchKinds(NodeView a, NodeView b) {
    if (a.getKind() == b.getKind()) return true;
    logger.logMismatchedNodes(describe(first, a), describe(second, b), a.getKind(), b.getKind(),
                              lineOf(first, a), lineOf(second, b));
    return false;
}

/// Compares the text of the node itself, without its children.
bool TreeMatcher::matchOwnText(NodeView a, NodeView b) {
    switch (a.getKind()) {
    case NodeKind::Identifier:
        return matchStrings(first.tree.getIdentifierName(a.node),
                            second.tree.getIdentifierName(b.node));
    case NodeKind::NumberLiteral:
        return matchNumbers(a, b);
    case NodeKind::CharacterLiteral:
    case NodeKind::StringLiteral:
        return matchTexts(a, b);
    case NodeKind::BinaryOperation:
        return matchOperators(first.tree.getBinaryOperator(a.node),
                              second.tree.getBinaryOperator(b.node));
    case NodeKind::UnaryOperation:
        return matchOperators(first.tree.getUnaryOperator(a.node),
                              second.tree.getUnaryOperator(b.node));
    default:
        return true;
    }
}

/// Numbers match if their types and values do, however they are spelled; the log shows spellings.
bool TreeMatcher::matchNumbers(NodeView a, NodeView b) {
    const std::u16string_view inFirst = first.tree.spelling(a);
    const std::u16string_view inSecond = second.tree.spelling(b);
    return reportStrings(inFirst, inSecond, numberValue(inFirst) == numberValue(inSecond));
}

/// Texts match if they denote the same characters; the log shows both with the same quotes.
bool TreeMatcher::matchTexts(NodeView a, NodeView b) {
    const char16_t mark = a.getKind() == NodeKind::StringLiteral ? u'"' : u'\'';
    return matchStrings(zt::orvex::quote(literalText(first.tree, a), mark),
                        zt::orvex::quote(literalText(second.tree, b), mark));
}

template <typename Operator>
bool TreeMatcher::matchOperators(Operator a, Operator b) {
    return matchStrings(spellings.of(toString(a)), spellings.of(toString(b)));
}

bool TreeMatcher::matchStrings(std::u16string_view a, std::u16string_view b) {
    return reportStrings(a, b, a == b);
}

bool TreeMatcher::reportStrings(std::u16string_view a, std::u16string_view b, bool matched) {
    logger.beginMatchingStrings(a, b);
    logger.doneMatching(matched);
    return matched;
}

bool TreeMatcher::matchChildren(NodeView a, NodeView b) {
    const NodeShape& shape = shapeOf(a.getKind());
    for (std::size_t i = 0; i < shape.count; ++i) {
        const Field inFirst = fieldOf(first.tree, a, i);
        const Field inSecond = fieldOf(second.tree, b, i);
        bool matched = true;
        switch (shape.fields[i]) {
        case FieldKind::One:
            matched = matchNodes(first.tree.view(inFirst.begin), second.tree.view(inSecond.begin));
            break;
        case FieldKind::Maybe:
            matched = matchOptional(inFirst, inSecond);
            break;
        case FieldKind::Each:
            matched = matchRange(inFirst, inSecond);
            break;
        }
        if (!matched) return false;
    }
    return true;
}

bool TreeMatcher::matchOptional(Field a, Field b) {
    if (a.count == 0 && b.count == 0) return true;
    if (a.count != 0 && b.count != 0) {
        return matchNodes(first.tree.view(a.begin), second.tree.view(b.begin));
    }
    const bool isInFirst = a.count != 0;
    const MatchedProgram& owner = isInFirst ? first : second;
    const NodeView present = owner.tree.view(isInFirst ? a.begin : b.begin);
    logger.logMismatchedOptionals(isInFirst, describe(owner, present), present.getKind(),
                                  lineOf(owner, present));
    return false;
}

bool TreeMatcher::matchRange(Field a, Field b) {
    logger.beginMatchingRange();
    bool matched = true;
    for (std::uint32_t i = 0; matched && i < a.count && i < b.count; ++i) {
        logger.logRangeIndex(i);
        matched = matchNodes(first.tree.view(first.tree.parts().elements[a.begin + i]),
                             second.tree.view(second.tree.parts().elements[b.begin + i]));
    }
    if (matched && a.count != b.count) {
        logger.log("Ranges do not have the same length");
        matched = false;
    }
    logger.doneMatching(matched);
    return matched;
}

} // namespace ostrel
