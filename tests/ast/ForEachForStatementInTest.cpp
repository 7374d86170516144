#include "ast/ForEachForStatementIn.h"
#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <unordered_set>

namespace zt::orvex::testing {
namespace {

class ForEachForStatementIn : public ::testing::Test, protected TreeBuilder {
protected:
    /// The loop variables of the loops in the order of the callbacks.
    std::string loops(const NodeView& root) {
        std::string labels;
        internal::forEachForStatementIn(root, [&](const ForStatementView& loop) {
            EXPECT_EQ(loop.getKind(), NodeKind::ForStatement);
            labels += label(loop.getForVariable());
        });
        return labels;
    }
};

TEST_F(ForEachForStatementIn, ParforStatementIsNotReportedAndTheLoopInItIs) {
    EXPECT_EQ(loops(parforLoop(id("p"), id("n"), {forLoop(id("i"), id("m"), {})})), "i");
}

TEST_F(ForEachForStatementIn, InnerLoopComesAfterTheOuterLoop) {
    const auto inner = forLoop(id("j"), id("m"), {forLoop(id("k"), id("l"), {})});
    EXPECT_EQ(loops(forLoop(id("i"), id("n"), {inner, forLoop(id("o"), id("q"), {})})), "ijko");
}

TEST_F(ForEachForStatementIn, LoopsAreFoundInNodesOfManyKinds) {
    const auto loop = [&](const char* variable) { return forLoop(id(variable), id("n"), {}); };
    const auto root = program(
        {ifStatement(id("c"), {loop("a")}, {elseIfClause(id("d"), {loop("b")})},
                     elseClause({loop("c")})),
         switchStatement(id("s"), {caseClause(id("t"), {loop("d")})}, otherwiseClause({loop("e")})),
         tryStatement({loop("f")}, catchClause({}, {loop("g")})), whileLoop(id("c"), {loop("h")}),
         spmd({loop("i")}), print(loop("j")),
         functionDefinition({}, id("f"), {}, filler(), {}, {loop("k")})});
    EXPECT_EQ(loops(root), "abcdefghijk");
}

TEST_F(ForEachForStatementIn, TreeWithoutLoopsCallsNothing) {
    EXPECT_EQ(loops(whileLoop(id("c"), {breakStatement()})), "");
    EXPECT_EQ(loops(unknown(0)), "");
    EXPECT_EQ(loops(unknown(200)), "");
}

TEST_F(ForEachForStatementIn, LoopBelowUnknownKindIsNotFound) {
    const auto hidden = whileLoop(id("c"), {forLoop(id("i"), id("n"), {})});
    const auto root = program({hidden, forLoop(id("j"), id("n"), {})});
    ast.setKind(hidden, NodeKind::Invalid);
    EXPECT_EQ(loops(root), "j");
}

TEST_F(ForEachForStatementIn, EmptyCallbackThrowsAtTheFirstLoopOnly) {
    EXPECT_NO_THROW(internal::forEachForStatementIn(parforLoop(id("p"), id("n"), {}), {}));
    EXPECT_NO_THROW(internal::forEachForStatementIn(unknown(0), {}));
    const auto root = row({id("a"), forLoop(id("i"), id("n"), {})});
    ast.startRecording();
    EXPECT_THROW(internal::forEachForStatementIn(root, {}), std::bad_function_call);
    EXPECT_EQ(ast.count(Operation::getNodeKind), 3U);
    EXPECT_EQ(ast.count(Operation::getForVariable), 0U);
}

TEST_F(ForEachForStatementIn, ExceptionOfTheCallbackStopsTheWalkAndPropagates) {
    const auto root = row({forLoop(id("i"), id("n"), {}), forLoop(id("j"), id("n"), {})});
    int calls = 0;
    EXPECT_THROW(internal::forEachForStatementIn(root,
                                                 [&](const ForStatementView&) {
                                                     ++calls;
                                                     throw std::string("enough");
                                                 }),
                 std::string);
    EXPECT_EQ(calls, 1);
}

TEST_F(ForEachForStatementIn, StatefulCallableIsNotCopied) {
    struct Counter {
        int calls = 0;
        int* copies;
        explicit Counter(int* copiesToCount) : copies(copiesToCount) {}
        Counter(const Counter& other) : calls(other.calls), copies(other.copies) { ++*copies; }
        void operator()(const ForStatementView&) { ++calls; }
    };
    int copies = 0;
    const std::function<void(ForStatementView)> callback = Counter(&copies);
    const int copiesBefore = copies;
    const auto root = forLoop(id("i"), id("n"), {forLoop(id("j"), id("m"), {})});
    internal::forEachForStatementIn(root, callback);
    internal::forEachForStatementIn(root, callback);
    EXPECT_EQ(copies, copiesBefore);
    EXPECT_EQ(callback.target<Counter>()->calls, 4);
}

TEST_F(ForEachForStatementIn, CollectsLoopVariables) {
    const auto root = parforLoop(id("p"), id("n"),
                                 {forLoop(id("i"), id("m"), {}), forLoop(id("j"), id("m"), {}),
                                  forLoop(id("i"), id("m"), {})});
    std::unordered_set<SymbolView> variables;
    internal::forEachForStatementIn(root, [&](const ForStatementView& loop) {
        variables.insert(IdentifierView(loop.getForVariable()).getIdentifierSymbol());
    });
    EXPECT_EQ(variables, (std::unordered_set<SymbolView>{symbol("i"), symbol("j")}));
}

} // namespace
} // namespace zt::orvex::testing
