#include "RandomConstruct.h"
#include "ReportOf.h"

#include "report/analysis/CarriedValues.h"
#include "report/analysis/LibraryAnswers.h"
#include "report/analysis/MentionedVariables.h"
#include "report/analysis/UsedAfter.h"
#include "source/Utf8.h"
#include "testing/Random.h"

#include <zt_orvex_kit/reasons/CheckExplanation.h>
#include <zt_orvex_kit/reasons/Explain.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>

namespace ostrel::report::testing {

namespace {

using namespace zt::orvex;

/// A program with parallel constructs in a script and in a function with outputs, and uses of all
/// variables around them.
std::string nextProgram(zt::orvex::testing::Random& random) {
    RandomConstruct constructs(random);
    std::string text = constructs.next();
    if (random.oneIn(2)) text += "show(a, b, c, d, j, k)\n";
    if (random.oneIn(2)) text = "for r = 1:3\n" + text + "end\n";
    text += constructs.next();
    text += "function [a, b, j, k] = f(c, d)\n" + constructs.next();
    if (random.oneIn(2)) text += "if c, a = 1; show(k, j), end\n";
    return text + "end\n";
}

kit::FlowGraph wholeStatement(const ParsedFile& file, const ostrel::Construct& construct,
                              const flow::OrderedSet<SymbolView>& universe) {
    const auto& elements = file.tree->parts().elements;
    std::uint64_t first = 0;
    while (elements[first] != construct.node.node)
        ++first;
    return {universe, StatementRangeView{first, 1, construct.node.view},
            flow::AnalysisTypeView::May, flow::AnalysisModeView::Ans};
}

TEST(RemarksRandom, EveryCarriedValueIsProved) {
    zt::orvex::testing::Random random;
    SCOPED_TRACE(random.describe());
    std::size_t carried = 0;
    for (std::size_t i = zt::orvex::testing::rounds(500); i > 0; --i) {
        const std::string text = nextProgram(random);
        const ParsedFile file = parseOstrel("random.ost", text);
        const File report = analyze(parseOstrel("random.ost", text));
        ASSERT_EQ(report.constructs.size(), file.constructs.size());
        for (std::size_t c = 0; c < file.constructs.size(); ++c) {
            const ostrel::Construct& construct = file.constructs[c];
            if (kindOf(construct) != ConstructKind::Parfor) continue;
            const ostrel::Scope& scope = file.scopes[construct.scope];
            const ConstructFacts facts(construct, scope.universe, scope.ans);
            const OwnElements own(facts);
            std::set<std::string> remarked;
            for (const Remark& remark : report.remarks) {
                if (remark.construct == c && remark.code == RemarkCode::Carried)
                    remarked.insert(remark.variable);
            }
            std::set<std::string> expected;
            for (const Variable& variable : report.constructs[c].variables) {
                if (variable.role != Role::Carried) continue;
                expected.insert(variable.name);
                for (const SymbolView symbol : scope.universe) {
                    if (file.tree->symbolName(symbol) !=
                        std::u16string(variable.name.begin(), variable.name.end()))
                        continue;
                    const auto why = explainCarriedValue(facts, own, symbol);
                    ASSERT_TRUE(why) << variable.name << " in\n" << text;
                    ASSERT_EQ(kit::checkCarried(facts.graph, symbol, *why).objection, "");
                    ++carried;
                }
            }
            ASSERT_EQ(remarked, expected) << text;
        }
    }
    EXPECT_GT(carried, 0U);
}

/// The body around a construct as a whole, and its owner's outputs.
struct WholeBody {
    StatementRangeView statements;
    std::set<std::uint64_t> outputs;
};

WholeBody bodyAround(const ParsedFile& file, std::size_t construct) {
    const std::size_t offset = file.constructs[construct].offset;
    for (std::size_t outer = construct; outer-- > 0;) {
        if (file.tree->endOffset(file.constructs[outer].node) > offset)
            return {bodyOf(file.constructs[outer]), {}};
    }
    NodeRangeView nodes = ProgramView(file.root).getProgramNodes();
    WholeBody whole;
    for (const NodeView node : nodes) {
        if (node.getKind() != NodeKind::FunctionDefinition) continue;
        if (offset < file.tree->beginOffset(node) || offset >= file.tree->endOffset(node)) continue;
        nodes = FunctionDefinitionView(node).getFunctionMembers();
        for (const NodeView output : FunctionDefinitionView(node).getFunctionOutputs())
            whole.outputs.insert(IdentifierView(output).getIdentifierSymbol().symbol);
        break;
    }
    whole.statements = {nodes.first, nodes.second, nodes.view};
    return whole;
}

// The search looks at single statements only; the whole body must give the same.
TEST(RemarksRandom, ValuesUsedAfterAConstructAreThoseOfTheWholeBodyAndAreProved) {
    zt::orvex::testing::Random random;
    SCOPED_TRACE(random.describe());
    std::size_t used = 0;
    std::size_t returned = 0;
    for (std::size_t i = zt::orvex::testing::rounds(500); i > 0; --i) {
        const std::string text = nextProgram(random);
        SCOPED_TRACE(text);
        const ParsedFile file = parseOstrel("random.ost", text);
        const MentionedVariables mentioned(file);
        UsedAfter usedAfter(file);
        for (std::size_t c = 0; c < file.constructs.size(); ++c) {
            const ostrel::Construct& construct = file.constructs[c];
            if (kindOf(construct) != ConstructKind::Parfor) continue;
            const ConstructFacts facts(construct, mentioned.in(construct),
                                       file.scopes[construct.scope].ans);
            const SymbolView loopVariable =
                IdentifierView(ParforStatementView(construct.node).getParforVariable())
                    .getIdentifierSymbol();
            const WholeBody whole = bodyAround(file, c);
            const kit::FlowGraph around(facts.universe, whole.statements,
                                        flow::AnalysisTypeView::May, flow::AnalysisModeView::Ans);
            const kit::FlowGraph statement = wholeStatement(file, construct, facts.universe);
            for (const SymbolView symbol : facts.universe) {
                const bool isLoopVariable = symbol == loopVariable;
                const kit::FlowGraph& inside = isLoopVariable ? statement : facts.graph;
                const bool isRead = kit::explainUsedAfter(inside, around, symbol).has_value();
                const bool isReturned = whole.outputs.count(symbol.symbol) != 0 &&
                                        kit::explainReachesExit(inside, around, symbol);
                const auto lost = usedAfter.find(c, facts.graph, symbol, isLoopVariable);
                ASSERT_EQ(lost.has_value(), isRead || isReturned)
                    << toUtf8(file.tree->symbolName(symbol)) << " of construct " << c;
                if (!lost) continue;
                const bool isAtExit = lost->reason.path.end == kit::PathEnd::Exit;
                const auto check =
                    isAtExit ? kit::checkReachesExit(inside, *lost->around, symbol, lost->reason)
                             : kit::checkUsedAfter(inside, *lost->around, symbol, lost->reason);
                ASSERT_EQ(check.objection, "");
                ++(isAtExit ? returned : used);
            }
        }
    }
    EXPECT_GT(used, 0U);
    EXPECT_GT(returned, 0U);
}

} // namespace

} // namespace ostrel::report::testing
