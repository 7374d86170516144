#include "analysis/AnalysisFixture.h"
#include "testing/FakeAst.h"

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/analysis/AnsAnalysis.h>
#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <unordered_set>

namespace zt::orvex::testing {
namespace {

using Analyzer = flow::TransparentLiveVariablesAnalyzerView;
using ::testing::ThrowsMessage;

// Settings

TEST(AnalysisSettings, ValuesArePartOfTheInterface) {
    using Type = flow::AnalysisTypeView;
    using Mode = flow::AnalysisModeView;
    EXPECT_EQ(static_cast<std::uint32_t>(Type::May), 0u);
    EXPECT_EQ(static_cast<std::uint32_t>(Type::Must), 1u);
    EXPECT_EQ(static_cast<std::uint32_t>(Mode::Plain), 0u);
    EXPECT_EQ(static_cast<std::uint32_t>(Mode::Sliced), 1u);
    EXPECT_EQ(static_cast<std::uint32_t>(Mode::Ans), 2u);
    EXPECT_EQ(sizeof(Type), 4u);
    EXPECT_EQ(sizeof(Mode), 4u);
}

// The analyzer

class AnalyzerTest : public AnalysisFixture {
protected:
    std::unique_ptr<Analyzer> analyze(const Nodes& statements, Type type = MAY) {
        return std::make_unique<Analyzer>(universe, block(statements), type, PLAIN, nullptr);
    }
};

TEST_F(AnalyzerTest, IsOnePointerNeitherCopiedNorMoved) {
    EXPECT_EQ(sizeof(Analyzer), sizeof(void*));
    EXPECT_FALSE(std::is_copy_constructible_v<Analyzer>);
    EXPECT_FALSE(std::is_copy_assignable_v<Analyzer>);
    EXPECT_FALSE(std::is_move_constructible_v<Analyzer>);
    EXPECT_FALSE(std::is_move_assignable_v<Analyzer>);
}

TEST_F(AnalyzerTest, EmptyBodyLeavesTheWholeUniverseNotLive) {
    for (const Type type : {MAY, MUST}) {
        const auto analyzer = analyze({}, type);
        EXPECT_TRUE(analyzer->getVariablesLiveAtEntry().empty());
        EXPECT_EQ(analyzer->getVariablesNotLiveAtEntry(),
                  Symbols(universe.begin(), universe.end()));
    }
}

TEST_F(AnalyzerTest, EmptyUniverseGivesEmptyResults) {
    universe = Universe();
    const auto analyzer = analyze({assign(id("x"), id("y")), whileLoop(id("c"), {})});
    EXPECT_TRUE(analyzer->getVariablesLiveAtEntry().empty());
    EXPECT_TRUE(analyzer->getVariablesNotLiveAtEntry().empty());
}

TEST_F(AnalyzerTest, ResultsSplitTheUniverseAndMayBeReadAgain) {
    const auto analyzer = analyze({assign(id("x"), add(id("y"), id("outside")))});
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(namesOf(analyzer->getVariablesLiveAtEntry()), "y");
        EXPECT_EQ(namesOf(analyzer->getVariablesNotLiveAtEntry()),
                  "a ans b c d e f g k n s sin t x z");
    }
}

TEST_F(AnalyzerTest, ResultsCarryTheSymbolsOfTheUniverse) {
    FakeAst other;
    universe = Universe();
    universe.add(SymbolView{symbol("y").symbol, &other});
    const auto analyzer = analyze({assign(id("x"), id("y"))});
    const Symbols live = analyzer->getVariablesLiveAtEntry();
    ASSERT_EQ(live.size(), 1u);
    EXPECT_EQ(live.begin()->view, &other);
}

TEST_F(AnalyzerTest, SymbolAddedToTheUniverseLaterIsNotLive) {
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

TEST_F(AnalyzerTest, SubscriptVariablesAreCopied) {
    auto subscripts = std::make_unique<Symbols>(symbols("k"));
    const Analyzer analyzer(universe, block({assign(paren(id("x"), {id("k")}), number())}), MAY,
                            SLICED, *subscripts, nullptr);
    subscripts.reset();
    EXPECT_EQ(namesOf(const_cast<Analyzer&>(analyzer).getVariablesLiveAtEntry()), "k x");
}

TEST_F(AnalyzerTest, ShortFormHasNoSubscriptVariables) {
    const Nodes statements = {assign(paren(id("x"), {id("k")}), number())};
    Analyzer withoutAny(universe, block(statements), MAY, SLICED, nullptr);
    EXPECT_EQ(namesOf(withoutAny.getVariablesLiveAtEntry()), "k");
    Analyzer withOne(universe, block(statements), MAY, SLICED, symbols("k"), nullptr);
    EXPECT_EQ(namesOf(withOne.getVariablesLiveAtEntry()), "k x");
}

TEST_F(AnalyzerTest, NodePrinterMayBeEmptyAndIsNeverCalled) {
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

TEST_F(AnalyzerTest, NodePrinterIsCopiedAndKeptAsLongAsTheAnalyzer) {
    const auto held = std::make_shared<int>(0);
    {
        const Analyzer analyzer(universe, block({}), MAY, PLAIN,
                                [held](NodeView) { return std::to_string(*held); });
        EXPECT_GT(held.use_count(), 1);
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(AnalyzerTest, ToStringIsAFixedText) {
    const std::string text = "<description omitted in non-asserted builds>";
    EXPECT_EQ(std::as_const(*analyze({})).toString(), text);
    EXPECT_EQ(std::as_const(*analyze({assign(id("x"), id("y"))}, MUST)).toString(), text);
}

TEST_F(AnalyzerTest, AsksNothingAfterItsConstruction) {
    const auto analyzer = analyze({assign(id("x"), id("y")), whileLoop(id("c"), {})});
    ast.startRecording();
    analyzer->getVariablesLiveAtEntry();
    analyzer->getVariablesNotLiveAtEntry();
    analyzer->toString();
    EXPECT_TRUE(ast.calls().empty());
}

TEST_F(AnalyzerTest, PseudoNodesArePassedToNoOperation) {
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

TEST_F(AnalyzerTest, SizeOfARangeIsAskedAnewBeforeEachStatement) {
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

TEST_F(AnalyzerTest, ExceptionOfTheTreePassesThrough) {
    const StatementRangeView statements =
        block({forLoop(id("k"), id("n"), {ifStatement(id("c"), {assign(id("x"), id("y"))})})});
    ast.onCall = [](const Call& call) {
        if (call.operation == Operation::getAssignmentLhs) throw std::range_error("no left side");
    };
    EXPECT_THAT([&] { Analyzer(universe, statements, MAY, PLAIN, nullptr); },
                ThrowsMessage<std::range_error>("no left side"));
    // Nothing of the failure stays behind.
    ast.onCall = nullptr;
    Analyzer analyzer(universe, statements, MAY, PLAIN, nullptr);
    EXPECT_EQ(namesOf(analyzer.getVariablesLiveAtEntry()), "c n y");
}

TEST_F(AnalyzerTest, NodeAtTwoPlacesIsRefused) {
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

TEST_F(AnalyzerTest, ExpressionAtTwoPlacesIsNoMistake) {
    const NodeView shared = id("y");
    EXPECT_EQ(live({assign(id("x"), shared), assign(id("z"), shared)}), "y");
}

TEST_F(AnalyzerTest, ElseClauseAtTwoPlacesIsNoMistakeWhileItIsEmpty) {
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

TEST_F(AnalyzerTest, EqualEntryAndExitAreRefused) {
    const OneEndedView oneEnded(ast);
    StatementRangeView statements = block({assign(id("x"), id("y"))});
    statements.view = &oneEnded;
    EXPECT_THAT([&] { Analyzer(universe, statements, MAY, PLAIN, nullptr); },
                ThrowsMessage<std::invalid_argument>("Equation already exists for this variable"));
}

// What is live

class LiveVariables : public AnalysisFixture {};

TEST_F(LiveVariables, VariableReadAndWrittenByOneStatementIsLive) {
    // x = x + 1
    EXPECT_EQ(live({assign(id("x"), add(id("x"), number()))}, MAY), "x");
    EXPECT_EQ(live({assign(id("x"), add(id("x"), number()))}, MUST), "x");
}

TEST_F(LiveVariables, ReadBehindAWriteIsNotLive) {
    EXPECT_EQ(live({assign(id("x"), number()), assign(id("y"), id("x"))}), "");
}

TEST_F(LiveVariables, NothingIsLiveAtTheEndOfTheRange) {
    EXPECT_EQ(live({assign(id("x"), number())}), "");
}

TEST_F(LiveVariables, VariableReadBehindALoopIsLiveUnderMayOnly) {
    // for k = 1:3, a = 1; end, y = x;
    const auto body = [&] {
        return Nodes{
            forLoop(id("k"), colonOperation(number(), {}, number()), {assign(id("a"), number())}),
            assign(id("y"), id("x"))};
    };
    EXPECT_EQ(live(body(), MUST), "");
    EXPECT_EQ(live(body(), MAY), "x");
}

TEST_F(LiveVariables, VariableReadBehindAParforIsLiveUnderMustAsWell) {
    const Nodes body = {parforLoop(id("k"), number(), {assign(id("a"), number())}),
                        assign(id("y"), id("x"))};
    EXPECT_EQ(live(body, MUST), "x");
}

TEST_F(LiveVariables, VariableReadByTheHeadOfALoopIsLiveUnderMust) {
    EXPECT_EQ(live({whileLoop(id("c"), {assign(id("c"), number())})}, MUST), "c");
}

TEST_F(LiveVariables, LoopVariableReadBehindTheLoopIsNotLiveBeforeIt) {
    EXPECT_EQ(live({forLoop(id("k"), id("n"), {}), assign(id("y"), id("k"))}), "n");
}

TEST_F(LiveVariables, LoopVariableOfANestedParforReadBehindItIsNotLiveBeforeIt) {
    EXPECT_EQ(live({parforLoop(id("k"), id("n"), {}), assign(id("y"), id("k"))}), "n");
}

TEST_F(LiveVariables, BodyOfALoopReadsWhatItWroteTheTimeBefore) {
    // while c, y = x; x = 1; end
    EXPECT_EQ(live({whileLoop(id("c"), {assign(id("y"), id("x")), assign(id("x"), number())})}),
              "c x");
}

TEST_F(LiveVariables, ContinueInANestedParforLeadsToTheReadBehindIt) {
    // parfor k = n, if c, continue; end, x = 1; end, y = x;
    const Nodes body = {
        parforLoop(id("k"), id("n"),
                   {ifStatement(id("c"), {continueStatement()}), assign(id("x"), number())}),
        assign(id("y"), id("x"))};
    EXPECT_EQ(live(body, MAY), "c n x");
    EXPECT_EQ(live(body, MUST), "n");
}

TEST_F(LiveVariables, ReadOnOneBranchIsLiveUnderMayOnly) {
    const Nodes body = {ifStatement(id("c"), {assign(id("y"), id("x"))})};
    EXPECT_EQ(live(body, MAY), "c x");
    EXPECT_EQ(live(body, MUST), "c");
}

TEST_F(LiveVariables, ReadOnEveryBranchIsLiveUnderMust) {
    const Nodes body = {ifStatement(id("c"), {assign(id("y"), id("x"))}, {},
                                    NodeView(elseClause({assign(id("z"), id("x"))})))};
    EXPECT_EQ(live(body, MUST), "c x");
}

TEST_F(LiveVariables, ConditionOfAnElseIfIsReadOnSomePathsOnly) {
    const Nodes body = {ifStatement(id("a"), {}, {elseIfClause(id("b"), {})})};
    EXPECT_EQ(live(body, MAY), "a b");
    EXPECT_EQ(live(body, MUST), "a");
}

TEST_F(LiveVariables, FirstCaseIsAlwaysReadAndLaterOnesAreNot) {
    const Nodes body = {
        switchStatement(id("x"), {caseClause(id("a"), {}), caseClause(id("b"), {})})};
    EXPECT_EQ(live(body, MAY), "a b x");
    EXPECT_EQ(live(body, MUST), "a x");
}

TEST_F(LiveVariables, WriteInATryBodyMayFailBeforeItHappens) {
    // try, x = 1; catch, y = x; end
    const Nodes body = {tryStatement({assign(id("x"), number())},
                                     NodeView(catchClause({}, {assign(id("y"), id("x"))})))};
    EXPECT_EQ(live(body, MAY), "x");
    EXPECT_EQ(live(body, MUST), "");
}

TEST_F(LiveVariables, CatchIdentifierIsWritten) {
    // try, y = 1; catch e, z = e; end
    EXPECT_EQ(
        live({tryStatement({assign(id("y"), number())},
                           NodeView(catchClause(NodeView(id("e")), {assign(id("z"), id("e"))})))}),
        "");
}

TEST_F(LiveVariables, CodeBehindAJumpDoesNotCount) {
    EXPECT_EQ(live({assign(id("x"), id("a")), returnStatement(), assign(id("y"), id("b"))}), "a");
}

TEST_F(LiveVariables, OptionsOfANestedParforAndSpmdAreRead) {
    EXPECT_EQ(live({parforLoop(id("k"), id("n"), {}, {id("a")}), spmd({}, {id("b")})}), "a b n");
}

TEST_F(LiveVariables, DeclarationsNeitherReadNorWrite) {
    EXPECT_EQ(
        live({global({id("x")}), persistent({id("y")}), assign(id("z"), add(id("x"), id("y")))}),
        "x y");
}

TEST_F(LiveVariables, UniverseOfManyWordsIsTracked) {
    universe = Universe();
    Nodes body;
    for (int i = 0; i < 300; ++i) {
        const std::string name = "v" + std::to_string(i);
        universe.add(symbol(name));
        body.push_back(i % 3 == 0 ? assign(number(), id(name)) : assign(id(name), number()));
    }
    Analyzer analyzer(universe, block(body), MUST, PLAIN, nullptr);
    const Symbols found = analyzer.getVariablesLiveAtEntry();
    EXPECT_EQ(found.size(), 100u);
    for (int i = 0; i < 300; ++i)
        EXPECT_EQ(found.count(symbol("v" + std::to_string(i))), i % 3 == 0 ? 1u : 0u) << i;
}

// The computations

class Computations : public AnalysisFixture {
protected:
    ParforStatementView parfor(const Nodes& body) { return parforLoop(id("k"), id("n"), body); }

    std::string temporary(const Nodes& body) {
        return namesOf(flow::computeLiveAsTemporaryVariables(parfor(body), universe, nullptr));
    }
    std::string maybeTemporary(const Nodes& body) {
        return namesOf(flow::computeMaybeLiveAsTemporaryVariables(parfor(body), universe, nullptr));
    }
    std::string notSliced(const Nodes& body) {
        return namesOf(flow::computeNotLiveAsSlicedVariables(parfor(body), universe, nullptr));
    }
    std::string outputs(const Nodes& body) {
        return namesOf(flow::computeSpmdOutputVariables(spmd(body), universe, nullptr));
    }
};

TEST_F(Computations, EachHasItsTypeModeAndResult) {
    universe = Universe();
    fill(universe, "a b c x y untouched");
    const auto body = [&] {
        return Nodes{assign(id("y"), id("x")), ifStatement(shortCircuitAnd(id("c"), id("a")), {}),
                     assign(paren(id("b"), {number()}), number())};
    };
    EXPECT_EQ(temporary(body()), "c x");           // Must, Plain, live
    EXPECT_EQ(maybeTemporary(body()), "a b c x");  // May, Plain, live
    EXPECT_EQ(notSliced(body()), "b untouched y"); // May, Sliced, not live
    EXPECT_EQ(outputs(body()), "untouched y");     // May, Plain, not live
}

TEST_F(Computations, EmptyBody) {
    universe = Universe();
    fill(universe, "x y");
    EXPECT_EQ(temporary({}), "");
    EXPECT_EQ(maybeTemporary({}), "");
    EXPECT_EQ(notSliced({}), "x y");
    EXPECT_EQ(outputs({}), "x y");
}

TEST_F(Computations, EmptyUniverse) {
    universe = Universe();
    const auto body = [&] { return Nodes{assign(id("x"), id("y"))}; };
    EXPECT_EQ(temporary(body()), "");
    EXPECT_EQ(maybeTemporary(body()), "");
    EXPECT_EQ(notSliced(body()), "");
    EXPECT_EQ(outputs(body()), "");
}

TEST_F(Computations, HeaderOfTheConstructTakesNoPart) {
    universe = Universe();
    fill(universe, "k n a");
    const auto parallel = [&] { return parforLoop(id("k"), id("n"), {}, {id("a")}); };
    EXPECT_TRUE(flow::computeLiveAsTemporaryVariables(parallel(), universe, nullptr).empty());
    EXPECT_TRUE(flow::computeMaybeLiveAsTemporaryVariables(parallel(), universe, nullptr).empty());
    EXPECT_EQ(namesOf(flow::computeNotLiveAsSlicedVariables(parallel(), universe, nullptr)),
              "a k n");
    EXPECT_EQ(namesOf(flow::computeSpmdOutputVariables(spmd({}, {id("a")}), universe, nullptr)),
              "a k n");
}

TEST_F(Computations, PartialWriteIsAReadForMaybeAndAWriteForCertain) {
    universe = Universe();
    fill(universe, "x");
    const auto body = [&] { return Nodes{assign(paren(id("x"), {id("k")}), number())}; };
    EXPECT_EQ(maybeTemporary(body()), "x");
    EXPECT_EQ(temporary(body()), "");
    EXPECT_EQ(outputs(body()), "");
}

TEST_F(Computations, SlicedWriteIsWholeUnlessANestedForVariableIndexesIt) {
    universe = Universe();
    fill(universe, "x");
    // The variable of the parfor itself is none of them.
    EXPECT_EQ(notSliced({assign(paren(id("x"), {id("k")}), number())}), "x");
    EXPECT_EQ(
        notSliced({forLoop(id("i"), number(), {assign(paren(id("x"), {id("i")}), number())})}), "");
    EXPECT_EQ(
        notSliced({forLoop(id("i"), number(), {assign(paren(id("x"), {id("j")}), number())})}),
        "x");
}

TEST_F(Computations, ForVariablesAreGatheredAtAnyDepthAndWhereverTheyStand) {
    universe = Universe();
    fill(universe, "x");
    const auto write = [&] { return assign(paren(id("x"), {id("i")}), number()); };
    const auto loop = [&] { return forLoop(id("i"), number(), {}); };
    EXPECT_EQ(notSliced({write(), loop()}), ""); // also behind the write
    EXPECT_EQ(notSliced({write(), ifStatement(id("c"), {loop()})}), "");
    EXPECT_EQ(notSliced({write(), ifStatement(id("c"), {}, {}, NodeView(elseClause({loop()})))}),
              "");
    EXPECT_EQ(notSliced({write(), tryStatement({}, NodeView(catchClause({}, {loop()})))}), "");
    EXPECT_EQ(notSliced({write(), tryStatement({loop()})}), "");
    EXPECT_EQ(notSliced({write(), parforLoop(id("m"), number(), {loop()})}), "");
    EXPECT_EQ(notSliced({write(), forLoop(id("j"), number(), {whileLoop(id("c"), {loop()})})}), "");
    EXPECT_EQ(notSliced({write(), spmd({loop()})}), "");
    EXPECT_EQ(notSliced({write(), returnStatement(), loop()}), "");
}

TEST_F(Computations, VariablesOfNestedParforsAreNotGathered) {
    universe = Universe();
    fill(universe, "x");
    EXPECT_EQ(
        notSliced({assign(paren(id("x"), {id("i")}), number()), parforLoop(id("i"), number(), {})}),
        "x");
}

TEST_F(Computations, VariableThatTheBodyNeverTouchesIsInTheNegativeResults) {
    universe = Universe();
    fill(universe, "untouched y");
    EXPECT_EQ(notSliced({assign(id("x"), id("y"))}), "untouched");
    EXPECT_EQ(outputs({assign(id("x"), id("y"))}), "untouched");
}

TEST_F(Computations, CertainResultLeavesOutAVariableThatIsReadBehindALoopOnly) {
    universe = Universe();
    fill(universe, "x");
    EXPECT_EQ(temporary({forLoop(id("i"), number(), {}), assign(id("y"), id("x"))}), "");
    EXPECT_EQ(maybeTemporary({forLoop(id("i"), number(), {}), assign(id("y"), id("x"))}), "x");
}

TEST_F(Computations, ImplicitWriteOfAnsCountsForTheCertainResultOnly) {
    universe = Universe();
    fill(universe, "ans");
    const auto body = [&] {
        return Nodes{expressionStatement(id("ans"), number()), assign(id("y"), id("ans"))};
    };
    EXPECT_EQ(temporary(body()), "");
    EXPECT_EQ(maybeTemporary(body()), "ans");
    EXPECT_EQ(notSliced(body()), "");
    EXPECT_EQ(outputs(body()), "");
}

TEST_F(Computations, FailuresPassThrough) {
    const NodeView twice = assign(id("x"), id("y"));
    const auto message =
        ThrowsMessage<std::invalid_argument>("Equation already exists for this variable");
    EXPECT_THAT([&] { temporary({twice, twice}); }, message);
    EXPECT_THAT([&] { maybeTemporary({twice, twice}); }, message);
    EXPECT_THAT([&] { notSliced({twice, twice}); }, message);
    EXPECT_THAT([&] { outputs({twice, twice}); }, message);
}

TEST_F(Computations, NodePrinterIsNeverCalled) {
    int calls = 0;
    const auto printer = [&](NodeView) {
        ++calls;
        return std::string();
    };
    const auto body = [&] { return Nodes{assign(id("x"), id("y"))}; };
    flow::computeLiveAsTemporaryVariables(parfor(body()), universe, printer);
    flow::computeMaybeLiveAsTemporaryVariables(parfor(body()), universe, printer);
    flow::computeNotLiveAsSlicedVariables(parfor(body()), universe, printer);
    flow::computeSpmdOutputVariables(spmd(body()), universe, printer);
    flow::isAnsPossiblyReadBeforeBeingWritten(parfor(body()), symbol("ans"), printer);
    flow::isAnsPossiblyReadBeforeBeingWritten(spmd(body()), symbol("ans"), printer);
    EXPECT_EQ(calls, 0);
}

// Reads of ans

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

TEST_F(AnsAnalysis, PathAroundALoopAndThroughAFailureIsEnough) {
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

TEST_F(AnsAnalysis, SymbolThatIsNoVariableIsNotRead) {
    EXPECT_FALSE(isRead({assign(id("x"), id("sin"))}, "sin"));
}

TEST_F(AnsAnalysis, HeaderOfTheConstructTakesNoPart) {
    EXPECT_FALSE(flow::isAnsPossiblyReadBeforeBeingWritten(
        parforLoop(id("k"), id("ans"), {}, {id("ans")}), symbol("ans"), nullptr));
    EXPECT_FALSE(
        flow::isAnsPossiblyReadBeforeBeingWritten(spmd({}, {id("ans")}), symbol("ans"), nullptr));
}

TEST_F(AnsAnalysis, FailuresPassThrough) {
    const NodeView twice = readAns();
    EXPECT_THAT(
        [&] {
            isRead({twice, twice});
        },
        ThrowsMessage<std::invalid_argument>("Equation already exists for this variable"));
}

} // namespace
} // namespace zt::orvex::testing
