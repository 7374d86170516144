#include "report/analysis/PathSteps.h"

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>

#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace ostrel::report {

using namespace zt::orvex;
using kit::FlowNode;

namespace {

/// The extent of a node that begins with a keyword is a whole block, so only the word is shown.
std::size_t keywordLength(NodeKind kind) {
    switch (kind) {
    case NodeKind::ForStatement:
    case NodeKind::TryStatement:
        return 3;
    case NodeKind::CaseClause:
    case NodeKind::SpmdStatement:
        return 4;
    case NodeKind::WhileStatement:
        return 5;
    case NodeKind::ParforStatement:
    case NodeKind::SwitchStatement:
        return 6;
    default:
        return 0;
    }
}

/// Writes the decisions along a path.
class DecisionWriter {
public:
    DecisionWriter(const kit::FlowGraph& in, const PlaceFinder& placeFinder)
        : graph(in), places(placeFinder) {
        findBlocksThatDropErrors();
    }

    /// The decision at `from` to go to `to`, if it is one; `before` is where control came from.
    void add(FlowNode before, FlowNode from, FlowNode to) {
        previous = before;
        node = graph.nodeAt(from);
        next = to;
        decide(from);
    }

    Path steps;

private:
    void decide(FlowNode from) {
        if (leadsToCatch()) return step(headOf(node), "an error ", " is caught");
        switch (node.getKind()) {
        case NodeKind::ForStatement:
            return decideLoop(ForStatementView(node).getForBody());
        case NodeKind::WhileStatement:
            return decideLoop(WhileStatementView(node).getWhileBody());
        case NodeKind::ParforStatement:
            return step(headOf(node), "the parfor ",
                        leadsInto(ParforStatementView(node).getParforBody())
                            ? " runs an iteration"
                            : " may run no iteration");
        case NodeKind::IfStatement:
            return decideCondition(IfStatementView(node).getIfCondition(),
                                   IfStatementView(node).getIfBody());
        case NodeKind::ElseIfClause:
            return decideCondition(ElseIfClauseView(node).getElseIfCondition(),
                                   ElseIfClauseView(node).getElseIfBody());
        case NodeKind::CaseClause:
            return step(headOf(node), "the case ",
                        leadsInto(CaseClauseView(node).getCaseBody()) ? " may match"
                                                                      : " may not match");
        case NodeKind::BreakStatement:
            return step(places.of(node), "the break ", " leaves the loop");
        case NodeKind::ContinueStatement:
            return step(places.of(node), "the continue ", " ends the iteration");
        case NodeKind::ReturnStatement:
            return step(places.of(node), "the return ", " is reached");
        default:
            return decideError(from);
        }
    }

    void decideLoop(StatementRangeView body) {
        const bool isRepeated = isIn(previous, body);
        if (leadsInto(body))
            return step(headOf(node), "the loop ",
                        isRepeated ? " runs again" : " runs an iteration");
        step(headOf(node), "the loop ", isRepeated ? " ends" : " may run no iteration");
    }

    void decideCondition(NodeView condition, StatementRangeView body) {
        step(places.of(condition), "the condition ",
             leadsInto(body) ? " may be true" : " may be false");
    }

    /// Without a catch clause, an error leads out of the middle of a try.
    void decideError(FlowNode from) {
        const auto block = droppingErrors.find(from);
        if (block != droppingErrors.end() && leadsOutOf(TryStatementView(block->second)))
            step(headOf(node), "an error after the statement ", " may end the try");
    }

    /// Flow nodes come in source order.
    void findBlocksThatDropErrors() {
        std::vector<NodeView> open;
        for (FlowNode each = 0; each < graph.size(); ++each) {
            if (graph.isPseudoNode(each)) continue;
            const NodeView statement = graph.nodeAt(each);
            while (!open.empty() && !contains(places.of(open.back()), statement))
                open.pop_back();
            if (statement.getKind() == NodeKind::TryStatement &&
                !TryStatementView(statement).getTryCatch())
                open.push_back(statement);
            if (!open.empty()) droppingErrors.emplace(each, open.back());
        }
    }

    bool leadsOutOf(TryStatementView block) const {
        const StatementRangeView body = block.getTryBody();
        if (body.size() == 0) return false;
        const bool isAtItsEnd = contains(places.of(body[body.size() - 1]), node);
        const bool staysInside =
            !graph.isPseudoNode(next) && contains(places.of(block), graph.nodeAt(next));
        return !isAtItsEnd && !staysInside;
    }

    bool contains(const Place& place, NodeView inner) const {
        const std::size_t offset = places.of(inner).offset;
        return place.offset <= offset && offset < place.offset + place.length;
    }

    bool leadsToCatch() const {
        return !graph.isPseudoNode(next) && graph.nodeAt(next).getKind() == NodeKind::CatchClause;
    }

    bool isIn(FlowNode flowNode, StatementRangeView body) const {
        if (graph.isPseudoNode(flowNode) || body.size() == 0) return false;
        const std::size_t offset = places.of(graph.nodeAt(flowNode)).offset;
        const Place last = places.of(body[body.size() - 1]);
        return places.of(body[0]).offset <= offset && offset < last.offset + last.length;
    }
    bool leadsInto(StatementRangeView body) const { return isIn(next, body); }

    Place headOf(NodeView statement) const {
        const Place whole = places.of(statement);
        const std::size_t length = keywordLength(statement.getKind());
        return length == 0 ? whole : places.at(whole.offset, length);
    }

    void step(const Place& place, const char* what, const char* happens) {
        steps.push_back({place, what + ("at " + lineAndColumn(place)) + happens});
    }

    const kit::FlowGraph& graph;
    const PlaceFinder& places;
    std::unordered_map<FlowNode, NodeView> droppingErrors; ///< The innermost such try around each.
    FlowNode previous = 0;
    NodeView node{};
    FlowNode next = 0;
};

} // namespace

Path decisionsOn(const kit::FlowGraph& graph, const std::vector<FlowNode>& path,
                 const PlaceFinder& places) {
    DecisionWriter writer(graph, places);
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        if (graph.isPseudoNode(path[i])) continue;
        writer.add(i == 0 ? graph.entry() : path[i - 1], path[i], path[i + 1]);
    }
    return std::move(writer.steps);
}

std::string lineAndColumn(const Place& place) {
    return std::to_string(place.line) + ":" + std::to_string(place.column);
}

} // namespace ostrel::report
