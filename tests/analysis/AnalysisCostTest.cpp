#include "analysis/AnalysisFixture.h"
#include "analysis/Liveness.h"
#include "analysis/RandomTree.h"
#include "testing/Random.h"
#include "testing/StackBounds.h"

#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <pthread.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::testing {
namespace {

using flow::internal::Liveness;
using ::testing::ThrowsMessage;

// What an analysis costs, in counts. Nothing here looks at a clock.
class AnalysisCost : public AnalysisFixture {
protected:
    std::uint64_t sweeps(const Nodes& statements, Type type = MAY) {
        return Liveness(universe, block(statements), type, PLAIN, {}, nullptr).numberOfSweeps();
    }

    // Runs `work` on a stack of the given size.
    static void runOnStackOf(std::size_t mebibytes, std::function<void()> work) {
        pthread_attr_t attributes;
        ASSERT_EQ(pthread_attr_init(&attributes), 0);
        ASSERT_EQ(pthread_attr_setstacksize(&attributes, mebibytes << 20), 0);
        pthread_t thread;
        const auto start = [](void* argument) -> void* {
            (*static_cast<std::function<void()>*>(argument))();
            return nullptr;
        };
        ASSERT_EQ(pthread_create(&thread, &attributes, start, &work), 0);
        ASSERT_EQ(pthread_join(thread, nullptr), 0);
        pthread_attr_destroy(&attributes);
    }

    using Wrap = std::function<NodeView(const NodeView&)>;

    // `wrap` around `inner`, `depth` times.
    static NodeView nest(std::size_t depth, NodeView inner, const Wrap& wrap) {
        for (std::size_t i = 0; i < depth; ++i)
            inner = wrap(inner);
        return inner;
    }
};

// Sweeps

TEST_F(AnalysisCost, LoopsInARowTakeFourSweepsAtMost) {
    Nodes whiles;
    Nodes fors;
    Nodes jumping;
    for (int i = 0; i < 2'000; ++i) {
        whiles.push_back(whileLoop(id("c"), {assign(id("a"), id("b"))}));
        fors.push_back(forLoop(id("k"), id("n"), {assign(id("a"), id("k"))}));
        jumping.push_back(whileLoop(
            id("c"), {ifStatement(id("d"), {breakStatement()}, {elseIfClause(id("e"), {})},
                                  NodeView(elseClause({continueStatement()}))),
                      tryStatement({assign(id("a"), id("b"))}, NodeView(catchClause({}, {})))}));
    }
    for (Nodes* row : {&whiles, &fors, &jumping}) {
        row->push_back(assign(id("z"), id("y")));
        EXPECT_LE(sweeps(*row, MAY), 4u);
        EXPECT_LE(sweeps(*row, MUST), 4u);
    }
}

TEST_F(AnalysisCost, NestedLoopsInARowTakeAFewSweepsForEachLevel) {
    Nodes row;
    for (int i = 0; i < 300; ++i) {
        row.push_back(nest(3, assign(id("a"), id("b")), [&](const NodeView& inner) {
            return whileLoop(id("c"), {assign(id("s"), id("t")), inner});
        }));
    }
    row.push_back(assign(id("z"), id("y")));
    EXPECT_LE(sweeps(row), 7u);
}

TEST_F(AnalysisCost, WhatDoesNotLoopTakesTwoSweepsAtMost) {
    RandomTreeShape shape;
    shape.hasLoops = false;
    shape.isWeird = true;
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t i = 0; i < rounds(500); ++i) {
        TreeBuilder builder;
        RandomTree tree(builder, random, shape);
        Universe all;
        for (const std::string& name : RandomTree::names())
            all.add(builder.symbol(name));
        for (const Type type : {MAY, MUST}) {
            const Liveness analysis(all, builder.block(tree.statements()), type, ANS, {}, nullptr);
            ASSERT_LE(analysis.numberOfSweeps(), 2u);
        }
    }
}

// A nest of loops with a read in the outermost head and one in the innermost statement. In every
// order of evaluation one of the two travels against it, by one level in each sweep.
class LoopNest : public AnalysisCost {
protected:
    NodeView loops(std::size_t depth) {
        const NodeView inner =
            nest(depth - 1, assign(id("z"), id("y")),
                 [&](const NodeView& below) { return whileLoop(id("c"), {below}); });
        return whileLoop(id("x"), {inner});
    }
};

