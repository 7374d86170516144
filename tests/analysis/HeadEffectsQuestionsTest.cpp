#include "analysis/AnalysisFixture.h"
#include "testing/FakeAst.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace zt::orvex::testing {
namespace {

using ::testing::ElementsAre;

// What a head is asked, and in which order.
class HeadEffectsQuestions : public AnalysisFixture {
protected:
    std::vector<std::string> asked(const NodeView& head, Mode mode = PLAIN) {
        ast.startRecording();
        effects(head, MAY, mode);
        std::vector<std::string> names;
        for (const Call& call : ast.calls())
            names.emplace_back(nameOf(call.operation));
        return names;
    }

    /// The questions about the head itself and the sizes of its ranges, without those for its kind.
    std::vector<std::string> partsAskedOf(const NodeView& head) {
        ast.startRecording();
        effects(head);
        std::vector<std::string> parts;
        for (const Call& call : ast.calls()) {
            if (call.arguments[0] == head.node && call.operation != Operation::getNodeKind)
                parts.emplace_back(nameOf(call.operation));
        }
        return parts;
    }
};

TEST_F(HeadEffectsQuestions, ReadAsksWhetherTheSymbolIsAVariableBeforeTheUniverseIsSearched) {
    const std::vector<std::string> ofARead = {"getNodeKind", "getSwitchSubject", "getNodeKind",
                                              "getIdentifierSymbol", "isVariableSymbol"};
    EXPECT_EQ(asked(switchStatement(id("x"), {})), ofARead);
    EXPECT_EQ(asked(switchStatement(id("sin"), {})), ofARead);
    EXPECT_EQ(asked(switchStatement(id("outside"), {})), ofARead);
}

TEST_F(HeadEffectsQuestions, WriteAsksForTheNameOfAVariableOfTheUniverseOnly) {
    EXPECT_THAT(asked(bareIdentifier(id("x"))),
                ElementsAre("getNodeKind", "getBareIdentifier", "getNodeKind",
                            "getIdentifierSymbol", "getIdentifierName"));
    EXPECT_THAT(
        asked(bareIdentifier(id("outside"))),
        ElementsAre("getNodeKind", "getBareIdentifier", "getNodeKind", "getIdentifierSymbol"));
}

TEST_F(HeadEffectsQuestions, WriteOfAnsAsksForTheKindOfItsStatementOnceMore) {
    EXPECT_THAT(asked(bareIdentifier(id("ans"))),
                ElementsAre("getNodeKind", "getBareIdentifier", "getNodeKind",
                            "getIdentifierSymbol", "getIdentifierName", "getNodeKind"));
}

TEST_F(HeadEffectsQuestions, ForReadsBeforeItWrites) {
    EXPECT_THAT(asked(forLoop(id("x"), id("y"), {})),
                ElementsAre("getNodeKind", "getForExpression", "getNodeKind", "getIdentifierSymbol",
                            "isVariableSymbol", "getForVariable", "getNodeKind",
                            "getIdentifierSymbol", "getIdentifierName"));
}

TEST_F(HeadEffectsQuestions, EveryHeadIsAskedForWhatItReadsBeforeWhatItWrites) {
    EXPECT_THAT(partsAskedOf(assign(id("x"), id("y"))),
                ElementsAre("getAssignmentRhs", "getAssignmentLhs"));
    EXPECT_THAT(partsAskedOf(command(id("x"), id("y"), {})),
                ElementsAre("getCommandCallee", "getCommandTarget"));
    EXPECT_THAT(partsAskedOf(expressionStatement(id("x"), id("y"))),
                ElementsAre("getExpressionStatementExpression", "getExpressionStatementTarget"));
    EXPECT_THAT(partsAskedOf(forLoop(id("x"), id("y"), {})),
                ElementsAre("getForExpression", "getForVariable"));
    EXPECT_THAT(partsAskedOf(parforLoop(id("x"), id("y"), {})),
                ElementsAre("getParforOptions", "getExpressionRangeSize", "getParforExpression",
                            "getParforVariable"));
    EXPECT_THAT(asked(multiAssign({number()}, id("y"))),
                ElementsAre("getNodeKind", "getMultiAssignmentRhs", "getNodeKind",
                            "getIdentifierSymbol", "isVariableSymbol", "getMultiAssignmentTargets",
                            "getExpressionRangeSize", "getExpressionRangeElement", "getNodeKind",
                            "getExpressionRangeSize"));
}

TEST_F(HeadEffectsQuestions, SubscriptsAreReadBeforeTheirBase) {
    // x(y) = 1
    EXPECT_THAT(asked(assign(paren(id("x"), {id("y")}), number())),
                ElementsAre("getNodeKind", "getAssignmentRhs", "getNodeKind", "getAssignmentLhs",
                            "getNodeKind", "getParenArguments", "getExpressionRangeSize",
                            "getExpressionRangeElement", "getNodeKind", "getIdentifierSymbol",
                            "isVariableSymbol", "getExpressionRangeSize", "getParenBase",
                            "getNodeKind", "getIdentifierSymbol", "getIdentifierName"));
}

TEST_F(HeadEffectsQuestions, KindThatIsPassedOverIsAskedForTwice) {
    // Once to dispatch on it, and then whether it is that of a flow node.
    for (const NodeView& head :
         {NodeView(discardedStatement()), NodeView(elseClause({})), NodeView(otherwiseClause({})),
          NodeView(id("x")), NodeView(filler()), NodeView(program({}))}) {
        EXPECT_THAT(asked(head), ElementsAre("getNodeKind", "getNodeKind")) << label(head);
    }
    for (const NodeView& head : {NodeView(breakStatement()), NodeView(tryStatement({})),
                                 NodeView(print(number())), unknown(0), unknown(200)}) {
        EXPECT_THAT(asked(head), ElementsAre("getNodeKind")) << label(head);
    }
}

TEST_F(HeadEffectsQuestions, DiscardedExpressionIsAskedForItsKindOnce) {
    EXPECT_THAT(asked(switchStatement(discardedExpression(), {})),
                ElementsAre("getNodeKind", "getSwitchSubject", "getNodeKind"));
}

// A tree whose symbols belong to another view.
class SymbolsElsewhere final : public FakeAst {
public:
    explicit SymbolsElsewhere(const IAstView& view) : viewOfSymbols(view) {}

