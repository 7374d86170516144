#include "analysis/ReadWriteCollector.h"

#include "ast/AstViewDispatcher.h"
#include "ast/Downcasts.h"
#include "ast/NodeClass.h"

#include <zt_orvex/ast/ControlFlow.h>
#include <zt_orvex/flow/internal/BitSetAccess.h>

#include <algorithm>
#include <string_view>

namespace zt::orvex::flow::internal {

using zt::orvex::internal::dispatch;
using zt::orvex::internal::isKind;

namespace {

bool isShortCircuit(BinaryOperator op) {
    return op == BinaryOperator::ShortCircuitAnd || op == BinaryOperator::ShortCircuitOr;
}

bool isElementLogical(BinaryOperator op) {
    return op == BinaryOperator::ElementAnd || op == BinaryOperator::ElementOr;
}

bool isCondition(NodeKind root) {
    return root == NodeKind::IfStatement || root == NodeKind::ElseIfClause ||
           root == NodeKind::WhileStatement;
}

/// Whether a matrix only wraps one expression, as brackets around a condition do.
bool wrapsOneExpression(const MatrixView& matrix) {
    const RowRangeView rows = matrix.getMatrixRows();
    return rows.size() == 1 && RowView(rows[0]).getRowExpressions().size() == 1;
}

/// Whether `&` and `|` below `expression` still decide about the condition that it is part of.
/// Deliberate: `&&` and `||` are no links, so in `(a | b) && c` the operand b is certain.
bool isLink(const NodeView& expression) {
    if (isKind(expression, NodeKind::BinaryOperation)) {
        return isElementLogical(
            zt::orvex::internal::toBinaryOperationView(expression).getBinaryOperator());
    }
    if (isKind(expression, NodeKind::Matrix)) {
        return wrapsOneExpression(zt::orvex::internal::toMatrixView(expression));
    }
    return isKind(expression, NodeKind::ParenthesizedExpression) ||
           isKind(expression, NodeKind::Row);
}

} // namespace

/// Which children of a statement or clause are read, and which are written.
class ReadWriteCollector::HeaderVisitor {
public:
    HeaderVisitor(ReadWriteCollector& into, const NodeView& statement)
        : collector(into), root(statement) {}

    void visit(const AssignmentStatementView& s) {
        read(s.getAssignmentRhs());
        write(s.getAssignmentLhs());
    }
    void visit(const BareIdentifierStatementView& s) { write(s.getBareIdentifier()); }
    void visit(const CaseClauseView& s) { read(s.getCaseExpression()); }
    void visit(const CatchClauseView& s) {
        const boost::optional<NodeView> identifier = s.getCatchIdentifier();
        if (identifier) write(*identifier);
    }
    void visit(const CommandStatementView& s) {
        read(s.getCommandCallee());
        write(s.getCommandTarget());
    }
    void visit(const ElseIfClauseView& s) { read(s.getElseIfCondition()); }
    void visit(const ExpressionStatementView& s) {
        read(s.getExpressionStatementExpression());
        write(s.getExpressionStatementTarget());
    }
    void visit(const ForStatementView& s) {
        read(s.getForExpression());
        write(s.getForVariable());
    }
    void visit(const IfStatementView& s) { read(s.getIfCondition()); }
    void visit(const ImplicitCommandStatementView& s) { write(s.getImplicitCommandTarget()); }
    void visit(const MultiAssignmentStatementView& s) {
        read(s.getMultiAssignmentRhs());
        collector.visitExpressionRange(s.getMultiAssignmentTargets(), root, AccessKind::Write,
                                       Certainty::Certain);
    }
    void visit(const ParforStatementView& s) {
        readAll(s.getParforOptions());
        read(s.getParforExpression());
        write(s.getParforVariable());
    }
    void visit(const SpmdStatementView& s) { readAll(s.getSpmdOptions()); }
    void visit(const SwitchStatementView& s) { read(s.getSwitchSubject()); }
    void visit(const WhileStatementView& s) { read(s.getWhileCondition()); }

    void visit(const BreakStatementView&) {}
    void visit(const ContinueStatementView&) {}
    void visit(const EmptyStatementView&) {}
    void visit(const GlobalDeclarationView&) {}
    void visit(const PersistentDeclarationView&) {}
    void visit(const PrintStatementView&) {}
    void visit(const ReturnStatementView&) {}
    void visit(const TryStatementView&) {}

