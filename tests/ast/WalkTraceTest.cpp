#include "WalkLog.h"
#include "WalkTraces.h"
#include "ast/ForEachForStatementIn.h"
#include "testing/PrintTo.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace zt::orvex::testing {
namespace {

std::string walkWithForEachNodeIn(const WalkTrace& trace) {
    TreeBuilder t;
    const NodeView root = trace.build(t);
    WalkLog log(t.ast);
    forEachNodeIn(root, [&](const NodeView& node) { log.visited(node); });
    return log.text();
}

std::string walkWithForEachForStatementIn(const WalkTrace& trace) {
    TreeBuilder t;
    const NodeView root = trace.build(t);
    WalkLog log(t.ast);
    internal::forEachForStatementIn(root, [&](const NodeView& node) { log.visited(node); });
    return log.text();
}

/// The trace of the walk that calls back only at `ForStatement`, made from that of the other walk.
std::string callingOnlyAtForStatements(const WalkTrace& trace) {
    std::string text = trace.expected;
    const std::string loop = "ForStatement!";
    const bool startsWithLoop = text.compare(0, loop.size(), loop) == 0;
    text.erase(std::remove(text.begin(), text.end(), '!'), text.end());
    if (startsWithLoop) text.insert(loop.size() - 1, "!");
    return text;
}

TEST(WalkTrace, EveryKindIsVisitedAndAskedAsInItsTrace) {
    for (const WalkTrace& trace : FULL_TRACES) {
        EXPECT_EQ(walkWithForEachNodeIn(trace), trace.expected);
    }
}

TEST(WalkTrace, EveryKindWithoutItsOptionalPartsIsVisitedAndAskedAsInItsTrace) {
    for (const WalkTrace& trace : BARE_TRACES) {
        EXPECT_EQ(walkWithForEachNodeIn(trace), trace.expected);
    }
}

TEST(WalkTrace, BothWalkersAskTheSameQuestionsInTheSameOrder) {
    for (const auto* traces : {&FULL_TRACES, &BARE_TRACES}) {
        for (const WalkTrace& trace : *traces) {
            EXPECT_EQ(walkWithForEachForStatementIn(trace), callingOnlyAtForStatements(trace));
        }
    }
}

TEST(WalkTrace, EveryKindHasATrace) {
    std::vector<NodeKind> traced;
    for (const WalkTrace& trace : FULL_TRACES) {
        TreeBuilder t;
        EXPECT_EQ(trace.build(t).getKind(), trace.kind);
        traced.push_back(trace.kind);
    }
    const auto& all = getAllNodeKinds();
    EXPECT_EQ(traced, std::vector<NodeKind>(all.begin(), all.end()));
}

// A kind with a range or an optional child in its full trace has a bare trace, too.
TEST(WalkTrace, EveryKindWithOptionalPartsHasABareTrace) {
    std::set<NodeKind> bare;
    for (const WalkTrace& trace : BARE_TRACES) {
        TreeBuilder t;
        EXPECT_EQ(trace.build(t).getKind(), trace.kind);
        bare.insert(trace.kind);
    }
    for (const WalkTrace& trace : FULL_TRACES) {
        TreeBuilder t;
        const NodeView root = trace.build(t);
        t.ast.startRecording();
        forEachNodeIn(root, [](const NodeView&) {});
        std::set<Operation> asked;
        bool hasOptionalParts = trace.kind == NodeKind::InputParameter;
        for (const Call& call : t.ast.calls()) {
            const std::string name = nameOf(call.operation);
            if (call.operation == Operation::getNodeKind) continue;
            if (name.find("RangeSize") != std::string::npos) hasOptionalParts = true;
            if (name.find("Range") == std::string::npos && !asked.insert(call.operation).second) {
                hasOptionalParts = true; // Asked twice: once to test, once to use.
            }
        }
        EXPECT_EQ(bare.count(trace.kind) == 1, hasOptionalParts) << trace.expected;
    }
}

} // namespace
} // namespace zt::orvex::testing
