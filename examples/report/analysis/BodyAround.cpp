#include "report/analysis/BodyAround.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace ostrel::report {

using namespace zt::orvex;

Stretch::Stretch(flow::OrderedSet<SymbolView> variables, StatementRangeView statements)
    : universe(std::move(variables)),
      // For every variable but `ans`, this mode is the same as Plain.
      graph(universe, statements, flow::AnalysisTypeView::May, flow::AnalysisModeView::Ans) {}

BodyAround::BodyAround(const Tree& program, StatementRangeView body,
                       std::vector<SymbolView> outputVariables)
    : tree(program), statements(body), outputs(std::move(outputVariables)) {
    for (const NodeView statement : statements) {
        begins.push_back(tree.beginOffset(statement));
        noteMentions(begins.size() - 1);
    }
    isLookedAt.resize(begins.size());
}

void BodyAround::noteMentions(std::size_t statement) {
    forEachNodeIn(statements[statement], [&](NodeView node) {
        if (node.getKind() == NodeKind::ReturnStatement) noteReturn(statement);
        if (node.getKind() != NodeKind::Identifier) return;
        const SymbolView symbol = IdentifierView(node).getIdentifierSymbol();
        if (!symbol.view->isVariableSymbol(symbol.symbol)) return;
        std::vector<Mention>& known = mentions[symbol].all;
        if (known.empty() || known.back().statement != statement) known.push_back({statement});
    });
}

void BodyAround::noteReturn(std::size_t statement) {
    if (returns.empty() || returns.back() != statement) returns.push_back(statement);
}

std::size_t BodyAround::indexOf(NodeView node) const {
    const auto next = std::upper_bound(begins.begin(), begins.end(), tree.beginOffset(node));
    return static_cast<std::size_t>(next - begins.begin()) - 1;
}

bool BodyAround::isOutput(SymbolView variable) const {
    return std::find(outputs.begin(), outputs.end(), variable) != outputs.end();
}

bool BodyAround::isReachable(NodeView node) {
    if (!whole) {
        whole = std::make_unique<Stretch>(flow::OrderedSet<SymbolView>(), statements);
        reached = std::make_unique<UnwrittenVariables>(whole->graph);
    }
    const boost::optional<kit::FlowNode> found = whole->graph.find(node);
    return found && reached->isReachable(*found);
}

const Stretch& BodyAround::statement(std::size_t index) {
    if (currentStretch && current == index) return *currentStretch;
    flow::OrderedSet<SymbolView> variables;
    forEachNodeIn(statements[index], [&](NodeView node) {
        if (node.getKind() != NodeKind::Identifier) return;
        const SymbolView symbol = IdentifierView(node).getIdentifierSymbol();
        if (symbol.view->isVariableSymbol(symbol.symbol)) variables.add(symbol);
    });
    currentStretch = std::make_unique<Stretch>(
        std::move(variables), StatementRangeView{statements.first + index, 1, statements.view});
    current = index;
    return *currentStretch;
}

std::unique_ptr<Stretch> BodyAround::stretch(std::size_t first, std::size_t last,
                                             SymbolView variable) const {
    return std::make_unique<Stretch>(
        flow::OrderedSet<SymbolView>{variable},
        StatementRangeView{statements.first + first, last - first + 1, statements.view});
}

void BodyAround::lookAt(std::size_t index) {
    if (isLookedAt[index]) return;
    isLookedAt[index] = true;
    const Stretch& alone = statement(index);
    const UnwrittenVariables unwritten(alone.graph);
    for (std::uint64_t i = 0; i < alone.universe.size(); ++i) {
        std::vector<Mention>& known = mentions[alone.universe.elementAt(i)].all;
        const auto mention = std::lower_bound(
            known.begin(), known.end(), index,
            [](const Mention& a, std::size_t statement) { return a.statement < statement; });
        mention->mayRead = alone.graph.isLiveBefore(alone.graph.entry(), i);
        mention->mayKeep = unwritten.contain(alone.graph.exit(), i);
    }
}

/// `decide` says of a mention where it leads: to a statement, to nowhere (size()), or on (nothing).
template <typename Decide>
std::size_t BodyAround::firstDecision(std::size_t after, Mentions& of, Decisions& known,
                                      Decide decide) {
    known.resize(of.all.size());
    const auto first = static_cast<std::size_t>(
        std::upper_bound(of.all.begin(), of.all.end(), after,
                         [](std::size_t statement, const Mention& mention) {
                             return statement < mention.statement;
                         }) -
        of.all.begin());
    std::size_t next = first;
    while (next < of.all.size() && !known[next]) {
        lookAt(of.all[next].statement);
        known[next] = decide(of.all[next]);
        ++next;
        if (known[next - 1]) break;
    }
    const bool isDecided = next > first && known[next - 1].has_value();
    const std::size_t decision = isDecided              ? *known[next - 1]
                                 : next < of.all.size() ? *known[next]
                                                        : size();
    for (std::size_t passed = first; passed < next; ++passed)
        known[passed] = decision;
    return decision;
}

std::optional<std::size_t> BodyAround::nextRead(std::size_t after, SymbolView variable) {
    Mentions& of = mentions[variable];
    const auto decide = [&](const Mention& mention) -> std::optional<std::size_t> {
        if (mention.mayRead) return mention.statement;
        if (!mention.mayKeep) return size();
        return {};
    };
    const std::size_t read = firstDecision(after, of, of.reads, decide);
    return read == size() ? std::nullopt : std::optional<std::size_t>(read);
}

bool BodyAround::mayReturn(std::size_t after, SymbolView variable) {
    if (!isOutput(variable)) return false;
    Mentions& of = mentions[variable];
    const auto decide = [](const Mention& mention) {
        return mention.mayKeep ? std::nullopt : std::optional<std::size_t>(mention.statement);
    };
    const std::size_t write = firstDecision(after, of, of.writes, decide);
    const auto jump = std::lower_bound(returns.begin(), returns.end(), after);
    return write == size() || (jump != returns.end() && *jump <= write);
}

} // namespace ostrel::report
