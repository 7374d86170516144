#include "report/analysis/UsedAfter.h"

#include "report/analysis/LibraryAnswers.h"

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex_kit/reasons/Explain.h>

#include <boost/optional.hpp>

#include <algorithm>
#include <utility>

namespace ostrel::report {

using namespace zt::orvex;
using kit::FlowGraph;
using kit::FlowNode;

namespace {

/// Whether the variable is live where control leaves the construct.
bool isLiveAfter(const FlowGraph& construct, const FlowGraph& around, std::uint64_t index) {
    const auto isInside = [&](FlowNode node) {
        return !around.isPseudoNode(node) && construct.find(around.nodeAt(node)).has_value();
    };
    for (FlowNode inner = 1; inner + 1 < construct.size(); ++inner) {
        const boost::optional<FlowNode> node = around.find(construct.nodeAt(inner));
        if (!node) continue;
        for (const FlowNode next : around.successors(*node)) {
            if (around.isLiveBefore(next, index) && !isInside(next)) return true;
        }
    }
    return false;
}

std::optional<LostValue> lostValue(boost::optional<kit::ValueUsedAfter> reason,
                                   std::shared_ptr<const FlowGraph> around) {
    if (!reason) return {};
    return LostValue{*std::move(reason), std::move(around)};
}

/// The graph of a stretch, which it keeps alive.
std::shared_ptr<const FlowGraph> graphOf(std::unique_ptr<Stretch> stretch) {
    const std::shared_ptr<const Stretch> shared = std::move(stretch);
    return {shared, &shared->graph};
}

} // namespace

UsedAfter::UsedAfter(const ParsedFile& parsed) : file(parsed), occurrences(*parsed.tree) {
    const std::vector<Node>& nodes = file.tree->parts().nodes;
    for (NodeId id = 0; id < nodes.size(); ++id) {
        if (nodes[id].kind == NodeKind::FunctionDefinition)
            functions.push_back(file.tree->view(id));
    }
    std::sort(functions.begin(), functions.end(), [&](NodeView a, NodeView b) {
        return file.tree->beginOffset(a) < file.tree->beginOffset(b);
    });
    std::unordered_map<NodeId, std::size_t> constructs;
    std::optional<std::size_t> around;
    for (std::size_t i = 0; i < file.constructs.size(); ++i) {
        const ostrel::Construct& construct = file.constructs[i];
        while (around && file.tree->endOffset(file.constructs[*around].node) <= construct.offset)
            around = enclosing[*around];
        enclosing.push_back(around);
        around = i;
        constructs.emplace(static_cast<NodeId>(construct.node.node), i);
    }
    elements.resize(file.constructs.size());
    const std::vector<NodeId>& all = file.tree->parts().elements;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto construct = constructs.find(all[i]);
        if (construct != constructs.end()) elements[construct->second] = i;
    }
}

/// The function around a construct, or the program.
NodeView UsedAfter::scopeAround(std::size_t construct) const {
    const std::size_t offset = file.constructs[construct].offset;
    const auto next = std::upper_bound(
        functions.begin(), functions.end(), offset,
        [&](std::size_t at, NodeView f) { return at < file.tree->beginOffset(f); });
    if (next == functions.begin()) return file.root;
    const NodeView function = *std::prev(next);
    return offset < file.tree->endOffset(function) ? function : file.root;
}

BodyAround& UsedAfter::bodyAround(std::size_t construct) {
    const std::optional<std::size_t> outer = enclosing[construct];
    const NodeView owner = outer ? file.constructs[*outer].node : scopeAround(construct);
    std::unique_ptr<BodyAround>& body = bodies[owner];
    if (body) return *body;
    std::vector<SymbolView> outputs;
    StatementRangeView statements{};
    if (outer) {
        statements = bodyOf(file.constructs[*outer]);
    } else if (owner.getKind() == NodeKind::FunctionDefinition) {
        const FunctionDefinitionView function(owner);
        const NodeRangeView members = function.getFunctionMembers();
        statements = {members.first, members.second, members.view};
        for (const NodeView output : function.getFunctionOutputs())
            outputs.push_back(IdentifierView(output).getIdentifierSymbol());
    } else {
        const NodeRangeView nodes = ProgramView(owner).getProgramNodes();
        statements = {nodes.first, nodes.second, nodes.view};
    }
    body = std::make_unique<BodyAround>(*file.tree, occurrences, statements, std::move(outputs));
    return *body;
}

NodeView UsedAfter::declaredOutput(std::size_t construct, SymbolView variable) const {
    for (const NodeView output :
         FunctionDefinitionView(scopeAround(construct)).getFunctionOutputs()) {
        if (IdentifierView(output).getIdentifierSymbol() == variable) return output;
    }
    return scopeAround(construct);
}

std::optional<LostValue> UsedAfter::find(std::size_t index, const FlowGraph& body,
                                         SymbolView variable, bool isLoopVariable) {
    auto found = findFrom(index, body, variable, isLoopVariable);
    const bool isReached = found && bodyAround(index).isReachable(file.constructs[index].node);
    return isReached ? std::move(found) : std::nullopt;
}

/// As `find`, if control comes to the construct.
std::optional<LostValue> UsedAfter::findFrom(std::size_t index, const FlowGraph& body,
                                             SymbolView variable, bool isLoopVariable) {
    BodyAround& around = bodyAround(index);
    const NodeView node = file.constructs[index].node;
    const std::size_t first = around.indexOf(node);
    const bool isAlone = around.isStatement(first, node);
    const bool isMentionedLater = occurrences.isMentionedFrom(file.tree->endOffset(node), variable);
    if (isAlone && !isMentionedLater && !around.isOutput(variable)) return {};

    // The head writes the variable of the loop, so for that one it is a part of the construct.
    std::unique_ptr<Stretch> whole;
    const auto construct = [&]() -> const FlowGraph& {
        if (!isLoopVariable) return body;
        if (!whole)
            whole = std::make_unique<Stretch>(flow::OrderedSet<SymbolView>{variable},
                                              StatementRangeView{elements[index], 1, node.view});
        return whole->graph;
    };
    if (!isAlone) {
        const Stretch& here = around.statement(first);
        if (isLiveAfter(construct(), here.graph, here.universe.indexOrSize(variable))) {
            auto stretch = around.stretch(first, first, variable);
            auto reason = kit::explainUsedAfter(construct(), stretch->graph, variable);
            if (reason) return lostValue(std::move(reason), graphOf(std::move(stretch)));
        }
    }
    if (const std::optional<std::size_t> read = around.nextRead(first, variable)) {
        auto stretch = around.stretch(first, *read, variable);
        auto reason = kit::explainUsedAfter(construct(), stretch->graph, variable);
        if (reason) return lostValue(std::move(reason), graphOf(std::move(stretch)));
    }
    if (!around.mayReturn(first, variable)) return {};
    auto stretch = around.stretch(first, around.size() - 1, variable);
    auto reason = kit::explainReachesExit(construct(), stretch->graph, variable);
    return lostValue(std::move(reason), graphOf(std::move(stretch)));
}

} // namespace ostrel::report
