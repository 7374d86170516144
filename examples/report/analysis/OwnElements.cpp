#include "report/analysis/OwnElements.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>

#include <boost/optional.hpp>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <unordered_map>
#include <vector>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

/// Where an index has the loop variable. `places` becomes empty if two uses of a variable differ.
struct IndexShape {
    std::size_t size = 0;
    std::vector<std::size_t> places; ///< Sorted; the arguments that are the bare loop variable.
};

class OwnElementFinder {
public:
    explicit OwnElementFinder(SymbolView variable) : loopVariable(variable) {}

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
        case NodeKind::Identifier:
            noteUse(IdentifierView(node));
            break;
        default:
            break;
        }
    }

    std::unordered_set<SymbolView> result() const {
        std::unordered_set<SymbolView> own;
        for (const auto& [symbol, shape] : shapes) {
            if (!shape.places.empty()) own.insert(symbol);
        }
        return own;
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
        if (base.getKind() != NodeKind::Identifier) return;
        IndexShape shape;
        for (const NodeView argument : arguments) {
            if (isLoopVariable(argument)) shape.places.push_back(shape.size);
            ++shape.size;
        }
        indexed[base] = std::move(shape);
    }

    void noteRemoval(AssignmentStatementView assignment) {
        const NodeView value = assignment.getAssignmentRhs();
        const NodeView target = assignment.getAssignmentLhs();
        if (value.getKind() != NodeKind::Matrix || MatrixView(value).getMatrixRows().size() != 0)
            return;
        if (target.getKind() == NodeKind::ParenOperation)
            removals.insert(ParenOperationView(target).getParenBase());
    }

    void noteUse(IdentifierView name) {
        const auto use = indexed.find(name);
        const bool isIndexed = use != indexed.end() && removals.count(name) == 0;
        const IndexShape shape = isIndexed ? use->second : IndexShape();
        const auto [known, isFirst] = shapes.emplace(name.getIdentifierSymbol(), shape);
        if (!isFirst) restrict(known->second, shape);
    }

    static void restrict(IndexShape& known, const IndexShape& shape) {
        std::vector<std::size_t> common;
        if (known.size == shape.size) {
            std::set_intersection(known.places.begin(), known.places.end(), shape.places.begin(),
                                  shape.places.end(), std::back_inserter(common));
        }
        known.places = std::move(common);
    }

    SymbolView loopVariable;
    std::unordered_map<NodeView, IndexShape> indexed;
    std::unordered_set<NodeView> removals;
    std::unordered_map<SymbolView, IndexShape> shapes;
};

} // namespace

std::unordered_set<SymbolView> findOwnElements(ParforStatementView loop) {
    OwnElementFinder finder(IdentifierView(loop.getParforVariable()).getIdentifierSymbol());
    for (const NodeView statement : loop.getParforBody())
        forEachNodeIn(statement, [&](NodeView node) { finder.visit(node); });
    return finder.result();
}

} // namespace ostrel::report
