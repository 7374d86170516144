#include "analysis/AnalysisFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <stdexcept>
#include <string>

namespace zt::orvex::testing {
namespace {

// A tree that changes its answers

class ChangingTree : public AnalysisFixture {
protected:
    // Makes `node` a number once the `asked`th question for its kind has been answered.
    void changeAfter(const NodeView& node, std::size_t asked) {
        ast.onCall = [this, node, asked, seen = std::size_t(0)](const Call& call) mutable {
            if (call.operation != Operation::getNodeKind || call.arguments[0] != node.node) return;
            if (++seen > asked) ast.setKind(node, NodeKind::NumberLiteral);
        };
    }

    // The messages that result if the node changes after its first question, its second, and so on.
    std::set<std::string> messagesOfChanges(const NodeView& statement, const NodeView& node,
                                            NodeKind kind, Mode mode = PLAIN) {
        std::set<std::string> messages;
        for (std::size_t asked = 1; asked < 12; ++asked) {
            ast.setKind(node, kind);
            changeAfter(node, asked);
            try {
                effects(statement, MAY, mode, "k");
            } catch (const std::logic_error& error) {
                messages.insert(error.what());
            }
            ast.onCall = nullptr;
        }
        return messages;
    }
};

TEST_F(ChangingTree, BinaryOperationInACondition) {
    const NodeView operation = elementOr(id("a"), id("b"));
    EXPECT_THAT(
        messagesOfChanges(ifStatement(operation, {}), operation, NodeKind::BinaryOperation),
        ::testing::Contains("BinaryOperationView type is expected in the downcast argument."));
}

TEST_F(ChangingTree, MatrixInACondition) {
    const NodeView wrapped = matrix({row({elementOr(id("a"), id("b"))})});
    EXPECT_THAT(messagesOfChanges(ifStatement(wrapped, {}), wrapped, NodeKind::Matrix),
                ::testing::ElementsAre("MatrixView type is expected in the downcast argument."));
}

TEST_F(ChangingTree, IndexedTargets) {
    const NodeView call = paren(id("x"), {id("n")});
    EXPECT_THAT(
        messagesOfChanges(assign(call, number()), call, NodeKind::ParenOperation, SLICED),
        ::testing::ElementsAre("ParenOperationView type is expected in the downcast argument."));
    const NodeView braces = brace(id("x"), {id("n")});
    EXPECT_THAT(
        messagesOfChanges(assign(braces, number()), braces, NodeKind::BraceOperation, SLICED),
        ::testing::ElementsAre("BraceOperationView type is expected in the downcast argument."));
}

TEST_F(ChangingTree, SubscriptsOfATarget) {
    const NodeView subscript = id("k");
    EXPECT_THAT(
        messagesOfChanges(assign(paren(id("x"), {subscript}), number()), subscript,
                          NodeKind::Identifier, SLICED),
        ::testing::ElementsAre("IdentifierView type is expected in the downcast argument."));
    const NodeView inner = parenthesized(id("k"));
    EXPECT_THAT(messagesOfChanges(assign(paren(id("x"), {inner}), number()), inner,
                                  NodeKind::ParenthesizedExpression, SLICED),
                ::testing::ElementsAre(
                    "ParenthesizedExpressionView type is expected in the downcast argument."));
}

} // namespace
} // namespace zt::orvex::testing
