#pragma once

#include "analysis/AnalysisFixture.h"
#include "analysis/RecordedControlFlow.h"
#include "testing/FlowDump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::testing {

/// Programs, and the edges of their control flow: "I -> S" says that control can pass from I to S.
/// Many of these edges show in no result of an analysis, since all that they carry also comes
/// another way.
class ControlFlowFixture : public AnalysisFixture {
protected:
    template <typename View>
    View named(const std::string& name, View node) {
        names.emplace_back(name, node);
        return node;
    }

    // A statement that can throw, and does nothing that matters here.
    NodeView step(const std::string& name) { return named(name, assign(number(), number())); }
    // A statement that can't throw.
    NodeView quiet(const std::string& name) { return named(name, emptyStatement()); }

    /// The edges, which the equations of an analysis must stand for as well.
    std::vector<std::string> edges(const Nodes& statements, Type type = MAY) {
        RecordedControlFlow recorded(block(statements));
        const flow::internal::Liveness liveness(universe, block(statements), type, PLAIN, {},
                                                nullptr);
        EXPECT_THAT(dump(liveness).describeEdges(),
                    ::testing::UnorderedElementsAreArray(named(recorded).describeEdges()));
        return recorded.describeEdges();
    }

    /// The right-hand side of a node's liveOut.
    std::string merge(const Nodes& statements, const NodeView& at, Type type) {
        const flow::internal::Liveness liveness(universe, block(statements), type, PLAIN, {},
                                                nullptr);
        return dump(liveness).describeMerge(at);
    }

    RecordedControlFlow& named(RecordedControlFlow& recorded) {
        for (const auto& [name, node] : names)
            recorded.name(node, name);
        return recorded;
    }

    FlowDump dump(const flow::internal::Liveness& liveness) {
        FlowDump dumped(liveness);
        for (const auto& [name, node] : names)
            dumped.name(node, name);
        return dumped;
    }

    std::vector<std::pair<std::string, NodeView>> names;
};

} // namespace zt::orvex::testing
