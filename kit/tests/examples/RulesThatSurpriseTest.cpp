#include "frontend/ParsedFile.h"

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex_kit/body/FlowGraph.h>
#include <zt_orvex_kit/reasons/CheckExplanation.h>
#include <zt_orvex_kit/reasons/Explain.h>
#include <zt_orvex_kit/tree/SymbolNames.h>

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

// The programs of docs/rules-that-surprise.md, and what the page says of them.
namespace zt::orvex::kit {
namespace {

struct Rule {
    std::string title;
    std::string program;
    std::string claim;
};

/// A rule is a heading, a program in a fenced block, and a line that begins with "Live".
std::vector<Rule> readRules() {
    std::ifstream page(ZT_ORVEX_RULES);
    std::vector<Rule> rules;
    bool isProgram = false;
    for (std::string line; std::getline(page, line);) {
        if (line.rfind("## ", 0) == 0) {
            rules.push_back({line.substr(3), "", ""});
        } else if (line.rfind("```", 0) == 0) {
            isProgram = line == "```ostrel";
        } else if (isProgram) {
            rules.back().program += line + '\n';
        } else if (line.rfind("Live ", 0) == 0) {
            rules.back().claim = line;
        }
    }
    return rules;
}

std::string liveIn(const ostrel::ParsedFile& file, flow::AnalysisTypeView type) {
    const ostrel::Construct& construct = file.constructs.front();
    const ostrel::Scope& scope = file.scopes[construct.scope];
    const flow::OrderedSet<SymbolView> universe(scope.universe.begin(), scope.universe.end());
    const FlowGraph graph(universe, ParforStatementView(construct.node).getParforBody(), type,
                          flow::AnalysisModeView::Plain);
    for (const SymbolView& symbol : universe) {
        const Explanation why = explain(graph, symbol);
        EXPECT_EQ(checkExplanation(graph, symbol, why).objection, "");
    }
    std::istringstream names(SymbolNames(file.root).list(graph.liveAtEntry()));
    std::string text;
    for (std::string name; names >> name;)
        text += (text.empty() ? "`" : ", `") + name + '`';
    return text.empty() ? "nothing" : text;
}

TEST(RulesThatSurprise, EveryProgramOfThePageGivesWhatThePageSays) {
    const std::vector<Rule> rules = readRules();
    EXPECT_GT(rules.size(), 20U);
    for (const Rule& rule : rules) {
        SCOPED_TRACE(rule.title);
        // Written somewhere, so that they are variables.
        const std::string text =
            "a = 0; b = 0; c = 0; s = 0; x = 0; y = 0;\nparfor i = 1:9\n" + rule.program + "end\n";
        const ostrel::ParsedFile file = ostrel::parseOstrel("rule.ost", text);
        ASSERT_FALSE(file.hasErrors()) << text;
        ASSERT_FALSE(file.constructs.empty());
        EXPECT_EQ("Live under `May`: " + liveIn(file, flow::AnalysisTypeView::May) +
                      ". Live under `Must`: " + liveIn(file, flow::AnalysisTypeView::Must) + ".",
                  rule.claim);
    }
}

} // namespace
} // namespace zt::orvex::kit
