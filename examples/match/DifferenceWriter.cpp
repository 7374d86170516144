#include "match/DifferenceWriter.h"

#include "source/Utf8.h"
#include "syntax/Characters.h"
#include "tree/NumberValue.h"

#include <zt_orvex/ast/Operators.h>
#include <zt_orvex_kit/tree/KindName.h>

namespace ostrel {

using zt::orvex::NodeKind;
using zt::orvex::NodeView;

namespace {

Place placeOf(const ParsedFile& file, NodeView node) {
    const std::size_t begin = file.tree->beginOffset(node);
    return file.source.place(begin, file.tree->endOffset(node) - begin);
}

/// A text of the source for a message, cut off if it is long.
std::string shortened(std::u16string_view text) {
    constexpr std::size_t LONGEST = 60;
    if (text.size() <= LONGEST) return toUtf8(text);
    const std::size_t end = isLowSurrogate(text[LONGEST]) ? LONGEST - 1 : LONGEST;
    return toUtf8(text.substr(0, end)) + "...";
}

std::string quoted(const std::string& text) { return "'" + text + "'"; }

/// Such as "an IfStatement". That a statement prints its result isn't worth a word here.
std::string kindOf(const Tree& tree, NodeView node) {
    const bool isPrinted = node.getKind() == NodeKind::PrintStatement;
    const NodeView named = isPrinted ? tree.getPrintedStatement(node.node) : node;
    const std::string name(zt::orvex::kit::kindName(named.getKind()));
    const bool isVowel = std::string_view("AEIOU").find(name.front()) != std::string_view::npos;
    return (isVowel ? "an " : "a ") + name;
}

/// A literal as the source spells it; a word of a command gets quotes.
std::string textOf(const Tree& tree, NodeView literal) {
    const std::u16string_view spelling = tree.spelling(literal);
    const bool hasQuotes =
        !spelling.empty() && (spelling.front() == u'\'' || spelling.front() == u'"');
    return hasQuotes ? shortened(spelling) : quoted(shortened(spelling));
}

std::string operatorOf(const Tree& tree, NodeView operation) {
    return operation.getKind() == NodeKind::BinaryOperation
               ? toString(tree.getBinaryOperator(operation.node))
               : toString(tree.getUnaryOperator(operation.node));
}

/// The place of the operator itself, which only blanks separate from its left operand.
Place operatorPlace(const ParsedFile& file, NodeView operation) {
    const Tree& tree = *file.tree;
    const std::size_t length = operatorOf(tree, operation).size();
    std::size_t begin = tree.beginOffset(operation);
    if (operation.getKind() == NodeKind::BinaryOperation) {
        const NodeView lhs = tree.getBinaryLhs(operation.node);
        begin = skipBlanks(file.source, tree.endOffset(lhs));
    } else if (tree.beginOffset(tree.getUnaryOperand(operation.node)) == begin) {
        begin = tree.endOffset(operation) - length;
    }
    return file.source.place(begin, length);
}

bool haveSameType(const Tree& first, NodeView a, const Tree& second, NodeView b) {
    return numberValue(first.spelling(a)).which() == numberValue(second.spelling(b)).which();
}

/// What tells the node from its counterpart.
std::string describe(const Tree& tree, NodeView node, DifferenceKind kind) {
    switch (kind) {
    case DifferenceKind::Name:
        return "the name " + quoted(shortened(tree.getIdentifierName(node.node)));
    case DifferenceKind::Number:
        return "the number " + shortened(tree.spelling(node));
    case DifferenceKind::Operator:
        return "the operator " + quoted(operatorOf(tree, node));
    case DifferenceKind::Text:
        return "the text " + textOf(tree, node);
    default:
        return kindOf(tree, node);
    }
}

const char* whereIsIt(Whereabouts whereabouts) {
    switch (whereabouts) {
    case Whereabouts::After:
        return "there, it would follow this";
    case Whereabouts::Before:
        return "there, it would precede this";
    case Whereabouts::In:
        break;
    }
    return "there, it would be part of this";
}

} // namespace

void DifferenceWriter::write(const Difference& difference) {
    const DifferenceKind kind = difference.kind;
    if (kind == DifferenceKind::OnlyInFirst)
        return writeOnlyIn(first, difference.first, second, difference, difference.second);
    if (kind == DifferenceKind::OnlyInSecond)
        return writeOnlyIn(second, difference.second, first, difference, difference.first);
    const NodeView a = first.tree->view(difference.first);
    const NodeView b = second.tree->view(difference.second);
    if (kind == DifferenceKind::Printing) {
        const bool printsHere = a.getKind() == NodeKind::PrintStatement;
        writeHere(first, placeOf(first, a),
                  printsHere ? "prints its result here" : "is silent here");
        return writeThere(second, placeOf(second, b),
                          printsHere ? "is silent there" : "prints its result there");
    }
    const bool isOperator = kind == DifferenceKind::Operator;
    const bool isOfAnotherType =
        kind == DifferenceKind::Number && !haveSameType(*first.tree, a, *second.tree, b);
    writeHere(first, isOperator ? operatorPlace(first, a) : placeOf(first, a),
              describe(*first.tree, a, kind) + " here");
    writeThere(second, isOperator ? operatorPlace(second, b) : placeOf(second, b),
               describe(*second.tree, b, kind) + " there" +
                   (isOfAnotherType ? ", of another type" : ""));
}

void DifferenceWriter::writeOnlyIn(const ParsedFile& owner, NodeId node, const ParsedFile& other,
                                   const Difference& difference, NodeId anchor) {
    const NodeView view = owner.tree->view(node);
    writeHere(owner, placeOf(owner, view), kindOf(*owner.tree, view) + " only here");
    writeThere(other, placeOf(other, other.tree->view(anchor)), whereIsIt(difference.whereabouts));
}

void DifferenceWriter::writeHere(const ParsedFile& file, const Place& place,
                                 std::string_view text) {
    messages.writeHead(file.path, place, Tone::Warning, "difference", text);
    messages.writeSnippet(file.source, place, Tone::Warning);
}

void DifferenceWriter::writeThere(const ParsedFile& file, const Place& place,
                                  std::string_view text) {
    messages.writeHead(file.path, place, Tone::Help, "", text);
    messages.writeSnippet(file.source, place, Tone::Help);
}

} // namespace ostrel