    /// Deliberate: every other kind is asked whether it is a flow node, and the answer is dropped.
    void visit(const NodeView& other) { static_cast<void>(isControlFlowNode(other)); }

private:
    void read(const NodeView& child) {
        collector.visitChild(child, root, AccessKind::Read, Certainty::Certain);
    }
    void readAll(const ExpressionRangeView& children) {
        collector.visitExpressionRange(children, root, AccessKind::Read, Certainty::Certain);
    }
    void write(const NodeView& child) {
        collector.visitChild(child, root, AccessKind::Write, Certainty::Certain);
    }

    ReadWriteCollector& collector;
    const NodeView& root;
};

/// How access and certainty go down from an expression to its parts.
class ReadWriteCollector::ExpressionVisitor {
public:
    ExpressionVisitor(ReadWriteCollector& into, const NodeView& statement, AccessKind inherited,
                      Certainty certain)
        : collector(into), root(statement), access(inherited), certainty(certain) {}

    /// The body's reads count where the function is made; the parameters don't.
    void visit(const AnonymousFunctionView& e) { read(e.getAnonymousFunctionBody()); }
    void visit(const BinaryOperationView& e) {
        read(e.getBinaryLhs());
        const bool conditional =
            certainty == Certainty::Conditional || collector.isConditionalRhs(e, root);
        collector.visitChild(e.getBinaryRhs(), root, AccessKind::Read,
                             conditional ? Certainty::Conditional : Certainty::Certain);
    }
    void visit(const BraceOperationView& e) {
        readAll(e.getBraceArguments());
        inherit(e.getBraceBase());
    }
    void visit(const CellArrayView& e) { readRows(e.getCellArrayRows()); }
    void visit(const ColonOperationView& e) {
        inherit(e.getColonStart());
        const boost::optional<NodeView> step = e.getColonStep();
        if (step) inherit(*step);
        inherit(e.getColonStop());
    }
    /// The field's name is no variable.
    void visit(const DotOperationView& e) { inherit(e.getDotBase()); }
    void visit(const DynamicFieldOperationView& e) {
        read(e.getDynamicFieldExpression());
        inherit(e.getDynamicFieldBase());
    }
    void visit(const IdentifierView& e) {
        if (access == AccessKind::Write) {
            collector.recordWrite(e, root);
        } else {
            collector.recordRead(e, certainty);
        }
    }
    void visit(const MatrixView& e) { readRows(e.getMatrixRows()); }
    void visit(const NamedArgumentView& e) { inherit(e.getNamedArgumentValue()); }
    /// A call and an indexing are the same node. Subscripts are reads, also of what is written.
    void visit(const ParenOperationView& e) {
        readAll(e.getParenArguments());
        inherit(e.getParenBase());
    }
    void visit(const ParenthesizedExpressionView& e) { inherit(e.getParenthesizedInner()); }
    void visit(const RowView& e) { readAll(e.getRowExpressions()); }
    void visit(const UnaryOperationView& e) { inherit(e.getUnaryOperand()); }

    /// Literals, `:`, `end` and `~` have no effect; the other kinds are not expected here.
    void visit(const NodeView&) {}

private:
    void inherit(const NodeView& child) { collector.visitChild(child, root, access, certainty); }
    void read(const NodeView& child) {
        collector.visitChild(child, root, AccessKind::Read, certainty);
    }
    void readAll(const ExpressionRangeView& children) {
        collector.visitExpressionRange(children, root, AccessKind::Read, certainty);
    }
    void readRows(const RowRangeView& rows) {
        collector.visitRowRange(rows, root, AccessKind::Read, certainty);
    }

