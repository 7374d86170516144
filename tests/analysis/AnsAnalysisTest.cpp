#include "analysis/AnalysisFixture.h"

#include <zt_orvex/analysis/AnsAnalysis.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace zt::orvex::testing {
namespace {

using ::testing::ThrowsMessage;

class AnsAnalysis : public AnalysisFixture {
protected:
    // The same answer for the body of a parfor and of an spmd.
    bool isRead(const Nodes& body, const std::string& name = "ans") {
        const bool inParfor = flow::isAnsPossiblyReadBeforeBeingWritten(
            parforLoop(id("k"), id("n"), body), symbol(name), nullptr);
        const bool inSpmd =
            flow::isAnsPossiblyReadBeforeBeingWritten(spmd(body), symbol(name), nullptr);
        EXPECT_EQ(inParfor, inSpmd);
        return inParfor;
    }

    NodeView readAns() { return assign(id("y"), id("ans")); }
    NodeView sum() { return expressionStatement(id("ans"), add(number(), number())); }
};

TEST_F(AnsAnalysis, EmptyBodyDoesNot) { EXPECT_FALSE(isRead({})); }

TEST_F(AnsAnalysis, BodyThatNeverMentionsAnsDoesNot) {
    EXPECT_FALSE(isRead({assign(id("x"), id("y"))}));
}

TEST_F(AnsAnalysis, ReadAtTheStartDoes) { EXPECT_TRUE(isRead({readAns()})); }

TEST_F(AnsAnalysis, ExpressionStatementWritesAnsFirst) { EXPECT_FALSE(isRead({sum(), readAns()})); }

TEST_F(AnsAnalysis, CommandWritesAnsFirst) {
    EXPECT_FALSE(isRead({command(id("ans"), id("f"), {}), readAns()}));
}

TEST_F(AnsAnalysis, ExpressionStatementThatReadsAnsDoes) {
    EXPECT_TRUE(isRead({expressionStatement(id("ans"), add(id("ans"), number()))}));
}

TEST_F(AnsAnalysis, PathAroundAnIfIsEnough) {
    EXPECT_TRUE(isRead({ifStatement(id("c"), {sum()}), readAns()}));
    EXPECT_FALSE(
        isRead({ifStatement(id("c"), {sum()}, {}, NodeView(elseClause({sum()}))), readAns()}));
}

TEST_F(AnsAnalysis, PathAroundALoopOrThroughAnErrorIsEnough) {
    EXPECT_TRUE(isRead({whileLoop(id("c"), {sum()}), readAns()}));
    EXPECT_TRUE(isRead({tryStatement({sum()}, NodeView(catchClause({}, {readAns()})))}));
    EXPECT_FALSE(isRead({returnStatement(), readAns()}));
}

TEST_F(AnsAnalysis, PartialWriteAtTheStartDoes) {
    EXPECT_TRUE(isRead({assign(paren(id("ans"), {number()}), number())}));
}

TEST_F(AnsAnalysis, WholeWriteAtTheStartDoesNot) {
    EXPECT_FALSE(isRead({assign(id("ans"), number()), readAns()}));
    EXPECT_FALSE(isRead({multiAssign({id("ans")}, number()), readAns()}));
    EXPECT_FALSE(isRead({forLoop(id("ans"), number(), {}), readAns()}));
}

TEST_F(AnsAnalysis, BareIdentifierAndImplicitCommandHaveNoEffect) {
    EXPECT_TRUE(isRead({bareIdentifier(id("ans")), readAns()}));
    EXPECT_TRUE(isRead({implicitCommand(id("ans"), {}), readAns()}));
    EXPECT_FALSE(isRead({bareIdentifier(id("ans"))}));
}

TEST_F(AnsAnalysis, SymbolOfAnotherNameIsAnOrdinaryVariable) {
    EXPECT_TRUE(isRead({assign(id("x"), id("y"))}, "y"));
    EXPECT_FALSE(isRead({bareIdentifier(id("y")), assign(id("x"), id("y"))}, "y"));
    EXPECT_FALSE(isRead({sum(), assign(id("x"), id("y"))}, "ans"));
}

TEST_F(AnsAnalysis, SymbolThatIsNotAVariableIsNotRead) {
    EXPECT_FALSE(isRead({assign(id("x"), id("sin"))}, "sin"));
}

TEST_F(AnsAnalysis, HeadOfTheConstructTakesNoPart) {
    EXPECT_FALSE(flow::isAnsPossiblyReadBeforeBeingWritten(
        parforLoop(id("k"), id("ans"), {}, {id("ans")}), symbol("ans"), nullptr));
    EXPECT_FALSE(
        flow::isAnsPossiblyReadBeforeBeingWritten(spmd({}, {id("ans")}), symbol("ans"), nullptr));
}

TEST_F(AnsAnalysis, ErrorsPassThrough) {
    const NodeView twice = readAns();
    EXPECT_THAT(
        [&] {
            isRead({twice, twice});
        },
        ThrowsMessage<std::invalid_argument>("Equation already exists for this variable"));
}

} // namespace
} // namespace zt::orvex::testing
