#pragma once

#include <zt_orvex/ast/TypedViews.h>

namespace zt::orvex::internal {

/// Throws std::logic_error(message). Out of line, so that a downcast costs only a comparison.
[[noreturn, gnu::cold, gnu::noinline]] void throwUnexpectedKind(const char* message);

template <typename View>
View downcast(const NodeView& node, const char* message) {
    if (node.getKind() != View::KIND) throwUnexpectedKind(message);
    return View(node);
}

// The checked downcasts: `node` as the typed view, or std::logic_error with the text given here if
// it is of another kind. All other typed views are made without a check, after asking the kind.

inline BinaryOperationView toBinaryOperationView(const NodeView& node) {
    return downcast<BinaryOperationView>(
        node, "BinaryOperationView type is expected in the downcast argument.");
}

inline BraceOperationView toBraceOperationView(const NodeView& node) {
    return downcast<BraceOperationView>(
        node, "BraceOperationView type is expected in the downcast argument.");
}

inline IdentifierView toIdentifierView(const NodeView& node) {
    return downcast<IdentifierView>(node,
                                    "IdentifierView type is expected in the downcast argument.");
}

inline MatrixView toMatrixView(const NodeView& node) {
    return downcast<MatrixView>(node, "MatrixView type is expected in the downcast argument.");
}

inline ParenOperationView toParenOperationView(const NodeView& node) {
    return downcast<ParenOperationView>(
        node, "ParenOperationView type is expected in the downcast argument.");
}

inline ParenthesizedExpressionView toParenthesizedExpressionView(const NodeView& node) {
    return downcast<ParenthesizedExpressionView>(
        node, "ParenthesizedExpressionView type is expected in the downcast argument.");
}

} // namespace zt::orvex::internal