    ReadWriteCollector& collector;
    const NodeView& root;
    AccessKind access;
    Certainty certainty;
};

ReadWriteCollector::ReadWriteCollector(AnalysisTypeView analysisType, AnalysisModeView analysisMode,
                                       const std::unordered_set<SymbolView>& subscripts,
                                       const OrderedSet<SymbolView>& over)
    : type(analysisType), mode(analysisMode), subscriptVariables(subscripts), universe(&over),
      genSet(over), killSet(over) {}

void ReadWriteCollector::clear() {
    genSet.clear();
    killSet.clear();
}

void ReadWriteCollector::collect(const NodeView& statement) {
    HeaderVisitor visitor(*this, statement);
    dispatch(visitor, statement);
}

void ReadWriteCollector::visitExpression(const NodeView& expression, const NodeView& root,
                                         AccessKind access, Certainty certainty) {
    ExpressionVisitor visitor(*this, root, access, certainty);
    dispatch(visitor, expression);
}

void ReadWriteCollector::visitChild(const NodeView& expression, const NodeView& root,
                                    AccessKind access, Certainty certainty) {
    enclosing.push_back(expression);
    visitExpression(expression, root, access, certainty);
    enclosing.pop_back();
    knownLinks = std::min(knownLinks, enclosing.size());
}

void ReadWriteCollector::visitExpressionRange(const ExpressionRangeView& range,
                                              const NodeView& root, AccessKind access,
                                              Certainty certainty) {
    for (std::uint64_t i = 0; i < range.size(); ++i)
        visitChild(range[i], root, access, certainty);
}

void ReadWriteCollector::visitRowRange(const RowRangeView& range, const NodeView& root,
                                       AccessKind access, Certainty certainty) {
    for (std::uint64_t i = 0; i < range.size(); ++i)
        visitChild(range[i], root, access, certainty);
}

void ReadWriteCollector::recordRead(const IdentifierView& identifier, Certainty certainty) {
    const SymbolView symbol = identifier.getIdentifierSymbol();
    if (!symbol.view->isVariableSymbol(symbol.symbol)) return;
    const std::uint64_t index = universe->indexOrSize(symbol);
    if (index == universe->size()) return;
    if (type == AnalysisTypeView::Must && certainty == Certainty::Conditional) return;
    record(genSet, index);
}

void ReadWriteCollector::recordWrite(const IdentifierView& identifier, const NodeView& root) {
    const std::uint64_t symbol = universe->indexOrSize(identifier.getIdentifierSymbol());
    if (symbol == universe->size()) return;
    if (identifier.getIdentifierName() == u"ans") {
        switch (root.getKind()) {
        case NodeKind::BareIdentifierStatement:
        case NodeKind::ImplicitCommandStatement:
            return;
        case NodeKind::CommandStatement:
        case NodeKind::ExpressionStatement:
            // Deliberate: outside of the `Ans` mode, under `May`, the implicit target has no
            // effect.
            if (mode == AnalysisModeView::Ans || type == AnalysisTypeView::Must) {
                record(killSet, symbol);
            }
            return;
        default:
            break;
        }
    }
    // A partial write ends liveness under Must, and is a read that keeps the variable live under
    // May.
    const bool kills = isWholeWrite() || type == AnalysisTypeView::Must;
    record(kills ? killSet : genSet, symbol);
}

void ReadWriteCollector::record(BitSet<SymbolView>& set, std::uint64_t symbol) {
    set.growToUniverse();
    BitSetAccess::addIndex(set, symbol);
}

/// Whether a write reaches all of the variable, by what stands around the identifier, which is on
/// top of the stack.
bool ReadWriteCollector::isWholeWrite() const {
    const std::size_t levels = enclosing.size() - 1;
    if (levels == 0) return true;
    if (levels != 1 || mode != AnalysisModeView::Sliced) return false;
    const NodeView& access = enclosing.front();
    if (isKind(access, NodeKind::ParenOperation)) {
        return !hasSubscriptVariable(
            zt::orvex::internal::toParenOperationView(access).getParenArguments());
    }
    if (isKind(access, NodeKind::BraceOperation)) {
        return !hasSubscriptVariable(
            zt::orvex::internal::toBraceOperationView(access).getBraceArguments());
    }
    return true;
}

bool ReadWriteCollector::hasSubscriptVariable(const ExpressionRangeView& subscripts) const {
    for (std::uint64_t i = 0; i < subscripts.size(); ++i) {
        if (isSubscriptVariable(subscripts[i])) return true;
    }
    return false;
}

/// Only a bare variable counts, in any number of parentheses: `k + 1` is no match for k.
bool ReadWriteCollector::isSubscriptVariable(NodeView subscript) const {
    while (isKind(subscript, NodeKind::ParenthesizedExpression)) {
        subscript =
            zt::orvex::internal::toParenthesizedExpressionView(subscript).getParenthesizedInner();
    }
    if (!isKind(subscript, NodeKind::Identifier)) return false;
    const IdentifierView identifier = zt::orvex::internal::toIdentifierView(subscript);
    return subscriptVariables.count(identifier.getIdentifierSymbol()) != 0;
}

/// Whether the right operand of `operation`, the top of the stack, is evaluated conditionally.
bool ReadWriteCollector::isConditionalRhs(const BinaryOperationView& operation,
                                          const NodeView& root) {
    const BinaryOperator op = operation.getBinaryOperator();
    if (isShortCircuit(op)) return true;
    // The elementwise forms skip their right operand only where they decide a condition.
    return isElementLogical(op) && isCondition(root.getKind()) && isConditionChain();
}

/// Whether all that encloses the expression under visit, and it itself, are links.
bool ReadWriteCollector::isConditionChain() {
    while (knownLinks < enclosing.size() && isLink(enclosing[knownLinks]))
        ++knownLinks;
    return knownLinks == enclosing.size();
}

} // namespace zt::orvex::flow::internal
