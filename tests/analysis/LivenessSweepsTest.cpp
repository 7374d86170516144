// How many sweeps the solver takes for a program: as many as its loops nest, not as they are many.

#include "analysis/Liveness.h"

#include "analysis/AnalysisFixture.h"
#include "analysis/RandomTree.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zt::orvex::testing {
namespace {

using flow::internal::Liveness;

class LivenessSweeps : public AnalysisFixture {
protected:
    using Make = std::function<NodeView()>;

    struct Shape {
        const char* name;
        Make make;
    };

    std::uint64_t sweeps(const Nodes& statements, Type type, Mode mode) {
        return Liveness(universe, block(statements), type, mode, {}, nullptr).numberOfSweeps();
    }

    NodeView write() { return assign(id("a"), id("b")); }
    NodeView partialWrite() { return assign(paren(id("a"), {number()}), id("a")); }
    NodeView jumpIf(const NodeView& jump) { return ifStatement(id("c"), {jump}); }

    NodeView whileC(const Nodes& body) { return whileLoop(id("c"), body); }
    NodeView forK(const Nodes& body) { return forLoop(id("k"), id("d"), body); }

    std::vector<Shape> loops() {
        const auto breaks = [this] { return jumpIf(breakStatement()); };
        const auto continues = [this] { return jumpIf(continueStatement()); };
        const auto returns = [this] { return jumpIf(returnStatement()); };
        return {
            {"while", [this] { return whileC({write()}); }},
            {"for", [this] { return forK({write()}); }},
            {"for with an empty body", [this] { return forK({}); }},
            {"for, break",
             [this, breaks] {
                 return forK({breaks(), partialWrite()});
             }},
            {"while, two breaks",
             [this, breaks] {
                 return whileC({breaks(), write(), breaks(), write()});
             }},
            {"while, continue",
             [this, continues] {
                 return whileC({continues(), partialWrite()});
             }},
            {"for, break and continue",
             [this, breaks, continues] {
                 return forK({breaks(), continues(), write()});
             }},
            {"while, return",
             [this, returns] {
                 return whileC({returns(), partialWrite()});
             }},
            {"while, return and break",
             [this, breaks, returns] {
                 return whileC({returns(), write(), breaks()});
             }},
            {"for, try",
             [this, breaks] {
                 return forK({tryStatement({write(), breaks()})});
             }},
            {"while, try and catch that jumps",
             [this, breaks, continues, returns] {
                 const NodeView clause = catchClause(id("e"), {breaks(), continues()});
                 return whileC({tryStatement({write(), returns()}, clause), partialWrite()});
             }},
            {"try around while",
             [this, breaks] {
                 return tryStatement({whileC({write(), breaks()})});
             }},
            {"try and catch around for",
             [this, breaks] {
                 const NodeView clause = catchClause({}, {write()});
                 return tryStatement({forK({breaks(), partialWrite()})}, clause);
             }},
            {"parfor around for",
             [this, breaks] {
                 return parforLoop(id("k"), id("d"), {forK({breaks()}), breaks()});
             }},
            {"while, print",
             [this, breaks] {
                 return whileC({print(write()), breaks()});
             }},
            {"while, switch",
             [this] {
                 const Nodes cases = {caseClause(id("d"), {breakStatement()}),
                                      caseClause(id("e"), {continueStatement(), write()})};
                 return whileC({switchStatement(id("c"), cases), partialWrite()});
             }},
        };
    }

    std::vector<std::function<Nodes(const Nodes&)>> surroundings() {
        return {
            [](const Nodes& row) { return row; },
            [this](const Nodes& row) -> Nodes { return {whileLoop(id("a"), row)}; },
            [this](const Nodes& row) -> Nodes {
                return {tryStatement(row, NodeView(catchClause({}, {write()})))};
            },
        };
    }

    Nodes rowOf(const Make& make, std::size_t count) {
        Nodes row;
        for (std::size_t i = 0; i < count; ++i)
            row.push_back(make());
        row.push_back(partialWrite());
        return row;
    }
};

// Each loop once cost a sweep where control can leave it from its body, so that a thousand of them
// reached the limit of the solver.
TEST_F(LivenessSweeps, FiveThousandLoopsInARowTakeNoMoreThanThree) {
    for (const Shape& loop : loops()) {
        SCOPED_TRACE(loop.name);
        for (const auto& surround : surroundings()) {
            const Nodes three = surround(rowOf(loop.make, 3));
            const Nodes many = surround(rowOf(loop.make, rounds(5'000)));
            for (const Type type : {MAY, MUST}) {
                for (const Mode mode : {PLAIN, SLICED, ANS})
                    EXPECT_EQ(sweeps(many, type, mode), sweeps(three, type, mode));
            }
        }
    }
}

// A random program, twenty times in a row, in a loop.
TEST_F(LivenessSweeps, EachLevelOfNestedLoopsAddsOne) {
    Random random;
    SCOPED_TRACE(random.describe());
    RandomTreeShape shape;
    std::uint64_t worst[6] = {};
    for (std::size_t i = 0; i < rounds(1'500); ++i) {
        shape.statementDepth = random.below(4);
        TreeBuilder builder;
        Universe all;
        for (const std::string& name : RandomTree::names())
            all.add(builder.symbol(name));
        const Random same = random;
        Nodes row;
        for (int repetition = 0; repetition < 20; ++repetition) {
            random = same;
            for (const NodeView& statement : RandomTree(builder, random, shape).statements())
                row.push_back(statement);
        }
        const NodeView around = builder.whileLoop(builder.id("a"), row);
        const std::size_t levels = shape.statementDepth + 1;
        for (const Type type : {MAY, MUST}) {
            const Liveness liveness(all, builder.block({around}), type, ANS, {}, nullptr);
            ASSERT_LE(liveness.numberOfSweeps(), levels + 2);
            worst[levels] = std::max(worst[levels], liveness.numberOfSweeps());
        }
    }
    for (std::size_t levels = 1; levels <= 4; ++levels)
        RecordProperty("worst_at_depth_" + std::to_string(levels), std::to_string(worst[levels]));
}

} // namespace
} // namespace zt::orvex::testing
