#include "ast/AstViewDispatcher.h"
#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace zt::orvex::internal {
namespace {

using testing::TreeBuilder;

/// Covers all kinds, with a template in place of a handler for each.
struct Complete {
    int calls = 0;
    NodeKind kind = NodeKind::Invalid;
    NodeView seen{};

    template <typename View>
    void visit(const View& view) {
        static_assert(!std::is_same_v<View, NodeView>, "a handler gets the typed view");
        ++calls;
        kind = View::KIND;
        seen = view;
    }
};

TEST(AstViewDispatcher, EachKindReachesTheHandlerOfItsView) {
    for (const NodeKind kind : getAllNodeKinds()) {
        TreeBuilder t;
        const NodeView node = t.unknown(static_cast<int>(kind));
        Complete visitor;
        dispatch(visitor, node);
        EXPECT_EQ(visitor.calls, 1);
        EXPECT_EQ(visitor.kind, kind);
        EXPECT_EQ(visitor.seen.node, node.node);
        EXPECT_EQ(visitor.seen.view, node.view);
    }
}

TEST(AstViewDispatcher, AsksTheKindOnceAndNothingElse) {
    TreeBuilder t;
    const NodeView node = t.whileLoop(t.id("c"), {});
    t.ast.startRecording();
    Complete visitor;
    dispatch(visitor, node);
    ASSERT_EQ(t.ast.calls().size(), 1U);
    EXPECT_EQ(t.ast.calls()[0].operation, testing::Operation::getNodeKind);
}

/// Ignores most kinds.
struct Partial {
    std::string log;

    void visit(const IfStatementView&, int number) { log += "if" + std::to_string(number); }
    void visit(const NodeView& node, int number) {
        log += "other" + testing::label(node) + std::to_string(number);
    }
};

TEST(AstViewDispatcher, KindsWithoutAHandlerReachTheFallback) {
    TreeBuilder t;
    Partial visitor;
    dispatch(visitor, t.ifStatement(t.id("c"), {}), 1);
    dispatch(visitor, t.id("x"), 2);
    EXPECT_EQ(visitor.log, "if1otherx2");
}

TEST(AstViewDispatcher, UnknownKindReachesNoHandlerAndNoFallback) {
    TreeBuilder t;
    Partial visitor;
    for (const int kind : {0, 127, 128, 200, 254, 255}) {
        EXPECT_NO_THROW(dispatch(visitor, t.unknown(kind), 1));
    }
    EXPECT_EQ(visitor.log, "");
}

struct Forwarding {
    int* changed = nullptr;
    std::unique_ptr<int> taken;

    void visit(const NodeView&, int& number, std::unique_ptr<int> pointer) {
        changed = &number;
        taken = std::move(pointer);
    }
};

TEST(AstViewDispatcher, FurtherArgumentsAreForwarded) {
    TreeBuilder t;
    Forwarding visitor;
    int number = 0;
    dispatch(visitor, t.id("x"), number, std::make_unique<int>(7));
    EXPECT_EQ(visitor.changed, &number);
    ASSERT_NE(visitor.taken, nullptr);
    EXPECT_EQ(*visitor.taken, 7);
}

TEST(AstViewDispatcher, ArgumentsForAnUnknownKindAreNotTakenFromTheCaller) {
    TreeBuilder t;
    Forwarding visitor;
    int number = 0;
    auto pointer = std::make_unique<int>(7);
    dispatch(visitor, t.unknown(0), number, std::move(pointer));
    EXPECT_NE(pointer, nullptr); // NOLINT: nobody took it.
}

struct ConstVisitor {
    int& calls;
    void visit(const NodeView&) const { ++calls; }
};

TEST(AstViewDispatcher, TakesAConstVisitor) {
    TreeBuilder t;
    int calls = 0;
    const ConstVisitor visitor{calls};
    dispatch(visitor, t.id("x"));
    EXPECT_EQ(calls, 1);
}

struct Throwing {
    void visit(const NodeView&) { throw 42; }
};

TEST(AstViewDispatcher, ExceptionOfAHandlerPropagates) {
    TreeBuilder t;
    Throwing visitor;
    EXPECT_THROW(dispatch(visitor, t.id("x")), int);
}

TEST(UnhandledKind, IsComposedWithTheNumberInQuotes) {
    EXPECT_EQ(composeUnhandledKind(NodeKind::Invalid),
              "Unhandled node kind \"0\" encountered in AstViewDispatcher.");
    EXPECT_EQ(composeUnhandledKind(static_cast<NodeKind>(200)),
              "Unhandled node kind \"200\" encountered in AstViewDispatcher.");
    EXPECT_EQ(composeUnhandledKind(static_cast<NodeKind>(255)),
              "Unhandled node kind \"255\" encountered in AstViewDispatcher.");
}

TEST(UnhandledKind, IsDroppedSilently) {
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    dropUnhandledKind(NodeKind::Invalid);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

} // namespace
} // namespace zt::orvex::internal
