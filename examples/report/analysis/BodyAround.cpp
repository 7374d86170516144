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

BodyAround::BodyAround(const Tree& program, const Occurrences& inProgram, StatementRangeView body,
                       std::vector<SymbolView> outputVariables)
    : tree(program), occurrences(inProgram), statements(body), outputs(std::move(outputVariables)) {
    for (const NodeView statement : statements) {
        begins.push_back(tree.beginOffset(statement));
        end = tree.endOffset(statement);
    }
    isLookedAt.resize(begins.size());
}

BodyAround::Mentions& BodyAround::mentionsOf(SymbolView variable) {
    const auto [found, isNew] = mentions.try_emplace(variable);
    Mentions& of = found->second;
    if (!isNew || begins.empty()) return of;
    const Occurrences::Offsets offsets = occurrences.of(variable);
    for (auto at = std::lower_bound(offsets.begin(), offsets.end(), begins.front());
         at != offsets.end() && *at < end; ++at) {
        const std::size_t statement = indexAt(*at);
        if (of.all.empty() || of.all.back().statement != statement) of.all.push_back({statement});
    }
    return of;
}

std::size_t BodyAround::indexAt(std::size_t offset) const {
    const auto next = std::upper_bound(begins.begin(), begins.end(), offset);
    return static_cast<std::size_t>(next - begins.begin()) - 1;
}

std::size_t BodyAround::indexOf(NodeView node) const { return indexAt(tree.beginOffset(node)); }

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
        std::vector<Mention>& known = mentionsOf(alone.universe.elementAt(i)).all;
        const auto mention = std::lower_bound(
            known.begin(), known.end(), index,
            [](const Mention& a, std::size_t statement) { return a.statement < statement; });
        mention->mayRead = alone.graph.isLiveBefore(alone.graph.entry(), i);
        mention->mayKeep = unwritten.contain(alone.graph.exit(), i);
    }
}

/// Whether the statement is a loop over the variable that doesn't read it first. Most mentions of
/// the variable of a construct are such loops, which spares them a closer look.
bool BodyAround::isWrittenByHead(std::size_t index, SymbolView variable) const {
    const NodeView statement = statements[index];
    const auto isOver = [&](NodeView name) {
        return name.getKind() == NodeKind::Identifier &&
               IdentifierView(name).getIdentifierSymbol() == variable;
    };
    bool isRead = false;
    const auto lookInto = [&](NodeView expression) {
        forEachNodeIn(expression, [&](NodeView node) { isRead = isRead || isOver(node); });
    };
    if (statement.getKind() == NodeKind::ForStatement) {
        const ForStatementView loop(statement);
        if (!isOver(loop.getForVariable())) return false;
        lookInto(loop.getForExpression());
    } else if (statement.getKind() == NodeKind::ParforStatement) {
        const ParforStatementView loop(statement);
        if (!isOver(loop.getParforVariable())) return false;
        lookInto(loop.getParforExpression());
        for (const NodeView option : loop.getParforOptions())
            lookInto(option);
    } else {
        return false;
    }
    return !isRead;
}

/// `decide` says of a mention where it leads: to a statement, to nowhere (size()), or on (nothing).
template <typename Decide>
std::size_t BodyAround::firstDecision(std::size_t after, SymbolView variable, Mentions& of,
                                      Decisions& known, Decide decide) {
    known.resize(of.all.size());
    const auto first = static_cast<std::size_t>(
        std::upper_bound(of.all.begin(), of.all.end(), after,
                         [](std::size_t statement, const Mention& mention) {
                             return statement < mention.statement;
                         }) -
        of.all.begin());
    std::size_t next = first;
    while (next < of.all.size() && !known[next]) {
        const std::size_t statement = of.all[next].statement;
        // A new mention neither reads nor keeps the value.
        if (!isWrittenByHead(statement, variable)) lookAt(statement);
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
    Mentions& of = mentionsOf(variable);
    const auto decide = [&](const Mention& mention) -> std::optional<std::size_t> {
        if (mention.mayRead) return mention.statement;
        if (!mention.mayKeep) return size();
        return {};
    };
    const std::size_t read = firstDecision(after, variable, of, of.reads, decide);
    return read == size() ? std::nullopt : std::optional<std::size_t>(read);
}

bool BodyAround::mayReturn(std::size_t after, SymbolView variable) {
    if (!isOutput(variable)) return false;
    Mentions& of = mentionsOf(variable);
    const auto decide = [](const Mention& mention) {
        return mention.mayKeep ? std::nullopt : std::optional<std::size_t>(mention.statement);
    };
    const std::size_t write = firstDecision(after, variable, of, of.writes, decide);
    if (write == size()) return true;
    const Occurrences::Offsets returns = occurrences.returns();
    const auto jump = std::lower_bound(returns.begin(), returns.end(), begins[after]);
    return jump != returns.end() && *jump < tree.endOffset(statements[write]);
}

} // namespace ostrel::report
