#include "WalkLog.h"
#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace zt::orvex::testing {
namespace {

class ForEachNodeIn : public ::testing::Test, protected TreeBuilder {
protected:
    /// The labels of the nodes in the order of the callbacks.
    std::string walk(const NodeView& root) {
        std::string labels;
        forEachNodeIn(root, [&](const NodeView& node) {
            if (!labels.empty()) labels += ' ';
            labels += label(node);
        });
        return labels;
    }

    /// Everything that the walk asks and calls.
    std::string log(const NodeView& root) {
        WalkLog log(ast);
        forEachNodeIn(root, [&](const NodeView& node) { log.visited(node); });
        ast.onCall = nullptr;
        return log.text();
    }
};

TEST_F(ForEachNodeIn, LoneIdentifierIsCalledBackOnce) { EXPECT_EQ(walk(id("x")), "x"); }

TEST_F(ForEachNodeIn, AssignmentComesBeforeItsSidesAndTheLeftSideFirst) {
    EXPECT_EQ(walk(assign(id("x"), add(id("a"), id("b")))),
              "AssignmentStatement x BinaryOperation a b");
}

TEST_F(ForEachNodeIn, IfStatementIsVisitedInSourceOrder) {
    const auto root = ifStatement(id("condition"), {id("body")},
                                  {elseIfClause(id("otherCondition"), {id("otherBody")})},
                                  elseClause({id("lastBody")}));
    EXPECT_EQ(walk(root), "IfStatement condition body ElseIfClause otherCondition otherBody "
                          "ElseClause lastBody");
}

TEST_F(ForEachNodeIn, PassesTheViewsOfTheTree) {
    const auto left = id("a");
    const auto right = id("b");
    const NodeView root = add(left, right);
    std::vector<NodeView> visited;
    forEachNodeIn(root, [&](NodeView node) {
        EXPECT_EQ(node.view, &ast);
        visited.push_back(node);
    });
    EXPECT_EQ(visited, (std::vector<NodeView>{root, left, right}));
}

TEST_F(ForEachNodeIn, MatrixOfTwoEmptyRowsIsAskedOnlySixOperations) {
    EXPECT_EQ(
        log(matrix({row({}), row({})})),
        "Matrix! getMatrixRows # @0 Row! getRowExpressions # # @1 Row! getRowExpressions # #");
    const auto root = matrix({row({}), row({})});
    ast.startRecording();
    walk(root);
    const std::size_t six =
        ast.count(Operation::getNodeKind) + ast.count(Operation::getMatrixRows) +
        ast.count(Operation::getRowRangeSize) + ast.count(Operation::getRowRangeElement) +
        ast.count(Operation::getRowExpressions) + ast.count(Operation::getExpressionRangeSize);
    EXPECT_EQ(six, ast.calls().size());
    EXPECT_EQ(six, 3U + 1 + 3 + 2 + 2 + 2);
}

TEST_F(ForEachNodeIn, EmptyRangeIsAskedNoElement) {
    EXPECT_EQ(log(program({})), "Program! getProgramNodes #");
}

// InputParameter

TEST_F(ForEachNodeIn, InputParameterVisitsTheIdentifierThatItHolds) {
    EXPECT_EQ(log(inputParameter(id("x"))),
              "InputParameter! getInputParameterKind getInputParameterIdentifier x!");
}

TEST_F(ForEachNodeIn, InputParameterVisitsTheIgnoredArgumentThatItHolds) {
    EXPECT_EQ(log(inputParameter(ignoredArgument())),
              "InputParameter! getInputParameterKind getInputParameterIgnored IgnoredArgument!");
}

TEST_F(ForEachNodeIn, InputParameterOfAnyOtherKindHasNoChild) {
    for (int kind = 0; kind <= 255; ++kind) {
        const auto held = static_cast<NodeKind>(kind);
        if (held == NodeKind::Identifier || held == NodeKind::IgnoredArgument) continue;
        EXPECT_EQ(log(inputParameterThatSays(held, id("x"), ignoredArgument())),
                  "InputParameter! getInputParameterKind");
    }
}

TEST_F(ForEachNodeIn, InputParameterWhoseChildIsMissingHasNoChild) {
    EXPECT_EQ(log(inputParameterThatSays(NodeKind::Identifier, {}, ignoredArgument())),
              "InputParameter! getInputParameterKind getInputParameterIdentifier");
    EXPECT_EQ(log(inputParameterThatSays(NodeKind::IgnoredArgument, id("x"), {})),
              "InputParameter! getInputParameterKind getInputParameterIgnored");
}

// Trees that change their answers

TEST_F(ForEachNodeIn, RangeThatShrinksDuringTheWalkEndsEarly) {
    const auto root = program({id("a"), id("b"), id("c")});
    WalkLog log(ast);
    forEachNodeIn(root, [&](const NodeView& node) {
        log.visited(node);
        if (label(node) == "b") ast.setSize(root, Operation::getProgramNodes, 1);
    });
    EXPECT_EQ(log.text(), "Program! getProgramNodes # @0 a! # @1 b! #");
}

TEST_F(ForEachNodeIn, RangeThatGrowsDuringTheWalkIsVisitedToItsNewEnd) {
    const auto root = program({id("a"), id("b"), id("c")});
    ast.setSize(root, Operation::getProgramNodes, 1);
    std::string labels;
    forEachNodeIn(root, [&](const NodeView& node) {
        labels += label(node) + ' ';
        if (label(node) == "a") ast.setSize(root, Operation::getProgramNodes, 3);
    });
    EXPECT_EQ(labels, "Program a b c ");
}

TEST_F(ForEachNodeIn, OptionalChildThatIsGoneWhenAskedAgainIsSkipped) {
    const auto root = colonOperation(id("start"), id("step"), id("stop"));
    int askings = 0;
    ast.onCall = [&](const Call& call) {
        if (call.operation != Operation::getColonStep) return;
        if (++askings == 2) ast.setSize(root, call.operation, 0);
    };
    EXPECT_EQ(walk(root), "ColonOperation start stop");
    EXPECT_EQ(askings, 2);
}

// Unknown kinds

TEST_F(ForEachNodeIn, RootOfUnknownKindIsNotCalledBack) {
    EXPECT_EQ(log(unknown(0)), "Invalid");
    for (const int kind : {127, 128, 200, 255})
        EXPECT_EQ(log(unknown(kind)), "unknown");
}

TEST_F(ForEachNodeIn, ElementOfUnknownKindIsSkippedAndTheNextIsVisited) {
    EXPECT_EQ(walk(row({id("a"), unknown(0), id("b"), unknown(200), id("c")})), "Row a b c");
}

TEST_F(ForEachNodeIn, SubtreeBelowUnknownKindIsNotEntered) {
    const auto inner = add(id("a"), id("b"));
    const auto root = assign(inner, id("c"));
    ast.setKind(inner, static_cast<NodeKind>(200));
    EXPECT_EQ(log(root), "AssignmentStatement! getAssignmentLhs unknown getAssignmentRhs c!");
}

// The callback

TEST_F(ForEachNodeIn, EmptyCallbackThrowsAtAValidRootBeforeAnyChildIsAsked) {
    const auto root = add(id("a"), id("b"));
    ast.startRecording();
    EXPECT_THROW(forEachNodeIn(root, {}), std::bad_function_call);
    ASSERT_EQ(ast.calls().size(), 1U);
    EXPECT_EQ(ast.calls()[0].operation, Operation::getNodeKind);
}

TEST_F(ForEachNodeIn, EmptyCallbackIsNotAnErrorAtARootOfUnknownKind) {
    EXPECT_NO_THROW(forEachNodeIn(unknown(0), {}));
    EXPECT_NO_THROW(forEachNodeIn(unknown(200), nullptr));
}

TEST_F(ForEachNodeIn, ExceptionOfTheCallbackStopsTheWalkAndPropagates) {
    const auto root = row({id("a"), id("b"), id("c")});
    std::string labels;
    try {
        forEachNodeIn(root, [&](const NodeView& node) {
            labels += label(node) + ' ';
            if (label(node) == "b") throw 42;
        });
        FAIL() << "nothing was thrown";
    } catch (int thrown) {
        EXPECT_EQ(thrown, 42);
    }
    EXPECT_EQ(labels, "Row a b ");
}

TEST_F(ForEachNodeIn, ExceptionOfTheTreePropagatesUnchangedFromEveryOperation) {
    struct Refusal {
        Operation operation;
    };
    const auto root = switchStatement(
        id("x"), {caseClause(id("y"), {ifStatement(id("z"), {}, {}, elseClause({}))})},
        otherwiseClause({unknown(0)}));
    ast.startRecording();
    walk(root);
    const std::size_t callCount = ast.calls().size();
    EXPECT_GT(callCount, 20U);
    for (std::size_t failing = 0; failing < callCount; ++failing) {
        std::size_t calls = 0;
        ast.onCall = [&](const Call& call) {
            if (calls++ == failing) throw Refusal{call.operation};
        };
        try {
            walk(root);
            FAIL() << "call " << failing << " did not throw";
        } catch (const Refusal& refusal) {
            EXPECT_EQ(refusal.operation, ast.calls().back().operation);
        }
        EXPECT_EQ(calls, failing + 1) << "the tree was asked again after the exception";
    }
}

TEST_F(ForEachNodeIn, StatefulCallableIsNotCopied) {
    struct Counter {
        int calls = 0;
        int* copies;
        explicit Counter(int* copiesToCount) : copies(copiesToCount) {}
        Counter(const Counter& other) : calls(other.calls), copies(other.copies) { ++*copies; }
        void operator()(const NodeView&) { ++calls; }
    };
    int copies = 0;
    const std::function<void(NodeView)> callback = Counter(&copies);
    const int copiesBefore = copies;
    const auto root = row({id("a"), minus(id("b"))});
    forEachNodeIn(root, callback);
    forEachNodeIn(root, callback);
    EXPECT_EQ(copies, copiesBefore);
    EXPECT_EQ(callback.target<Counter>()->calls, 8);
}

TEST_F(ForEachNodeIn, CallbackMayStartAWalkOfItsOwn) {
    const auto root = row({minus(id("a")), minus(id("b"))});
    std::string labels;
    forEachNodeIn(root, [&](const NodeView& node) { labels += '(' + walk(node) + ')'; });
    EXPECT_EQ(labels, "(Row UnaryOperation a UnaryOperation b)(UnaryOperation a)(a)"
                      "(UnaryOperation b)(b)");
}

TEST_F(ForEachNodeIn, EveryNodeIsAskedItsKindOnce) {
    const auto root = program({assign(id("x"), id("y")), matrix({row({id("z")})}), unknown(99)});
    ast.startRecording();
    walk(root);
    EXPECT_EQ(ast.count(Operation::getNodeKind), ast.size());
}

TEST_F(ForEachNodeIn, ChildrenAreAskedThroughTheirOwnView) {
    TreeBuilder other;
    const auto root = add(id("a"), other.minus(other.id("b")));
    std::string labels;
    forEachNodeIn(root, [&](const NodeView& node) {
        labels += label(node) + (node.view == &ast ? " here " : " there ");
    });
    EXPECT_EQ(labels, "BinaryOperation here a here UnaryOperation there b there ");
}

TEST_F(ForEachNodeIn, RangesAreAskedThroughTheirOwnView) {
    class Borrower : public FakeAst {
    public:
        StatementRangeView range{};
        StatementRangeView getElseBody(std::uint64_t) const override { return range; }
    };
    Borrower borrower;
    borrower.range = block({id("s1"), id("s2")});
    const auto root = borrower.add(NodeKind::ElseClause, {});
    EXPECT_EQ(walk(root), "ElseClause s1 s2");
}

TEST_F(ForEachNodeIn, WalksOfOneTreeMayRunAtOnce) {
    Nodes statements;
    for (int i = 0; i < 200; ++i)
        statements.push_back(assign(id("x"), add(id("a"), id("b"))));
    const auto root = program(statements);
    std::vector<std::size_t> counts(4);
    std::vector<std::thread> threads;
    for (std::size_t& count : counts) {
        threads.emplace_back([&] { forEachNodeIn(root, [&](const NodeView&) { ++count; }); });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(counts, std::vector<std::size_t>(4, 1001));
}

} // namespace
} // namespace zt::orvex::testing
