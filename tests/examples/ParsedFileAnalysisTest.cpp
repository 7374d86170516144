#include "Programs.h"
#include "testing/RandomProgram.h"

#include "syntax/Limits.h"

#include <zt_orvex/analysis/AnsAnalysis.h>
#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <gtest/gtest.h>

#include <set>
#include <unordered_set>

namespace ostrel {
namespace {

using zt::orvex::NodeKind;
using zt::orvex::NodeView;
using zt::orvex::ParforStatementView;
using zt::orvex::SpmdStatementView;
using zt::orvex::SymbolView;
using zt::orvex::flow::OrderedSet;
namespace flow = zt::orvex::flow;

std::string noNodePrinter(NodeView) { return {}; }

std::string names(const ParsedFile& file, const std::unordered_set<SymbolView>& symbols) {
    std::set<std::string> sorted;
    for (const SymbolView symbol : symbols)
        sorted.insert(toUtf8(file.tree->symbolName(symbol)));
    std::string text;
    for (const std::string& name : sorted)
        text += (text.empty() ? "" : " ") + name;
    return text;
}

OrderedSet<SymbolView> universeOf(const ParsedFile& file, const Construct& construct) {
    const auto& symbols = file.scopes[construct.scope].universe;
    return OrderedSet<SymbolView>(symbols.begin(), symbols.end());
}

/// All answers about a construct, on one line.
std::string ask(const ParsedFile& file, const Construct& construct) {
    const OrderedSet<SymbolView> universe = universeOf(file, construct);
    const SymbolView ans = file.scopes[construct.scope].ans;
    if (construct.node.getKind() == NodeKind::SpmdStatement) {
        const SpmdStatementView spmd(construct.node);
        const bool isRead = flow::isAnsPossiblyReadBeforeBeingWritten(spmd, ans, noNodePrinter);
        return names(file, flow::computeSpmdOutputVariables(spmd, universe, noNodePrinter)) +
               (isRead ? " | ans" : "");
    }
    const ParforStatementView parfor(construct.node);
    const bool isRead = flow::isAnsPossiblyReadBeforeBeingWritten(parfor, ans, noNodePrinter);
    return names(file, flow::computeLiveAsTemporaryVariables(parfor, universe, noNodePrinter)) +
           " | " +
           names(file,
                 flow::computeMaybeLiveAsTemporaryVariables(parfor, universe, noNodePrinter)) +
           " | " +
           names(file, flow::computeNotLiveAsSlicedVariables(parfor, universe, noNodePrinter)) +
           (isRead ? " | ans" : "");
}

TEST(ParsedFileAnalysis, LibraryAnalysesConstructsOfAText) {
    const ParsedFile file = testing::parse("s = 0;\n"
                                           "parfor k = 1:9\n"
                                           "    t = x(k);\n"
                                           "    s = s + t;\n"
                                           "end\n");
    ASSERT_EQ(file.constructs.size(), 1U);
    EXPECT_EQ(testing::universe(file, 0), "s k t");
    EXPECT_EQ(ask(file, file.constructs[0]), "k s | k s | t");
}

TEST(ParsedFileAnalysis, AnsIsReadFirstUnlessAnExpressionPrecedes) {
    const ParsedFile file = testing::parse("spmd\nx = ans;\nend\nspmd\n1;\nx = ans;\nend\n");
    ASSERT_EQ(file.constructs.size(), 2U);
    const SymbolView ans = file.scopes[0].ans;
    const auto isRead = [&](std::size_t index) {
        return flow::isAnsPossiblyReadBeforeBeingWritten(
            SpmdStatementView(file.constructs[index].node), ans, noNodePrinter);
    };
    EXPECT_TRUE(isRead(0));
    EXPECT_FALSE(isRead(1));
}

TEST(ParsedFileAnalysis, EveryConstructOfARandomProgramCanBeAnalysed) {
    zt::orvex::testing::Random random;
    SCOPED_TRACE(random.describe());
    std::size_t asked = 0;
    for (std::size_t i = 0; i < zt::orvex::testing::rounds(500); ++i) {
        const std::string source = zt::orvex::testing::RandomProgram(random).program();
        SCOPED_TRACE(source);
        const ParsedFile file = testing::parse(source);
        for (const Construct& construct : file.constructs) {
            EXPECT_NO_THROW(ask(file, construct));
            ++asked;
        }
    }
    EXPECT_GT(asked, 10U);
}

TEST(ParsedFileAnalysis, HighestTreeCanBeAnalysed) {
    std::string source = "parfor k = 1:3\n";
    for (std::size_t i = 1; i < MAX_BLOCK_NESTING; ++i)
        source += "if a, elseif b\n";
    source += "y = a";
    for (std::size_t i = 2; i < MAX_EXPRESSION_HEIGHT; ++i)
        source += "|a";
    source += ";\n";
    for (std::size_t i = 0; i < MAX_BLOCK_NESTING; ++i)
        source += "end\n";
    const ParsedFile file = testing::parse(source + "a = 1;\n");
    EXPECT_EQ(testing::dumpErrors(file), "");
    EXPECT_EQ(ask(file, file.constructs.at(0)), "a | a | k y");
}

} // namespace
} // namespace ostrel