    SymbolView getIdentifierSymbol(std::uint64_t node) const override {
        return {FakeAst::getIdentifierSymbol(node).symbol, &viewOfSymbols};
    }

private:
    const IAstView& viewOfSymbols;
};

TEST_F(HeadEffectsQuestions, SymbolsOwnViewIsAskedWhetherItIsAVariable) {
    for (const bool isVariable : {false, true}) {
        FakeAst symbolTable;
        SymbolsElsewhere tree(symbolTable);
        const NodeView identifier = tree.addIdentifier(u"v");
        const NodeView head = tree.add(NodeKind::BareIdentifierStatement,
                                       {{Operation::getBareIdentifier, identifier}});
        const NodeView reading =
            tree.add(NodeKind::WhileStatement, {{Operation::getWhileCondition, identifier}});
        // The two views disagree.
        tree.setIsVariable(u"v", !isVariable);
        symbolTable.setIsVariable(u"v", isVariable);
        universe = Universe();
        universe.add(symbolTable.symbol(u"v"));

        tree.startRecording();
        symbolTable.startRecording();
        EXPECT_EQ(effects(reading), isVariable ? "gen v" : "");
        EXPECT_EQ(tree.count(Operation::isVariableSymbol), 0u);
        EXPECT_EQ(symbolTable.count(Operation::isVariableSymbol), 1u);
        EXPECT_EQ(effects(head), "kill v");
    }
}

} // namespace
} // namespace zt::orvex::testing
