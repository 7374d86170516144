#include "report/HeadAccesses.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

/// Visits the parts of a head. Visits each target twice, once for the names that it reads and once
/// for the one that it writes, so that all reads come first.
class HeadVisitor {
public:
    explicit HeadVisitor(const std::function<void(const Access&)>& callback) : found(callback) {}

    void read(NodeView expression) const {
        forEachNodeIn(expression, [this](NodeView node) {
            if (node.getKind() == NodeKind::Identifier) found({AccessKind::Read, node});
        });
    }

    void readWithin(NodeView target) const {
        const NodeView base = baseOfTarget(target);
        forEachNodeIn(target, [&](NodeView node) {
            if (node.getKind() == NodeKind::Identifier && node != base)
                found({AccessKind::Read, node});
        });
    }

    void write(NodeView target) const {
        const NodeView base = baseOfTarget(target);
        if (base.getKind() != NodeKind::Identifier) return;
        found({base == target ? AccessKind::WholeWrite : AccessKind::PartWrite, base});
    }

    template <typename Range>
    void readEach(const Range& range) const {
        for (const NodeView expression : range)
            read(expression);
    }

    template <typename Range>
    void assignEach(const Range& targets, NodeView value) const {
        read(value);
        for (const NodeView target : targets)
            readWithin(target);
        for (const NodeView target : targets)
            write(target);
    }

    void assign(NodeView target, NodeView value) const {
        read(value);
        readWithin(target);
        write(target);
    }

private:
    const std::function<void(const Access&)>& found;
};

} // namespace

NodeView baseOfTarget(NodeView target) {
    while (true) {
        switch (target.getKind()) {
        case NodeKind::BraceOperation:
            target = BraceOperationView(target).getBraceBase();
            break;
        case NodeKind::DotOperation:
            target = DotOperationView(target).getDotBase();
            break;
        case NodeKind::DynamicFieldOperation:
            target = DynamicFieldOperationView(target).getDynamicFieldBase();
            break;
        case NodeKind::ParenOperation:
            target = ParenOperationView(target).getParenBase();
            break;
        default:
            return target;
        }
    }
}

void forEachHeadAccess(NodeView statement, const std::function<void(const Access&)>& found) {
    const HeadVisitor visit(found);
    switch (statement.getKind()) {
    case NodeKind::AssignmentStatement: {
        const AssignmentStatementView assignment(statement);
        visit.assign(assignment.getAssignmentLhs(), assignment.getAssignmentRhs());
        break;
    }
    case NodeKind::CaseClause:
        visit.read(CaseClauseView(statement).getCaseExpression());
        break;
    case NodeKind::CatchClause:
        if (const auto variable = CatchClauseView(statement).getCatchIdentifier())
            visit.write(*variable);
        break;
    case NodeKind::CommandStatement: {
        const CommandStatementView command(statement);
        visit.assign(command.getCommandTarget(), command.getCommandCallee());
        break;
    }
    case NodeKind::ElseIfClause:
        visit.read(ElseIfClauseView(statement).getElseIfCondition());
        break;
    case NodeKind::ExpressionStatement: {
        const ExpressionStatementView expression(statement);
        visit.assign(expression.getExpressionStatementTarget(),
                     expression.getExpressionStatementExpression());
        break;
    }
    case NodeKind::ForStatement: {
        const ForStatementView loop(statement);
        visit.assign(loop.getForVariable(), loop.getForExpression());
        break;
    }
    case NodeKind::IfStatement:
        visit.read(IfStatementView(statement).getIfCondition());
        break;
    case NodeKind::MultiAssignmentStatement: {
        const MultiAssignmentStatementView assignment(statement);
        visit.assignEach(assignment.getMultiAssignmentTargets(),
                         assignment.getMultiAssignmentRhs());
        break;
    }
    case NodeKind::ParforStatement: {
        const ParforStatementView loop(statement);
        visit.readEach(loop.getParforOptions());
        visit.assign(loop.getParforVariable(), loop.getParforExpression());
        break;
    }
    case NodeKind::SpmdStatement:
        visit.readEach(SpmdStatementView(statement).getSpmdOptions());
        break;
    case NodeKind::SwitchStatement:
        visit.read(SwitchStatementView(statement).getSwitchSubject());
        break;
    case NodeKind::WhileStatement:
        visit.read(WhileStatementView(statement).getWhileCondition());
        break;
    // The library counts neither a bare name nor the `ans` of a `!` line as a use of a variable.
    default:
        break;
    }
}

} // namespace ostrel::report
