#include "testing/TreeBuilder.h"

#include <zt_orvex_kit/body/FlowText.h>

#include <gtest/gtest.h>

#include <regex>
#include <string>

namespace zt::orvex::kit {
namespace {

class FlowTextTest : public ::testing::Test, protected testing::TreeBuilder {
protected:
    FlowTextTest() {
        for (const char* name : {"n", "c", "x", "y", "unused"})
            universe.add(symbol(name));
    }

    FlowGraph graphOf(const testing::Nodes& statements) {
        return FlowGraph(universe, block(statements), flow::AnalysisTypeView::May,
                         flow::AnalysisModeView::Plain);
    }

    /// The handles depend on the compiler's order of evaluation.
    static std::string withoutHandles(const std::string& text) {
        return std::regex_replace(text, std::regex(" \\(node 0x[0-9a-f]+\\)"), "");
    }

    flow::OrderedSet<SymbolView> universe;
};

TEST_F(FlowTextTest, TextHasAParagraphForEachNode) {
    const FlowGraph graph =
        graphOf({forLoop(id("x"), id("n"), {assign(paren(id("y"), {id("x")}), id("c"))})});
    EXPECT_EQ(withoutHandles(toText(graph)), "0 entry\n"
                                             "    next: 1\n"
                                             "    live before: n c y\n"
                                             "    live after: n c y\n"
                                             "1 ForStatement\n"
                                             "    certain read n, whole write x\n"
                                             "    next: 2 3\n"
                                             "    live before: n c y\n"
                                             "    live after: n c x y\n"
                                             "2 AssignmentStatement\n"
                                             "    certain read c, certain read x, partial write y\n"
                                             "    next: 1\n"
                                             "    live before: n c x y\n"
                                             "    live after: n c y\n"
                                             "3 exit\n");
}

TEST_F(FlowTextTest, DotHasABoxForEachNodeAndWhatIsLiveOnEachEdge) {
    const FlowGraph graph = graphOf({assign(id("x"), id("n"))});
    EXPECT_EQ(withoutHandles(toDot(graph)),
              "digraph flow {\n"
              "    node [shape=box];\n"
              "    n0 [label=\"0 entry\"];\n"
              "    n0 -> n1 [label=\" n\"];\n"
              "    n1 [label=\"1 AssignmentStatement\\ncertain read n, whole write x\"];\n"
              "    n1 -> n2 [label=\"\"];\n"
              "    n2 [label=\"2 exit\"];\n"
              "}\n");
}

TEST_F(FlowTextTest, QuoteInANameIsEscapedInDot) {
    universe.add(symbol("a\"b"));
    EXPECT_NE(toDot(graphOf({assign(id("x"), id("a\"b"))})).find("certain read a\\\"b"),
              std::string::npos);
}

} // namespace
} // namespace zt::orvex::kit
