#include "analysis/ControlFlowFixture.h"
#include "testing/FakeAst.h"

#include <zt_orvex/ast/NodeKind.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace zt::orvex::testing {
namespace {

using ::testing::ElementsAre;

// What the control flow asks the tree, and in which order.
class ControlFlowQuestions : public ControlFlowFixture {
protected:
    /// The questions about one statement and the sizes of its ranges, without those for its kind.
    std::vector<std::string> partsAskedOf(const NodeView& statement) {
        const StatementRangeView range = block({statement});
        ast.startRecording();
        RecordedControlFlow{range};
        std::vector<std::string> parts;
        for (const Call& call : ast.calls()) {
            if (call.arguments[0] == statement.node && call.operation != Operation::getNodeKind)
                parts.push_back(nameOf(call.operation));
        }
        return parts;
    }

    std::size_t timesAskedForItsKind(const NodeView& statement) {
        const StatementRangeView range = block({statement});
        ast.startRecording();
        RecordedControlFlow{range};
        return ast.count(Operation::getNodeKind);
    }
};

TEST_F(ControlFlowQuestions, IfIsAskedForItsElseIfClausesBeforeItsElseClause) {
    EXPECT_THAT(partsAskedOf(ifStatement(id("c"), {step("A")}, {elseIfClause(id("a"), {})},
                                         NodeView(elseClause({step("B")})))),
                ElementsAre("getIfBody", "getStatementRangeSize", "getStatementRangeSize",
                            "getIfElseIfClauses", "getElseIfClauseRangeSize",
                            "getElseIfClauseRangeSize", "getIfElseClause"));
}

TEST_F(ControlFlowQuestions, BodiesOfElseIfClausesAreWalkedBeforeTheElseClauseIsAskedFor) {
    const NodeView clause = elseIfClause(id("a"), {step("A")});
    const NodeView otherwise = elseClause({step("B")});
    const StatementRangeView range = block({ifStatement(id("c"), {}, {clause}, otherwise)});
    ast.startRecording();
    RecordedControlFlow{range};
    std::vector<std::string> order;
    for (const Call& call : ast.calls()) {
        if (call.operation == Operation::getElseIfBody ||
            call.operation == Operation::getIfElseClause ||
            call.operation == Operation::getElseBody)
            order.push_back(nameOf(call.operation));
    }
    EXPECT_THAT(order, ElementsAre("getElseIfBody", "getIfElseClause", "getElseBody"));
}

TEST_F(ControlFlowQuestions, SwitchIsAskedForItsCasesBeforeItsOtherwiseClause) {
    EXPECT_THAT(partsAskedOf(switchStatement(id("x"), {caseClause(id("a"), {})},
                                             NodeView(otherwiseClause({})))),
                ElementsAre("getSwitchCases", "getCaseClauseRangeSize", "getCaseClauseRangeSize",
                            "getSwitchOtherwise"));
}

TEST_F(ControlFlowQuestions, TryIsAskedForItsBodyBeforeItsCatchClause) {
    EXPECT_THAT(
        partsAskedOf(tryStatement({step("A")}, NodeView(catchClause({}, {})))),
        ElementsAre("getTryBody", "getStatementRangeSize", "getStatementRangeSize", "getTryCatch"));
}

TEST_F(ControlFlowQuestions, HeadsAreNotAskedFor) {
    EXPECT_THAT(partsAskedOf(assign(id("x"), id("y"))), ElementsAre());
    EXPECT_THAT(partsAskedOf(forLoop(id("k"), id("n"), {})),
                ElementsAre("getForBody", "getStatementRangeSize"));
    EXPECT_THAT(partsAskedOf(whileLoop(id("c"), {})),
                ElementsAre("getWhileBody", "getStatementRangeSize"));
    EXPECT_THAT(partsAskedOf(parforLoop(id("k"), id("n"), {})),
                ElementsAre("getParforBody", "getStatementRangeSize"));
    EXPECT_THAT(partsAskedOf(spmd({}, {id("n")})),
                ElementsAre("getSpmdBody", "getStatementRangeSize"));
}

// Once to dispatch on it, and then whether it is that of a flow node; the answer changes nothing.
TEST_F(ControlFlowQuestions, KindThatIsPassedOverIsAskedForTwice) {
    std::size_t passedOver = 0;
    for (const NodeKind kind : getAllNodeKinds()) {
        // A node without parts refuses the question for a body, but no kind that is passed over is
        // asked for one.
        const NodeView node = unknown(static_cast<int>(kind));
        try {
            const std::size_t asked = timesAskedForItsKind(node);
            const bool isFlowNode = RecordedControlFlow(block({node})).nodes().size() == 3;
            EXPECT_EQ(asked, isFlowNode ? 1u : 2u) << nameOf(kind);
            if (!isFlowNode) ++passedOver;
        } catch (const std::logic_error&) {
            continue;
        }
    }
    EXPECT_EQ(passedOver, 44u);
}

TEST_F(ControlFlowQuestions, UnknownKindIsAskedForOnce) {
    for (const int kind : {0, 200, 255})
        EXPECT_EQ(timesAskedForItsKind(unknown(kind)), 1u) << kind;
}

// A loop asks its jumps for their kinds when its end is reached: which continue, then which break.
// A parallel loop asks in the other order.
TEST_F(ControlFlowQuestions, LoopAsksEachJumpTwiceForItsKind) {
    const NodeView leave = breakStatement();
    const NodeView repeat = continueStatement();
    for (const NodeView& loop : {NodeView(whileLoop(id("c"), {leave, repeat})),
                                 NodeView(parforLoop(id("k"), id("n"), {leave, repeat}))}) {
        const StatementRangeView range = block({loop});
        ast.startRecording();
        RecordedControlFlow{range};
        for (const NodeView& jump : {leave, repeat}) {
            std::size_t asked = 0;
            for (const Call& call : ast.calls()) {
                if (call.operation == Operation::getNodeKind && call.arguments[0] == jump.node)
                    ++asked;
            }
            EXPECT_EQ(asked, 3u) << label(jump);
        }
    }
}

} // namespace
} // namespace zt::orvex::testing
