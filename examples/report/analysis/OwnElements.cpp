#include "report/analysis/OwnElements.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace ostrel::report {

using namespace zt::orvex;

/// Collects the shapes of all indices that directly follow a name.
class OwnElements::Finder {
public:
    Finder(SymbolView variable, OwnElements& found) : loopVariable(variable), into(found) {}

    void visit(NodeView node) {
        switch (node.getKind()) {
        case NodeKind::AssignmentStatement:
            noteRemoval(AssignmentStatementView(node));
            break;
        case NodeKind::BraceOperation: {
            const BraceOperationView operation(node);
            noteIndex(operation.getBraceBase(), operation.getBraceArguments());
            break;
        }
        case NodeKind::ParenOperation: {
            const ParenOperationView operation(node);
            noteIndex(operation.getParenBase(), operation.getParenArguments());
            break;
        }
        case NodeKind::Identifier: {
            const SymbolView symbol = IdentifierView(node).getIdentifierSymbol();
            restrict(into.uses, symbol, into.indexed[node]);
            break;
        }
        default:
            break;
        }
    }

private:
    bool isLoopVariable(NodeView expression) const {
        while (expression.getKind() == NodeKind::ParenthesizedExpression)
            expression = ParenthesizedExpressionView(expression).getParenthesizedInner();
        return expression.getKind() == NodeKind::Identifier &&
               IdentifierView(expression).getIdentifierSymbol() == loopVariable;
    }

    /// The walk visits an operation before its base, so the index is kept until then.
    void noteIndex(NodeView base, ExpressionRangeView arguments) {
        if (base.getKind() != NodeKind::Identifier || base == removed) return;
        IndexShape shape;
        for (const NodeView argument : arguments) {
            if (isLoopVariable(argument)) shape.places.push_back(shape.size);
            ++shape.size;
        }
        into.indexed[base] = std::move(shape);
    }

    void noteRemoval(AssignmentStatementView assignment) {
        const NodeView value = assignment.getAssignmentRhs();
        const NodeView target = assignment.getAssignmentLhs();
        if (value.getKind() != NodeKind::Matrix || MatrixView(value).getMatrixRows().size() != 0)
            return;
        if (target.getKind() == NodeKind::ParenOperation)
            removed = ParenOperationView(target).getParenBase();
    }

    SymbolView loopVariable;
    NodeView removed{}; ///< What the last removal so far takes elements from.
    OwnElements& into;
};

OwnElements::OwnElements(const ConstructFacts& facts) {
    const ParforStatementView loop(facts.construct.node);
    const SymbolView loopVariable = IdentifierView(loop.getParforVariable()).getIdentifierSymbol();
    Finder finder(loopVariable, *this);
    for (const NodeView statement : loop.getParforBody())
        forEachNodeIn(statement, [&](NodeView node) { finder.visit(node); });
    for (kit::FlowNode node = 0; node < facts.graph.size(); ++node) {
        if (!facts.unwritten.isReachable(node)) continue;
        for (const kit::Access& access : facts.graph.accesses(node)) {
            if (!kit::isWrite(access.kind)) continue;
            restrict(writes, access.symbol, indexed[access.identifier]);
        }
    }
    loopVariableIsWritten = writes.count(loopVariable) != 0;
    if (!loopVariableIsWritten) return;
    indexed.clear();
    uses.clear();
    writes.clear();
}

bool OwnElements::hasOnlyOwn(SymbolView variable) const {
    const auto found = uses.find(variable);
    return found != uses.end() && !found->second.places.empty();
}

bool OwnElements::isOwn(const kit::Access& access) const {
    const auto use = indexed.find(access.identifier);
    const auto written = writes.find(access.symbol);
    if (use == indexed.end() || written == writes.end()) return false;
    IndexShape common = use->second;
    restrict(common, written->second);
    return !common.places.empty();
}

bool OwnElements::isIndexedByLoopVariable(const kit::Access& access) const {
    const auto use = indexed.find(access.identifier);
    return use != indexed.end() && !use->second.places.empty();
}

void OwnElements::restrict(IndexShape& known, const IndexShape& shape) {
    std::vector<std::size_t> common;
    if (known.size == shape.size) {
        std::set_intersection(known.places.begin(), known.places.end(), shape.places.begin(),
                              shape.places.end(), std::back_inserter(common));
    }
    known.places = std::move(common);
}

void OwnElements::restrict(Shapes& shapes, SymbolView variable, const IndexShape& shape) {
    const auto [known, isFirst] = shapes.emplace(variable, shape);
    if (!isFirst) restrict(known->second, shape);
}

} // namespace ostrel::report
