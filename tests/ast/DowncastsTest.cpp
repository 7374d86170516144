#include "ast/Downcasts.h"
#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <typeinfo>

namespace zt::orvex::internal {
namespace {

using testing::TreeBuilder;

/// Tries a downcast on nodes of all 256 kinds: it must accept `kind` and refuse all others.
template <typename View>
void expectOnly(NodeKind kind, View (*downcastTo)(const NodeView&), const std::string& message) {
    TreeBuilder t;
    for (int value = 0; value <= 255; ++value) {
        const NodeView node = t.unknown(value);
        if (static_cast<NodeKind>(value) == kind) {
            const View view = downcastTo(node);
            EXPECT_EQ(view.node, node.node);
            EXPECT_EQ(view.view, node.view);
            continue;
        }
        try {
            downcastTo(node);
            FAIL() << "kind " << value << " passed as " << message;
        } catch (const std::exception& error) {
            EXPECT_EQ(typeid(error), typeid(std::logic_error));
            EXPECT_EQ(error.what(), message);
        }
    }
}

TEST(Downcasts, BinaryOperationIsTheOnlyKindAccepted) {
    expectOnly(NodeKind::BinaryOperation, toBinaryOperationView,
               "BinaryOperationView type is expected in the downcast argument.");
}

TEST(Downcasts, BraceOperationIsTheOnlyKindAccepted) {
    expectOnly(NodeKind::BraceOperation, toBraceOperationView,
               "BraceOperationView type is expected in the downcast argument.");
}

TEST(Downcasts, IdentifierIsTheOnlyKindAccepted) {
    expectOnly(NodeKind::Identifier, toIdentifierView,
               "IdentifierView type is expected in the downcast argument.");
}

TEST(Downcasts, MatrixIsTheOnlyKindAccepted) {
    expectOnly(NodeKind::Matrix, toMatrixView,
               "MatrixView type is expected in the downcast argument.");
}

TEST(Downcasts, ParenOperationIsTheOnlyKindAccepted) {
    expectOnly(NodeKind::ParenOperation, toParenOperationView,
               "ParenOperationView type is expected in the downcast argument.");
}

TEST(Downcasts, ParenthesizedExpressionIsTheOnlyKindAccepted) {
    expectOnly(NodeKind::ParenthesizedExpression, toParenthesizedExpressionView,
               "ParenthesizedExpressionView type is expected in the downcast argument.");
}

TEST(Downcasts, AskTheKindOnceAndNothingElse) {
    TreeBuilder t;
    const auto node = t.id("x");
    t.ast.startRecording();
    toIdentifierView(node);
    EXPECT_THROW(toMatrixView(node), std::logic_error);
    EXPECT_EQ(t.ast.calls().size(), 2U);
    EXPECT_EQ(t.ast.count(testing::Operation::getNodeKind), 2U);
}

} // namespace
} // namespace zt::orvex::internal
