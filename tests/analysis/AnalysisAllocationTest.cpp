// A program of its own: it replaces the allocation functions of the whole program.

#include "analysis/AnalysisFixture.h"
#include "testing/AllocationCounter.h"
#include "testing/Random.h"

#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace zt::orvex::testing {
namespace {

constexpr std::size_t STATEMENTS = 1'000;
constexpr std::size_t MOST_FOR_A_STATEMENT = 8;

class AnalysisAllocations : public AnalysisFixture {
protected:
    std::string variable(std::size_t number) { return "v" + std::to_string(number % width); }

    NodeView step(std::size_t number) {
        return assign(id(variable(number)),
                      add(id(variable(number + 1)), paren(id("f"), {id(variable(number + 7))})));
    }

    // What is made once for the whole program is made here.
    AnalysisAllocations() {
        flow::TransparentLiveVariablesAnalyzerView(universe, block({step(0)}), MAY, PLAIN, nullptr);
    }

    // Counts what building, solving and destroying an analyzer over the statements takes.
    void expectFew(const char* shape, const Nodes& statements) {
        const StatementRangeView range = block(statements);
        universe = Universe();
        for (std::size_t i = 0; i < width; ++i)
            universe.add(symbol(variable(i)));
        for (const Type type : {MAY, MUST}) {
            const AllocationCounts cost = costOf([&] {
                flow::TransparentLiveVariablesAnalyzerView(universe, range, type, SLICED, nullptr);
            });
            const std::size_t taken = cost.allocations;
            EXPECT_EQ(cost.living(), 0U) << shape;
            EXPECT_LE(taken, MOST_FOR_A_STATEMENT * STATEMENTS)
                << shape << " over " << width << " variables";
            RecordProperty(std::string(shape) + "_" + std::to_string(width), std::to_string(taken));
        }
    }

    NodeView nest(std::size_t depth,
                  const std::function<NodeView(const NodeView&, std::size_t)>& wrap) {
        NodeView inner = step(0);
        for (std::size_t i = 1; i < depth; ++i)
            inner = wrap(inner, i);
        return inner;
    }

    void expectFewForEveryShape() {
        Nodes straight;
        for (std::size_t i = 0; i < STATEMENTS; ++i)
            straight.push_back(step(i));
        expectFew("straight", straight);

        Nodes branches;
        for (std::size_t i = 0; i < STATEMENTS / 4; ++i)
            branches.push_back(ifStatement(id(variable(i)), {step(i)},
                                           {elseIfClause(id(variable(i + 1)), {step(i + 2)})}));
        expectFew("branches", branches);

        Nodes loops;
        for (std::size_t i = 0; i < STATEMENTS / 4; ++i)
            loops.push_back(
                forLoop(id(variable(i)), id(variable(i + 1)),
                        {step(i), ifStatement(id(variable(i + 2)), {breakStatement()})}));
        expectFew("loops", loops);

        Nodes attempts;
        for (std::size_t i = 0; i < STATEMENTS / 4; ++i)
            attempts.push_back(tryStatement(
                {step(i)}, NodeView(catchClause(NodeView(id(variable(i))), {step(i + 1)}))));
        expectFew("attempts", attempts);

        expectFew("nested_ifs", {nest(STATEMENTS, [&](const NodeView& inner, std::size_t i) {
                      return ifStatement(id(variable(i)), {inner});
                  })});
        expectFew("nested_attempts", {nest(STATEMENTS, [&](const NodeView& inner, std::size_t) {
                      return tryStatement({inner});
                  })});
        expectFew("nested_loops", {nest(STATEMENTS / 4, [&](const NodeView& inner, std::size_t i) {
                      return whileLoop(id(variable(i)),
                                       {step(i), inner, step(i + 1),
                                        ifStatement(id(variable(i + 2)), {returnStatement()})});
                  })});
    }

    std::size_t width = 16;
};

TEST_F(AnalysisAllocations, AreEightForAStatementAtMostOverSixteenVariables) {
    width = 16;
    expectFewForEveryShape();
}

TEST_F(AnalysisAllocations, AreEightForAStatementAtMostOverManyVariables) {
    width = 256;
    expectFewForEveryShape();
}

TEST_F(AnalysisAllocations, OfAFailedAnalysisAreAllReturned) {
    const NodeView twice = step(0);
    const StatementRangeView range =
        block({step(1), tryStatement({step(2), twice}), whileLoop(id("c"), {twice})});
    const auto analyse = [&] {
        flow::TransparentLiveVariablesAnalyzerView(universe, range, MAY, PLAIN, nullptr);
    };
    EXPECT_THROW(analyse(), std::invalid_argument); // so that exceptions have been made, too
    EXPECT_EQ(costOf([&] { EXPECT_THROW(analyse(), std::invalid_argument); }).living(), 0U);
}

/// A body of assignments x = y + z over 64 variables. It keeps no nodes: a handle tells the number
/// of its statement, and in the three lowest bits which part of it the node is.
class LongBody final : public FakeAst {
public:
    static constexpr std::uint64_t VARIABLES = 64;
    enum Part : std::uint64_t { Statement, Written, Sum, Left, Right, Entry, Exit };