TEST_F(LoopNest, OfHundredsOfLevelsIsSolved) {
    EXPECT_EQ(live({loops(500)}), "c x y");
    EXPECT_EQ(live({loops(500)}, MUST), "x");
}

TEST_F(LoopNest, TooDeepForTheSolverEndsInItsMessage) {
    const StatementRangeView statements = block({loops(1'200)});
    EXPECT_THAT(
        [&] {
            flow::TransparentLiveVariablesAnalyzerView(universe, statements, MAY, PLAIN, nullptr);
        },
        ThrowsMessage<std::logic_error>("Maximum iterations exceeded in SystemOfEquations::solve"));
}

TEST_F(LoopNest, TooDeepFailsEachComputationTheSameWay) {
    const ParforStatementView construct = parforLoop(id("k"), id("n"), {loops(1'200)});
    const auto message =
        ThrowsMessage<std::logic_error>("Maximum iterations exceeded in SystemOfEquations::solve");
    EXPECT_THAT([&] { flow::computeMaybeLiveAsTemporaryVariables(construct, universe, nullptr); },
                message);
    EXPECT_THAT([&] { flow::computeNotLiveAsSlicedVariables(construct, universe, nullptr); },
                message);
}

// Questions to the tree

class Questions : public AnalysisCost {
protected:
    static constexpr std::size_t OPERANDS = ZT_ORVEX_TEST_SANITIZED != 0 ? 2'000 : 20'000;

    // Counts the calls of one analysis without keeping them.
    void ask(const Nodes& statements, Type type = MUST, Mode mode = SLICED) {
        const StatementRangeView range = block(statements);
        counts.clear();
        kindsOfNodes.clear();
        ast.onCall = [&](const Call& call) {
            ++counts[call.operation];
            if (call.operation == Operation::getNodeKind) ++kindsOfNodes[call.arguments[0]];
        };
        // Depth is tested elsewhere.
        runOnStackOf(512, [&] { Liveness(universe, range, type, mode, symbols("k"), nullptr); });
        ast.onCall = nullptr;
    }

    std::size_t mostKindsOfANode() const {
        std::size_t most = 0;
        for (const auto& [node, asked] : kindsOfNodes)
            most = std::max(most, asked);
        return most;
    }

    // A condition of so many operands asks for operators and kinds in proportion to its size.
    void expectLinear(const char* shape, const Wrap& wrap) {
        ast.clear();
        universe = Universe();
        fill(universe, "a b k");
        ask({ifStatement(nest(OPERANDS, id("a"), wrap), {})});
        // Each operation is asked once for its own operands, and once more for those inside it.
        EXPECT_LE(counts[Operation::getBinaryOperator], 4 * OPERANDS) << shape;
        EXPECT_LE(counts[Operation::getNodeKind], 4 * ast.size()) << shape;
        EXPECT_LE(counts[Operation::getMatrixRows], 4 * OPERANDS) << shape;
    }

    std::map<Operation, std::size_t> counts;
    std::map<std::uint64_t, std::size_t> kindsOfNodes;
};

TEST_F(Questions, ConditionOfManyOperandsIsLinear) {
    // a | a | ... | a, grouped to the left and to the right
    expectLinear("left", [&](const NodeView& e) { return elementOr(e, id("a")); });
    expectLinear("right", [&](const NodeView& e) { return elementOr(id("a"), e); });
    // (... (a | a) | a) | a, and with brackets
    expectLinear("parentheses",
                 [&](const NodeView& e) { return elementOr(parenthesized(e), id("a")); });
    expectLinear("brackets",
                 [&](const NodeView& e) { return elementAnd(matrix({row({e})}), id("a")); });
    // With an expression on every level in which elementwise logic doesn't short-circuit.
    expectLinear("pairs", [&](const NodeView& e) {
        return elementOr(matrix({row({e, id("b")})}), id("a"));
    });
    expectLinear("calls", [&](const NodeView& e) { return elementOr(paren(e, {}), id("a")); });
    expectLinear("sums", [&](const NodeView& e) { return elementOr(add(e, id("b")), id("a")); });
    expectLinear("short circuits", [&](const NodeView& e) {
        return elementOr(shortCircuitAnd(e, id("b")), id("a"));
    });
}

TEST_F(Questions, WideConditionIsLinear) {
    Nodes elements;
    for (std::size_t i = 0; i < OPERANDS; ++i)
        elements.push_back(elementOr(id("a"), id("b")));
    ask({ifStatement(row(elements), {})});
    EXPECT_LE(counts[Operation::getBinaryOperator], 3 * OPERANDS);
    EXPECT_LE(counts[Operation::getNodeKind], 4 * ast.size());
}

TEST_F(Questions, KindOfANodeIsAskedTwiceAtMostInStraightCode) {
    Nodes statements;
    for (int i = 0; i < 100; ++i) {
        statements.push_back(assign(id("x"), paren(id("f"), {id("a"), add(id("b"), number())})));
        statements.push_back(ifStatement(id("c"), {expressionStatement(id("y"), id("a"))},
                                         {elseIfClause(id("d"), {emptyStatement()})},
                                         NodeView(elseClause({print(assign(id("a"), id("b")))}))));
        statements.push_back(whileLoop(id("c"), {tryStatement({assign(id("a"), id("b"))})}));
    }
    ask(statements);
    EXPECT_LE(mostKindsOfANode(), 2u);
}

TEST_F(Questions, KindOfAJumpIsAskedFourTimesAtMostHoweverManyLoopsEncloseIt) {
    ask({nest(300, returnStatement(), [&](const NodeView& inner) {
        return whileLoop(id("c"), {ifStatement(id("a"), {returnStatement()}),
                                   ifStatement(id("a"), {breakStatement()}),
                                   ifStatement(id("a"), {continueStatement()}), inner});
    })});
    EXPECT_LE(mostKindsOfANode(), 4u);
}

TEST_F(Questions, KindOfAnIndexedTargetAndItsSubscriptsIsAskedFiveTimesAtMost) {
    Nodes subscripts;
    for (int i = 0; i < 100; ++i)
        subscripts.push_back(parenthesized(parenthesized(id("a"))));
    ask({assign(paren(id("x"), subscripts), number())});
    EXPECT_LE(mostKindsOfANode(), 5u);
}

TEST_F(Questions, RandomTreesAskForOneKindAndAHalfForEachNode) {
    Random random;
    SCOPED_TRACE(random.describe());
    RandomTree tree(*this, random, RandomTreeShape());
    Nodes statements;
    while (ast.size() < 5'000)
        for (const NodeView& statement : tree.statements())
            statements.push_back(statement);
    ask(statements);
    EXPECT_LE(counts[Operation::getNodeKind], ast.size() * 3 / 2);
}

TEST_F(Questions, NothingIsAskedTwiceForAnotherTypeThanForOne) {
    const Nodes statements = {assign(id("x"), id("a")), whileLoop(id("c"), {breakStatement()})};
    ask(statements, MAY);
    const auto underMay = counts;
    ask(statements, MUST);
    EXPECT_EQ(counts, underMay);
}

// Depth. The recursion is as deep as the tree, so each test runs on a stack of known size.

// Too many loops for the solver, and few enough to let it find out soon.
constexpr std::size_t LOOP_DEPTH = 1'500;
// Frames are larger without optimisation, and many times as large under a sanitizer.
#if ZT_ORVEX_TEST_SANITIZED
constexpr std::size_t EXPRESSION_DEPTH = 1'500;
constexpr std::size_t STATEMENT_DEPTH = 1'000;
#elif defined(__OPTIMIZE__)
constexpr std::size_t EXPRESSION_DEPTH =
    stackBounds() && stackBounds()->bytesOfExpression < 400 ? 20'000 : 10'000;
constexpr std::size_t STATEMENT_DEPTH = 5'000;
#else
constexpr std::size_t EXPRESSION_DEPTH = 10'000;
constexpr std::size_t STATEMENT_DEPTH = 5'000;
#endif

class Depth : public AnalysisCost {
protected:
    // Three computations on a body, on a stack of 8 MiB.
    void expectLive(const char* shape, const NodeView& statement, const std::string& expected) {
        const ParforStatementView construct = parforLoop(id("k"), id("n"), {statement});
        universe = Universe();
        fill(universe, "a b c");
        runOnStackOf(8, [&] {
            EXPECT_EQ(
                namesOf(flow::computeMaybeLiveAsTemporaryVariables(construct, universe, nullptr)),
                expected)
                << shape;
            flow::computeLiveAsTemporaryVariables(construct, universe, nullptr);
            flow::computeNotLiveAsSlicedVariables(construct, universe, nullptr);
        });
    }

    // The innermost expression reads `a`, and each level reads what `wrap` adds.
    void expectExpression(const char* shape, std::size_t levels, const std::string& expected,
                          const Wrap& wrap) {
        expectLive(shape, ifStatement(nest(levels, id("a"), wrap), {}), expected);
    }

    void expectStatement(const char* shape, const std::string& expected, const Wrap& wrap) {
        expectLive(shape, nest(STATEMENT_DEPTH, assign(id("x"), id("a")), wrap), expected);
    }
};

TEST_F(Depth, ExpressionsAreAnalysed) {
    expectExpression("left operands", EXPRESSION_DEPTH, "a b",
                     [&](const NodeView& e) { return elementOr(e, id("b")); });
    expectExpression("right operands", EXPRESSION_DEPTH, "a b",
                     [&](const NodeView& e) { return elementOr(id("b"), e); });
    expectExpression("parentheses", EXPRESSION_DEPTH, "a",
                     [&](const NodeView& e) { return parenthesized(e); });
    expectExpression("unary operations", EXPRESSION_DEPTH, "a",
                     [&](const NodeView& e) { return minus(e); });
    expectExpression("fields", EXPRESSION_DEPTH, "a",
                     [&](const NodeView& e) { return dot(e, id("b")); });
    expectExpression("subscripts", EXPRESSION_DEPTH, "a b",
                     [&](const NodeView& e) { return paren(id("b"), {e}); });
    expectExpression("bases", EXPRESSION_DEPTH, "a b",
                     [&](const NodeView& e) { return brace(e, {id("b")}); });
    expectExpression("matrices", EXPRESSION_DEPTH / 2, "a",
                     [&](const NodeView& e) { return matrix({row({e})}); });
}

#if defined(NDEBUG) && !ZT_ORVEX_TEST_SANITIZED
class ExpressionStack : public AnalysisCost {
protected:
    /// The most bytes of stack between the first question for an expression's kind and that for
    /// the kind of the expression that `wrap` makes around it, of `levels` nodes.
    std::size_t bytesPerLevel(const Wrap& wrap, std::size_t levels = 1) {
        std::vector<std::uint64_t> handles = {id("a").node};
        NodeView expression{handles.front(), &ast};
        for (int i = 0; i < 10; ++i) {
            expression = wrap(expression);
            handles.push_back(expression.node);
        }
        std::map<std::uint64_t, std::uintptr_t> places;
        ast.onCall = [&](const Call& call) {
            if (call.operation != Operation::getNodeKind) return;
            const auto place = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
            places.emplace(call.arguments[0], place);
        };
        sweeps({assign(id("x"), expression)});
        ast.onCall = nullptr;
        std::uintptr_t most = 0;
        for (std::size_t i = 1; i < handles.size(); ++i)
            most = std::max(most, places.at(handles[i]) - places.at(handles[i - 1]));
        return most / levels;
    }
};

TEST_F(ExpressionStack, LevelTakesFewBytes) {
    if (!stackBounds()) GTEST_SKIP() << NO_STACK_BOUNDS;
    const NodeView b = id("b");
    const std::map<std::string, Wrap> wraps = {
        {"anonymous function", [&](const NodeView& e) { return anonymousFunction({}, e); }},
        {"left operand", [&](const NodeView& e) { return elementOr(e, b); }},
        {"right operand", [&](const NodeView& e) { return elementOr(b, e); }},
        {"base of braces", [&](const NodeView& e) { return brace(e, {b}); }},
        {"argument in braces",
         [&](const NodeView& e) {
             return brace(b, {b, e});
         }},
        {"start of a colon", [&](const NodeView& e) { return colonOperation(e, {}, b); }},
        {"step of a colon", [&](const NodeView& e) { return colonOperation(b, e, b); }},
        {"stop of a colon", [&](const NodeView& e) { return colonOperation(b, {}, e); }},
        {"base of a field", [&](const NodeView& e) { return dot(e, b); }},
        {"base of a dynamic field", [&](const NodeView& e) { return dynamicField(e, b); }},
        {"dynamic field", [&](const NodeView& e) { return dynamicField(b, e); }},
        {"named argument", [&](const NodeView& e) { return namedArgument(b, e); }},
        {"base of parentheses", [&](const NodeView& e) { return paren(e, {b}); }},
        {"argument in parentheses",
         [&](const NodeView& e) {
             return paren(b, {b, e});
         }},
        {"parentheses", [&](const NodeView& e) { return parenthesized(e); }},
        {"operand", [&](const NodeView& e) { return minus(e); }},
    };
    const auto expectFew = [&](const std::string& name, std::size_t bytes) {
        EXPECT_GT(bytes, 0U) << name;
        EXPECT_LE(bytes, stackBounds()->bytesOfExpression) << name;
        RecordProperty(name, std::to_string(bytes));
    };
    for (const auto& [name, wrap] : wraps)
        expectFew(name, bytesPerLevel(wrap));
    expectFew("matrix", bytesPerLevel([&](const NodeView& e) { return matrix({row({b, e})}); }, 2));
    expectFew("cell array", bytesPerLevel(
                                [&](const NodeView& e) {
                                    return cellArray({row({b, e})});
                                },
                                2));
}
#endif

TEST_F(Depth, TargetsAreAnalysed) {
    const NodeView target =
        nest(EXPRESSION_DEPTH, id("a"), [&](const NodeView& e) { return paren(e, {id("b")}); });
    expectLive("target", assign(target, id("c")), "a b c");
}

TEST_F(Depth, StatementsAreAnalysed) {
    expectStatement("if", "a b", [&](const NodeView& s) { return ifStatement(id("b"), {s}); });
    expectStatement("else", "a b", [&](const NodeView& s) {
        return ifStatement(id("b"), {}, {}, NodeView(elseClause({s})));
    });
    expectStatement("elseif", "a b c", [&](const NodeView& s) {
        return ifStatement(id("b"), {}, {elseIfClause(id("c"), {s})});
    });
    expectStatement("case", "a b c", [&](const NodeView& s) {
        return switchStatement(id("b"), {caseClause(id("c"), {s})});
    });
    expectStatement("otherwise", "a b", [&](const NodeView& s) {
        return switchStatement(id("b"), {}, NodeView(otherwiseClause({s})));
    });
    expectStatement("parfor", "a b",
                    [&](const NodeView& s) { return parforLoop(id("x"), id("b"), {s}); });
    expectStatement("spmd", "a b", [&](const NodeView& s) { return spmd({s}, {id("b")}); });
    expectStatement("try", "a", [&](const NodeView& s) { return tryStatement({s}); });
    expectStatement("catch", "a", [&](const NodeView& s) {
        return tryStatement({}, NodeView(catchClause({}, {s})));
    });
    expectStatement("print", "a", [&](const NodeView& s) { return print(s); });
}

TEST_F(Depth, LoopsEndInTheSolversMessageAndNotInTheStack) {
    const NodeView loops = nest(LOOP_DEPTH, assign(id("x"), id("a")),
                                [&](const NodeView& s) { return whileLoop(id("b"), {s}); });
    const ParforStatementView construct =
        parforLoop(id("k"), id("n"), {whileLoop(id("c"), {loops})});
    runOnStackOf(8, [&] {
        EXPECT_THAT(
            [&] { flow::computeMaybeLiveAsTemporaryVariables(construct, universe, nullptr); },
            ThrowsMessage<std::logic_error>(
                "Maximum iterations exceeded in SystemOfEquations::solve"));
    });
}

} // namespace
} // namespace zt::orvex::testing
