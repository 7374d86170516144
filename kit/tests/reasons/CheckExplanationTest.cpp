#include "reasons/ReasonsFixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace zt::orvex::kit {
namespace {

/// Breaks good reasons, each in one way, and reads the objection.
class CheckExplanationTest : public testing::ReasonsFixture {
protected:
    // 1 if c, 2 x = a, end, 3 y = x, 4 x = b
    testing::Nodes statements() {
        return {ifStatement(id("c"), {assign(id("x"), id("a"))}), assign(id("y"), id("x")),
                assign(id("x"), id("b"))};
    }

    std::string broken(const FlowGraph& graph, const char* name,
                       const std::function<void(Explanation&)>& breakIt) {
        Explanation why = explain(graph, name);
        breakIt(why);
        return checkExplanation(graph, symbol(name), why).objection;
    }

    std::string brokenPath(const FlowGraph& graph, const char* name, Path nodes) {
        return broken(graph, name, [&](Explanation& why) { why.path.nodes = std::move(nodes); });
    }
};

TEST_F(CheckExplanationTest, AnotherSymbolIsRefused) {
    const FlowGraph& graph = graphOf(statements());
    const std::string objection = "The reason is about another symbol, or the graph lacks it.";
    const Explanation why = explain(graph, "x");
    EXPECT_EQ(checkExplanation(graph, symbol("a"), why).objection, objection);
    EXPECT_EQ(checkExplanation(graph, symbol("outside"), why).objection, objection);
}

TEST_F(CheckExplanationTest, ReasonOfTheWrongKindIsRefused) {
    const std::string objection = "A reason of this kind doesn't prove the verdict.";
    const FlowGraph& graph = graphOf(statements());
    EXPECT_EQ(broken(graph, "x", [](Explanation& why) { why.isLive = false; }), objection);
    EXPECT_EQ(broken(graph, "x", [](Explanation& why) { why.kind = static_cast<ReasonKind>(9); }),
              objection);
    const Explanation ofMay = explain(graph, "a");
    EXPECT_EQ(checkExplanation(graphOf(statements(), MUST), symbol("a"), ofMay).objection,
              objection);
}

TEST_F(CheckExplanationTest, PathToAReadMustBeOne) {
    const FlowGraph& graph = graphOf(statements());
    EXPECT_EQ(brokenPath(graph, "x", {0, 1, 3}), "");
    EXPECT_EQ(brokenPath(graph, "x", {}), "The nodes aren't a path.");
    EXPECT_EQ(brokenPath(graph, "x", {0, 3}), "The nodes aren't a path.");
    EXPECT_EQ(brokenPath(graph, "x", {0, 1, 99}), "The nodes aren't a path.");
    EXPECT_EQ(brokenPath(graph, "x", {1, 3}), "The path doesn't begin at the entry.");
    EXPECT_EQ(brokenPath(graph, "x", {0, 1, 2, 3}),
              "The variable is written whole before the read.");
    EXPECT_EQ(brokenPath(graph, "x", {0, 1}), "The last node of the path doesn't have the read.");
    EXPECT_EQ(broken(graph, "x", [](Explanation& why) { why.path.end = PathEnd::Exit; }),
              "The path doesn't claim to end at a read.");
    EXPECT_EQ(broken(graph, "x", [](Explanation& why) { why.path.access = boost::none; }),
              "The last node of the path doesn't have the read.");
}

TEST_F(CheckExplanationTest, ReadOfAnotherStatementIsRefused) {
    const FlowGraph& graph = graphOf({assign(id("y"), id("x")), assign(id("a"), id("x"))});
    EXPECT_EQ(broken(graph, "x", [&](Explanation& why) { why.path.access = graph.accesses(2)[0]; }),
              "The last node of the path doesn't have the read.");
}

TEST_F(CheckExplanationTest, WriteAtTheEndOfThePathIsNoRead) {
    const FlowGraph& graph = graphOf({assign(id("x"), id("x"))});
    EXPECT_EQ(broken(graph, "x", [&](Explanation& why) { why.path.access = graph.accesses(1)[1]; }),
              "The access at the end of the path doesn't make the variable live.");
}

TEST_F(CheckExplanationTest, WritesMustCoverEveryPath) {
    // 1 if c, 2 x = a, else, 3 x = b, end, 4 y = x
    const FlowGraph& graph = graphOf({ifStatement(id("c"), {assign(id("x"), id("a"))}, {},
                                                  elseClause({assign(id("x"), id("b"))})),
                                      assign(id("y"), id("x"))});
    const auto withWrites = [&](const Path& writes) {
        return broken(graph, "x", [&](Explanation& why) { why.writes = writes; });
    };
    EXPECT_EQ(withWrites({2, 3}), "");
    EXPECT_EQ(withWrites({2}), "A path comes to a read by none of the writes.");
    EXPECT_EQ(withWrites({}), "A path comes to a read by none of the writes.");
    EXPECT_EQ(withWrites({2, 3, 1}), "A node doesn't write the variable whole.");
    EXPECT_EQ(withWrites({2, 3, 99}), "A node doesn't write the variable whole.");
}

TEST_F(CheckExplanationTest, WriteThatNoPathMeetsFirstIsRefused) {
    // 1 x = a, 2 x = b, 3 y = x
    const FlowGraph& graph =
        graphOf({assign(id("x"), id("a")), assign(id("x"), id("b")), assign(id("y"), id("x"))});
    EXPECT_EQ(broken(graph, "x",
                     [](Explanation& why) {
                         why.writes = {1, 2};
                     }),
              "No path comes to one of the writes first.");
}

TEST_F(CheckExplanationTest, RanksMustLeadToCertainReads) {
    // 1 if c, 2 a = b, end, 3 y = x
    const FlowGraph& graph =
        graphOf({ifStatement(id("c"), {assign(id("a"), id("b"))}), assign(id("y"), id("x"))}, MUST);
    const auto withRanks = [&](std::vector<RankedNode> ranks) {
        return broken(graph, "x", [&](Explanation& why) { why.ranks = std::move(ranks); });
    };
    EXPECT_EQ(withRanks({{0, 3}, {1, 2}, {2, 1}, {3, 0}}), "");
    EXPECT_EQ(withRanks({{0, 3}, {1, 2}, {2, 1}, {3, 0}, {99, 0}}), "A node isn't in the graph.");
    EXPECT_EQ(withRanks({{0, 3}, {0, 4}}), "A node has two ranks.");
    EXPECT_EQ(withRanks({{1, 2}, {2, 1}, {3, 0}}), "The entry has no rank.");
    EXPECT_EQ(withRanks({{0, 0}}), "A node of rank 0 doesn't read for certain.");
    EXPECT_EQ(withRanks({{0, 3}, {1, 2}, {3, 0}}),
              "A successor has no rank, or one that isn't lower.");
    EXPECT_EQ(withRanks({{0, 3}, {1, 2}, {2, 2}, {3, 0}}),
              "A successor has no rank, or one that isn't lower.");
}

TEST_F(CheckExplanationTest, RanksMayNotPassAWriteOrTheExit) {
    // 1 x = a, 2 y = x
    const FlowGraph& graph = graphOf({assign(id("x"), id("a")), assign(id("y"), id("x"))}, MUST);
    const auto claimLive = [&](std::vector<RankedNode> ranks) {
        return broken(graph, "x", [&](Explanation& why) {
            why.isLive = true;
            why.kind = ReasonKind::ReadOnEveryPath;
            why.ranks = std::move(ranks);
        });
    };
    EXPECT_EQ(claimLive({{0, 2}, {1, 1}, {2, 0}}), "The variable is written before the read.");
    EXPECT_EQ(claimLive({{0, 9}, {3, 1}}), "A successor has no rank, or one that isn't lower.");
    const FlowGraph& empty = graphOf({}, MUST);
    Explanation why = explain(empty, "x");
    why.isLive = true;
    why.kind = ReasonKind::ReadOnEveryPath;
    why.ranks = {{0, 2}, {1, 1}};
    EXPECT_EQ(checkExplanation(empty, symbol("x"), why).objection, "A path ends without a read.");
}

TEST_F(CheckExplanationTest, PathWithoutAReadMustEndAsItClaims) {
    // 1 while c, 2 a = b, end, 3 if c, 4 x = a, end, 5 y = x
    const FlowGraph& graph =
        graphOf({whileLoop(id("c"), {assign(id("a"), id("b"))}),
                 ifStatement(id("c"), {assign(id("x"), id("a"))}), assign(id("y"), id("x"))},
                MUST);
    const auto claim = [&](Path nodes, PathEnd end, const boost::optional<Access>& access) {
        return broken(graph, "x", [&](Explanation& why) { why.path = {nodes, end, access}; });
    };
    const Access write = graph.accesses(4)[1];
    EXPECT_EQ(claim({0, 1, 2, 1}, PathEnd::Loop, boost::none), "");
    EXPECT_EQ(claim({0, 1, 3, 4}, PathEnd::Write, write), "");
    EXPECT_EQ(claim({0, 1, 3}, PathEnd::Loop, boost::none), "The path doesn't come round.");
    EXPECT_EQ(claim({0, 1, 3}, PathEnd::Write, write),
              "The last node of the path doesn't have the write.");
    EXPECT_EQ(claim({0, 1, 3, 4}, PathEnd::Write, boost::none),
              "The last node of the path doesn't have the write.");
    EXPECT_EQ(claim({0, 1, 3}, PathEnd::Exit, boost::none), "The path doesn't end at the exit.");
    EXPECT_EQ(claim({0, 1, 3, 5, 6}, PathEnd::Exit, boost::none),
              "A node of the path reads for certain.");
    EXPECT_EQ(claim({1, 2, 1}, PathEnd::Loop, boost::none), "The path doesn't begin at the entry.");
    EXPECT_EQ(claim({0, 2}, PathEnd::Loop, boost::none), "The nodes aren't a path.");
    EXPECT_EQ(claim({0, 1, 3}, PathEnd::Read, boost::none), "The path claims to end at a read.");
}

TEST_F(CheckExplanationTest, PathWithoutAReadMustStopAtAWrite) {
    const FlowGraph& graph = graphOf({assign(id("x"), id("a"))}, MUST);
    EXPECT_EQ(broken(graph, "x",
                     [](Explanation& why) {
                         why.path = {{0, 1, 2}, PathEnd::Exit, boost::none};
                     }),
              "The path goes on after a write.");
}

TEST_F(CheckExplanationTest, CarriedValueMustReachTheExitAndTheRead) {
    // 1 y = s, 2 s = a, 3 s = b, 4 return, 5 s = c
    const FlowGraph& graph =
        graphOf({assign(id("y"), id("s")), assign(id("s"), id("a")), assign(id("s"), id("b")),
                 returnStatement(), assign(id("s"), id("c"))});
    const CarriedValue good = *explainCarried(graph, symbol("s"));
    const auto check = [&](const std::function<void(CarriedValue&)>& breakIt) {
        CarriedValue reason = good;
        breakIt(reason);
        return checkCarried(graph, symbol("s"), reason).objection;
    };
    EXPECT_EQ(check([](CarriedValue&) {}), "");
    EXPECT_EQ(check([](CarriedValue& r) { r.write.nodes.clear(); }),
              "The nodes from the write aren't a path.");
    EXPECT_EQ(check([](CarriedValue& r) {
                  r.write.nodes = {3, 4};
              }),
              "The value doesn't reach the exit.");
    EXPECT_EQ(check([](CarriedValue& r) {
                  r.write.nodes = {4, 6};
              }),
              "The first node doesn't have the write.");
    EXPECT_EQ(check([](CarriedValue& r) { r.write.access = boost::none; }),
              "The first node doesn't have the write.");
    EXPECT_EQ(check([&](CarriedValue& r) {
                  r.write.nodes = {2, 3, 4, 6};
                  r.write.access = graph.accesses(2)[1];
              }),
              "The value is overwritten.");
    EXPECT_EQ(check([&](CarriedValue& r) {
                  r.write.nodes = {5, 6};
                  r.write.access = graph.accesses(5)[1];
              }),
              "No path comes to the write.");
    EXPECT_EQ(check([](CarriedValue& r) { r.read.nodes = {0}; }),
              "The last node of the path doesn't have the read.");
    EXPECT_EQ(check([&](CarriedValue& r) { r.symbol = symbol("a"); }),
              "The reason is about another symbol, or the graph lacks it.");
    EXPECT_EQ(checkCarried(graphOf({}, MUST), symbol("s"), good).objection,
              "The graph isn't one of type May.");
}

TEST_F(CheckExplanationTest, WayFromAConstructMustBeginInsideAndLeaveIt) {
    // around: 1 parfor, 2 a = b, 3 x = i, end, 4 x = x, 5 y = x    body: 1 a = b, 2 x = i
    const ParforStatementView loop =
        parforLoop(id("i"), id("n"), {assign(id("a"), id("b")), assign(id("x"), id("i"))});
    const FlowGraph body(universe, loop.getParforBody(), MAY, Mode::Plain);
    const testing::Nodes statements = {loop, assign(id("x"), id("x")), assign(id("y"), id("x"))};
    const FlowGraph& around = graphOf(statements);
    const ValueUsedAfter good = *explainUsedAfter(body, around, symbol("x"));
    const auto check = [&](const std::function<void(ValueUsedAfter&)>& breakIt) {
        ValueUsedAfter reason = good;
        breakIt(reason);
        return checkUsedAfter(body, around, symbol("x"), reason).objection;
    };
    EXPECT_EQ(good.path.nodes, (Path{3, 4}));
    EXPECT_EQ(check([](ValueUsedAfter&) {}), "");
    EXPECT_EQ(check([](ValueUsedAfter& r) {
                  r.path.nodes = {3, 99};
              }),
              "The nodes from the write aren't a path.");
    EXPECT_EQ(check([](ValueUsedAfter& r) {
                  r.path.nodes = {2, 3, 4};
              }),
              "The first node doesn't have the write.");
    EXPECT_EQ(check([&](ValueUsedAfter& r) {
                  r.path.nodes = {4, 5};
                  r.write = around.accesses(4)[1];
              }),
              "The write isn't inside the construct.");
    EXPECT_EQ(check([](ValueUsedAfter& r) { r.path.nodes = {3}; }),
              "The path doesn't leave the construct.");
    EXPECT_EQ(check([](ValueUsedAfter& r) {
                  r.path.nodes = {3, 4, 5, 6};
              }),
              "The variable is written whole before the read.");
    EXPECT_EQ(check([](ValueUsedAfter& r) { r.path.end = PathEnd::Exit; }),
              "The path doesn't claim to end at a read.");
    EXPECT_EQ(check([&](ValueUsedAfter& r) { r.symbol = symbol("a"); }),
              "The reason is about another symbol, or the graph lacks it.");
    EXPECT_EQ(checkUsedAfter(body, graphOf(statements, MUST), symbol("x"), good).objection,
              "The graph isn't one of type May.");
}

} // namespace
} // namespace zt::orvex::kit
