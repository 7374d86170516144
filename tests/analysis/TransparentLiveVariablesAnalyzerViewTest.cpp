#include "analysis/AnalysisFixture.h"
#include "testing/FakeAst.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

namespace zt::orvex::testing {
namespace {

using Analyzer = flow::TransparentLiveVariablesAnalyzerView;
using ::testing::ThrowsMessage;

class TransparentLiveVariablesAnalyzerView : public AnalysisFixture {
protected:
    std::unique_ptr<Analyzer> analyze(const Nodes& statements, Type type = MAY) {
        return std::make_unique<Analyzer>(universe, block(statements), type, PLAIN, nullptr);
    }
};

TEST_F(TransparentLiveVariablesAnalyzerView, IsOnePointerNeitherCopiedNorMoved) {
    EXPECT_EQ(sizeof(Analyzer), sizeof(void*));
    EXPECT_FALSE(std::is_copy_constructible_v<Analyzer>);
    EXPECT_FALSE(std::is_copy_assignable_v<Analyzer>);
    EXPECT_FALSE(std::is_move_constructible_v<Analyzer>);
    EXPECT_FALSE(std::is_move_assignable_v<Analyzer>);
}

TEST_F(TransparentLiveVariablesAnalyzerView, EmptyBodyLeavesTheWholeUniverseNotLive) {
    for (const Type type : {MAY, MUST}) {
        const auto analyzer = analyze({}, type);
        EXPECT_TRUE(analyzer->getVariablesLiveAtEntry().empty());
        EXPECT_EQ(analyzer->getVariablesNotLiveAtEntry(),
                  Symbols(universe.begin(), universe.end()));
    }
}

TEST_F(TransparentLiveVariablesAnalyzerView, EmptyUniverseGivesEmptyResults) {
    universe = Universe();
    const auto analyzer = analyze({assign(id("x"), id("y")), whileLoop(id("c"), {})});
    EXPECT_TRUE(analyzer->getVariablesLiveAtEntry().empty());
    EXPECT_TRUE(analyzer->getVariablesNotLiveAtEntry().empty());
}

TEST_F(TransparentLiveVariablesAnalyzerView, ResultsSplitTheUniverseAndMayBeReadAgain) {
    const auto analyzer = analyze({assign(id("x"), add(id("y"), id("outside")))});
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(namesOf(analyzer->getVariablesLiveAtEntry()), "y");
        EXPECT_EQ(namesOf(analyzer->getVariablesNotLiveAtEntry()),
                  "a ans b c d e f g k n s sin t x z");
    }
}

TEST_F(TransparentLiveVariablesAnalyzerView, ResultsCarryTheSymbolsOfTheUniverse) {
    FakeAst other;
    universe = Universe();
    universe.add(SymbolView{symbol("y").symbol, &other});
    const auto analyzer = analyze({assign(id("x"), id("y"))});
    const Symbols live = analyzer->getVariablesLiveAtEntry();
    ASSERT_EQ(live.size(), 1u);
    EXPECT_EQ(live.begin()->view, &other);
}

TEST_F(TransparentLiveVariablesAnalyzerView, SymbolAddedToTheUniverseLaterIsNotLive) {
    const auto analyzer = analyze({assign(id("x"), add(id("y"), id("outside")))});
    // Past the first word of the set as well.
    for (int i = 0; i < 200; ++i)
        universe.add(symbol("later" + std::to_string(i)));
    universe.add(symbol("outside"));
    EXPECT_EQ(namesOf(analyzer->getVariablesLiveAtEntry()), "y");
    const Symbols notLive = analyzer->getVariablesNotLiveAtEntry();
    EXPECT_EQ(notLive.size(), universe.size() - 1);
    EXPECT_EQ(notLive.count(symbol("outside")), 1u);
}

TEST_F(TransparentLiveVariablesAnalyzerView, SubscriptVariablesAreCopied) {
    auto subscripts = std::make_unique<Symbols>(symbols("k"));
    const Analyzer analyzer(universe, block({assign(paren(id("x"), {id("k")}), number())}), MAY,
                            SLICED, *subscripts, nullptr);
    subscripts.reset();
    EXPECT_EQ(namesOf(const_cast<Analyzer&>(analyzer).getVariablesLiveAtEntry()), "k x");
}

TEST_F(TransparentLiveVariablesAnalyzerView, ShortFormHasNoSubscriptVariables) {
    const Nodes statements = {assign(paren(id("x"), {id("k")}), number())};
    Analyzer withoutAny(universe, block(statements), MAY, SLICED, nullptr);
    EXPECT_EQ(namesOf(withoutAny.getVariablesLiveAtEntry()), "k");
    Analyzer withOne(universe, block(statements), MAY, SLICED, symbols("k"), nullptr);
    EXPECT_EQ(namesOf(withOne.getVariablesLiveAtEntry()), "k x");
}

TEST_F(TransparentLiveVariablesAnalyzerView, NodePrinterMayBeEmptyAndIsNeverCalled) {
    const Nodes statements = {assign(id("x"), id("y"))};
    Analyzer without(universe, block(statements), MAY, PLAIN,
                     std::function<std::string(NodeView)>());
    int calls = 0;
    Analyzer with(universe, block(statements), MAY, PLAIN, [&](NodeView) {
        ++calls;
        return std::string();
    });
    EXPECT_EQ(without.getVariablesLiveAtEntry(), with.getVariablesLiveAtEntry());
    with.toString();
    EXPECT_EQ(calls, 0);
}

TEST_F(TransparentLiveVariablesAnalyzerView, NodePrinterIsCopiedAndKeptAsLongAsTheAnalyzer) {
    const auto held = std::make_shared<int>(0);
    {
        const Analyzer analyzer(universe, block({}), MAY, PLAIN,
                                [held](NodeView) { return std::to_string(*held); });
        EXPECT_GT(held.use_count(), 1);
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(TransparentLiveVariablesAnalyzerView, ToStringIsAFixedText) {
    const std::string text = "<description omitted in non-asserted builds>";
    EXPECT_EQ(std::as_const(*analyze({})).toString(), text);
    EXPECT_EQ(std::as_const(*analyze({assign(id("x"), id("y"))}, MUST)).toString(), text);
}

TEST_F(TransparentLiveVariablesAnalyzerView, AsksNothingAfterItsConstruction) {
    const auto analyzer = analyze({assign(id("x"), id("y")), whileLoop(id("c"), {})});
    ast.startRecording();
    analyzer->getVariablesLiveAtEntry();
    analyzer->getVariablesNotLiveAtEntry();
    analyzer->toString();
    EXPECT_TRUE(ast.calls().empty());
}

TEST_F(TransparentLiveVariablesAnalyzerView, PseudoNodesArePassedToNoOperation) {
    const StatementRangeView statements =
        block({tryStatement({assign(id("x"), id("y")), returnStatement()},
                            NodeView(catchClause(NodeView(id("e")), {breakStatement()}))),
               forLoop(id("k"), id("n"), {continueStatement()}), parforLoop(id("k"), id("n"), {})});
    ast.startRecording();
    const Analyzer analyzer(universe, statements, MUST, ANS, nullptr);
    EXPECT_EQ(ast.count(Operation::getEntryNode), 1u);
    EXPECT_EQ(ast.count(Operation::getExitNode), 1u);
    for (const Call& call : ast.calls())
        for (const std::uint64_t argument : call.arguments)
            EXPECT_TRUE(argument != FakeAst::ENTRY_NODE && argument != FakeAst::EXIT_NODE)
                << nameOf(call.operation);
}

TEST_F(TransparentLiveVariablesAnalyzerView, SizeOfARangeIsAskedAnewBeforeEachStatement) {
    const NodeView body = elseClause({assign(id("x"), id("a")), assign(id("y"), id("b"))});
    // The range shrinks to one statement as soon as that one is looked at.
    ast.onCall = [&](const Call& call) {
        if (call.operation == Operation::getAssignmentRhs)
            ast.setSize(body, Operation::getElseBody, 1);
    };
    Analyzer analyzer(universe, ElseClauseView(body).getElseBody(), MAY, PLAIN, nullptr);
    ast.onCall = nullptr;
    EXPECT_EQ(namesOf(analyzer.getVariablesLiveAtEntry()), "a");
}

TEST_F(TransparentLiveVariablesAnalyzerView, SizeOfARangeIsAskedNoOftenerThanBeforeEachStatement) {
    const StatementRangeView statements = block({emptyStatement(), emptyStatement()});
    ast.startRecording();
    const Analyzer analyzer(universe, statements, MAY, PLAIN, nullptr);
    EXPECT_EQ(ast.count(Operation::getStatementRangeSize), 3u);
}

// A tree whose ranges of statements first claim a size for which no memory would suffice.
class HugeAtFirst final : public FakeAst {
public:
    std::uint64_t getStatementRangeSize(std::uint64_t first, std::uint64_t second) const override {
        if (!std::exchange(wasAsked, true)) return std::uint64_t{1} << 62;
        return FakeAst::getStatementRangeSize(first, second);
    }

private:
    mutable bool wasAsked = false;
};

TEST_F(TransparentLiveVariablesAnalyzerView, NoMemoryIsReservedForTheSizeOfARange) {
    HugeAtFirst tree;
    const NodeView body =
        tree.add(NodeKind::ElseClause,
                 {{Operation::getElseBody, Nodes{tree.add(NodeKind::EmptyStatement, {})}}});
    Analyzer analyzer(universe, ElseClauseView(body).getElseBody(), MAY, PLAIN, nullptr);
    EXPECT_TRUE(analyzer.getVariablesLiveAtEntry().empty());
}

TEST_F(TransparentLiveVariablesAnalyzerView, ExceptionOfTheTreePassesThrough) {
    const StatementRangeView statements =
        block({forLoop(id("k"), id("n"), {ifStatement(id("c"), {assign(id("x"), id("y"))})})});
    ast.onCall = [](const Call& call) {
        if (call.operation == Operation::getAssignmentLhs) throw std::range_error("no left side");
    };
    EXPECT_THAT([&] { Analyzer(universe, statements, MAY, PLAIN, nullptr); },
                ThrowsMessage<std::range_error>("no left side"));
    // The failure leaves nothing that a second analysis would see.
    ast.onCall = nullptr;
    Analyzer analyzer(universe, statements, MAY, PLAIN, nullptr);
    EXPECT_EQ(namesOf(analyzer.getVariablesLiveAtEntry()), "c n y");
}

TEST_F(TransparentLiveVariablesAnalyzerView, NodeAtTwoPlacesIsRefused) {
    const NodeView twice = assign(id("x"), id("y"));
    const auto message =
        ThrowsMessage<std::invalid_argument>("Equation already exists for this variable");
    EXPECT_THAT([&] { analyze({twice, twice}); }, message);
    EXPECT_THAT([&] { analyze({twice, whileLoop(id("c"), {twice})}); }, message);
    EXPECT_THAT([&] { analyze({returnStatement(), twice, twice}); }, message);
    const NodeView jump = breakStatement();
    EXPECT_THAT([&] { analyze({jump, jump}); }, message);
    const NodeView clause = catchClause({}, {});
    EXPECT_THAT([&] { analyze({tryStatement({}, clause), tryStatement({}, clause)}); }, message);
    const NodeView test = caseClause(id("x"), {});
    EXPECT_THAT([&] { analyze({switchStatement(id("y"), {test, test})}); }, message);
    const NodeView condition = elseIfClause(id("x"), {});
    EXPECT_THAT([&] { analyze({ifStatement(id("y"), {}, {condition, condition})}); }, message);
}

TEST_F(TransparentLiveVariablesAnalyzerView, ExpressionAtTwoPlacesIsAccepted) {
    const NodeView shared = id("y");
    EXPECT_EQ(live({assign(id("x"), shared), assign(id("z"), shared)}), "y");
}

TEST_F(TransparentLiveVariablesAnalyzerView, EmptyElseClauseAtTwoPlacesIsAccepted) {
    const NodeView shared = elseClause({});
    EXPECT_EQ(live({ifStatement(id("a"), {}, {}, shared), ifStatement(id("b"), {}, {}, shared)}),
              "a b");
}

// A view whose entry and exit are one node. Only a range is asked of it.
class OneEndedView final : public IAstView {
public:
    explicit OneEndedView(const IAstView& of) : tree(of) {}

#define ZT_ORVEX_TEST_ONE(name)                                                                    \
    NodeView name(std::uint64_t) const override { throw std::logic_error(#name); }
#define ZT_ORVEX_TEST_MAYBE(name)                                                                  \
    boost::optional<NodeView> name(std::uint64_t) const override { throw std::logic_error(#name); }
#define ZT_ORVEX_TEST_RANGE(name, View)                                                            \
    View name(std::uint64_t) const override { throw std::logic_error(#name); }
#define ZT_ORVEX_TEST_ELEMENT(name, View)                                                          \
    NodeView name(std::uint64_t i, std::uint64_t a, std::uint64_t b) const override {              \
        return tree.name(i, a, b);                                                                 \
    }
#define ZT_ORVEX_TEST_SIZE(name, View)                                                             \
    std::uint64_t name(std::uint64_t a, std::uint64_t b) const override { return tree.name(a, b); }
#define ZT_ORVEX_TEST_NODE std::uint64_t
#define ZT_ORVEX_TEST_NO_ARGUMENT
#define ZT_ORVEX_TEST_UNSETTLED(name, arguments)                                                   \
    std::uint64_t name(ZT_ORVEX_TEST_##arguments) const override { throw std::logic_error(#name); }
#include "testing/IAstViewOperations.def"
#undef ZT_ORVEX_TEST_NODE
#undef ZT_ORVEX_TEST_NO_ARGUMENT
    bool isVariableSymbol(std::uint64_t) const override { throw std::logic_error("symbol"); }
    NodeView getEntryNode() const override { return NodeView{1, this}; }
    NodeView getExitNode() const override { return NodeView{1, &tree}; }
    BinaryOperator getBinaryOperator(std::uint64_t) const override {
        throw std::logic_error("operator");
    }
    std::u16string_view getIdentifierName(std::uint64_t) const override {
        throw std::logic_error("name");
    }
    SymbolView getIdentifierSymbol(std::uint64_t) const override {
        throw std::logic_error("symbol");
    }
    NodeKind getInputParameterKind(std::uint64_t) const override {
        throw std::logic_error("parameter");
    }
    NodeKind getNodeKind(std::uint64_t) const override { throw std::logic_error("kind"); }
    UnaryOperator getUnaryOperator(std::uint64_t) const override {
        throw std::logic_error("operator");
    }

private:
    const IAstView& tree;
};

TEST_F(TransparentLiveVariablesAnalyzerView, EqualEntryAndExitAreRefused) {
    const OneEndedView oneEnded(ast);
    StatementRangeView statements = block({assign(id("x"), id("y"))});
    statements.view = &oneEnded;
    EXPECT_THAT([&] { Analyzer(universe, statements, MAY, PLAIN, nullptr); },
                ThrowsMessage<std::invalid_argument>("Equation already exists for this variable"));
}

} // namespace
} // namespace zt::orvex::testing