    explicit LongBody(std::uint64_t statementsInIt) : size(statementsInIt) {}

    StatementRangeView statements() const { return {0, 0, this}; }

    static std::uint64_t variable(std::uint64_t statement, Part part) {
        return ((statement * 8 + part) * 0x9E3779B97F4A7C15) >> 58;
    }

    NodeKind getNodeKind(std::uint64_t node) const override {
        switch (partOf(node)) {
        case Statement:
            return NodeKind::AssignmentStatement;
        case Sum:
            return NodeKind::BinaryOperation;
        default:
            return NodeKind::Identifier;
        }
    }
    NodeView getEntryNode() const override { return {Entry, this}; }
    NodeView getExitNode() const override { return {Exit, this}; }
    bool isVariableSymbol(std::uint64_t) const override { return true; }
    NodeView getAssignmentLhs(std::uint64_t node) const override { return at(node, Written); }
    NodeView getAssignmentRhs(std::uint64_t node) const override { return at(node, Sum); }
    NodeView getBinaryLhs(std::uint64_t node) const override { return at(node, Left); }
    NodeView getBinaryRhs(std::uint64_t node) const override { return at(node, Right); }
    BinaryOperator getBinaryOperator(std::uint64_t) const override { return BinaryOperator::Add; }
    std::u16string_view getIdentifierName(std::uint64_t) const override { return u"v"; }
    SymbolView getIdentifierSymbol(std::uint64_t node) const override {
        return {variable(node / 8, partOf(node)), this};
    }
    NodeView getStatementRangeElement(std::uint64_t index, std::uint64_t,
                                      std::uint64_t) const override {
        return {index * 8 + Statement, this};
    }
    std::uint64_t getStatementRangeSize(std::uint64_t, std::uint64_t) const override {
        return size;
    }

private:
    static Part partOf(std::uint64_t node) { return static_cast<Part>(node % 8); }
    NodeView at(std::uint64_t node, Part part) const { return {node / 8 * 8 + part, this}; }

    std::uint64_t size;
};

TEST(LongBody, MillionStatementsOver64VariablesFinishAndReturnTheirMemory) {
    // A sanitizer's own share of the memory would be several gigabytes.
    constexpr std::uint64_t SIZE = ZT_ORVEX_TEST_SANITIZED == 0 ? 1'000'000 : 50'000;
    const LongBody body(SIZE);
    flow::OrderedSet<SymbolView> universe;
    for (std::uint64_t i = 0; i < LongBody::VARIABLES; ++i)
        universe.add(SymbolView{i, &body});

    std::uint64_t expected = 0; // a bit for each variable, from the last statement to the first
    for (std::uint64_t i = SIZE; i-- > 0;) {
        expected &= ~(std::uint64_t{1} << LongBody::variable(i, LongBody::Written));
        expected |= std::uint64_t{1} << LongBody::variable(i, LongBody::Left);
        expected |= std::uint64_t{1} << LongBody::variable(i, LongBody::Right);
    }

    const auto liveAtEntryOf = [&](const LongBody& analysed) {
        flow::TransparentLiveVariablesAnalyzerView analyzer(universe, analysed.statements(),
                                                            flow::AnalysisTypeView::May,
                                                            flow::AnalysisModeView::Plain, nullptr);
        std::uint64_t live = 0;
        for (const SymbolView& symbol : analyzer.getVariablesLiveAtEntry())
            live |= std::uint64_t{1} << symbol.symbol;
        return live;
    };
    liveAtEntryOf(LongBody(1)); // makes what is made once for the whole program
    std::uint64_t live = 0;
    const AllocationCounts cost = costOf([&] { live = liveAtEntryOf(body); });
    EXPECT_EQ(live, expected);
    EXPECT_NE(expected, ~std::uint64_t{0}) << "some must not be live, or the test says little";
    EXPECT_EQ(cost.living(), 0U);
}

} // namespace
} // namespace zt::orvex::testing
