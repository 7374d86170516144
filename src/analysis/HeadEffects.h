#pragma once

#include "analysis/Effect.h"
#include "analysis/ExpressionPath.h"
#include "analysis/KindGroups.h"
#include "ast/AstViewDispatcher.h"

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/ControlFlow.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <cstdint>
#include <type_traits>
#include <unordered_set>
#include <utility>

namespace zt::orvex::flow::internal {

/// What the head of a statement or clause reads and writes, reported to a sink. The bodies of the
/// statement are not part of its head.
///
///     x(k) = a && b      certain reads of a and k, a conditional read of b, a partial write of x
///
/// The sink provides
///
///     void record(const Effect&);
///
/// Reads come before writes, and within both the effects come in the order of the parts: one for
/// each occurrence of a variable. Only variables of the universe are reported.
///
/// Of the settings, only the mode matters here: it decides which writes are whole. What an effect
/// then means for an analysis is up to the sink (see `GenKillSets`).
///
/// Not reentrant. The recursion is as deep as the expressions. Exceptions pass through, after which
/// the object must not be used again.
template <typename Sink>
class HeadEffects {
public:
    /// The universe and the sink must outlive this object.
    HeadEffects(const OrderedSet<SymbolView>& over, AnalysisModeView mode,
                std::unordered_set<SymbolView> subscriptVariables, Sink& reportTo)
        : universe(over), path(mode, std::move(subscriptVariables)), sink(reportTo) {}

    void report(const NodeView& statementOrClause) {
        static_assert(!hasFallback<HeadVisitor>, "it would swallow new kinds of statement");
        head = statementOrClause;
        HeadVisitor visitor(*this);
        zt::orvex::internal::dispatch(visitor, statementOrClause);
    }

private:
    class HeadVisitor;
    class ExpressionVisitor;

    /// Whether the identifiers that a visit reaches are read or written.
    enum class AccessKind : std::uint32_t { Read = 0, Write = 1 };
    /// `Conditional`: whether the operand is evaluated depends on an operand before it.
    enum class Certainty : std::uint32_t { Certain = 0, Conditional = 1 };

    void visitChild(const NodeView& expression, AccessKind access, Certainty certainty) {
        static_assert(!hasFallback<ExpressionVisitor>, "it would swallow new kinds of expression");
        path.push(expression);
        ExpressionVisitor visitor(*this, access, certainty);
        zt::orvex::internal::dispatch(visitor, expression);
        path.pop();
    }

    template <typename Range>
    void visitRange(const Range& range, AccessKind access, Certainty certainty) {
        for (std::uint64_t i = 0; i < range.size(); ++i)
            visitChild(range[i], access, certainty);
    }

    void reportRead(const IdentifierView& identifier, Certainty certainty) {
        const SymbolView symbol = identifier.getIdentifierSymbol();
        if (!symbol.view->isVariableSymbol(symbol.symbol)) return;
        const std::uint64_t index = universe.indexOrSize(symbol);
        if (index == universe.size()) return;
        const EffectKind kind =
            certainty == Certainty::Certain ? EffectKind::CertainRead : EffectKind::ConditionalRead;
        sink.record({kind, identifier, symbol, index});
    }

    void reportWrite(const IdentifierView& identifier) {
        const SymbolView symbol = identifier.getIdentifierSymbol();
        const std::uint64_t index = universe.indexOrSize(symbol);
        if (index == universe.size()) return;
        // Deliberate: the spelling decides, not the symbol.
        if (identifier.getIdentifierName() == u"ans") {
            switch (head.getKind()) {
            case NodeKind::BareIdentifierStatement:
            case NodeKind::ImplicitCommandStatement:
                return; // Deliberate: these leave `ans` alone.
            case NodeKind::CommandStatement:
            case NodeKind::ExpressionStatement:
                return sink.record({EffectKind::ImplicitTarget, identifier, symbol, index});
            default:
                break;
            }
        }
        const EffectKind kind =
            path.isWholeWrite() ? EffectKind::WholeWrite : EffectKind::PartialWrite;
        sink.record({kind, identifier, symbol, index});
    }

    const OrderedSet<SymbolView>& universe;
    ExpressionPath path; // empty between heads
    Sink& sink;
    NodeView head = {};
};

/// Which children of a statement or clause are read, and which are written.
template <typename Sink>
class HeadEffects<Sink>::HeadVisitor {
public:
    explicit HeadVisitor(HeadEffects& of) : effects(of) {}

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
        effects.visitRange(s.getMultiAssignmentTargets(), AccessKind::Write, Certainty::Certain);
    }
    void visit(const ParforStatementView& s) {
        readAll(s.getParforOptions());
        read(s.getParforExpression());
        write(s.getParforVariable());
    }
    void visit(const SpmdStatementView& s) { readAll(s.getSpmdOptions()); }
    void visit(const SwitchStatementView& s) { read(s.getSwitchSubject()); }
    void visit(const WhileStatementView& s) { read(s.getWhileCondition()); }

    // A print's effects are those of the statement that it prints, which is a node of its own.
    void visit(const PrintStatementView&) {}
    void visit(const BreakStatementView&) {}
    void visit(const ContinueStatementView&) {}
    void visit(const EmptyStatementView&) {}
    void visit(const GlobalDeclarationView&) {}
    void visit(const PersistentDeclarationView&) {}
    void visit(const ReturnStatementView&) {}
    void visit(const TryStatementView&) {}

    /// Deliberate: every other kind is asked whether it is a flow node, and the answer is dropped.
    template <typename View>
    std::enable_if_t<
        isInGroups<View, Definitions, Expressions,
                   KindGroup<DiscardedStatementView, ElseClauseView, OtherwiseClauseView>>>
    visit(const View& other) {
        static_cast<void>(isControlFlowNode(other));
    }

private:
    void read(const NodeView& child) {
        effects.visitChild(child, AccessKind::Read, Certainty::Certain);
    }
    void readAll(const ExpressionRangeView& children) {
        effects.visitRange(children, AccessKind::Read, Certainty::Certain);
    }
    void write(const NodeView& child) {
        effects.visitChild(child, AccessKind::Write, Certainty::Certain);
    }

    HeadEffects& effects;
};

/// How access and certainty pass from an expression to its parts.
template <typename Sink>
class HeadEffects<Sink>::ExpressionVisitor {
public:
    ExpressionVisitor(HeadEffects& of, AccessKind inherited, Certainty inheritedCertainty)
        : effects(of), access(inherited), certainty(inheritedCertainty) {}

    /// The body's reads count where the function is created; its parameters don't.
    void visit(const AnonymousFunctionView& e) { read(e.getAnonymousFunctionBody()); }
    void visit(const BinaryOperationView& e) {
        read(e.getBinaryLhs());
        const bool isConditional =
            certainty == Certainty::Conditional || effects.path.isRhsConditional(e, effects.head);
        effects.visitChild(e.getBinaryRhs(), AccessKind::Read,
                           isConditional ? Certainty::Conditional : Certainty::Certain);
    }
    void visit(const BraceOperationView& e) {
        readAll(e.getBraceArguments());
        inherit(e.getBraceBase());
    }
    void visit(const CellArrayView& e) { readAll(e.getCellArrayRows()); }
    void visit(const ColonOperationView& e) {
        inherit(e.getColonStart());
        const boost::optional<NodeView> step = e.getColonStep();
        if (step) inherit(*step);
        inherit(e.getColonStop());
    }
    /// The field's name is not a variable.
    void visit(const DotOperationView& e) { inherit(e.getDotBase()); }
    void visit(const DynamicFieldOperationView& e) {
        read(e.getDynamicFieldExpression());
        inherit(e.getDynamicFieldBase());
    }
    void visit(const IdentifierView& e) {
        if (access == AccessKind::Write) {
            effects.reportWrite(e);
        } else {
            effects.reportRead(e, certainty);
        }
    }
    void visit(const MatrixView& e) { readAll(e.getMatrixRows()); }
    void visit(const NamedArgumentView& e) { inherit(e.getNamedArgumentValue()); }
    /// A call and an indexing are the same node. Subscripts are read, even of what is written.
    void visit(const ParenOperationView& e) {
        readAll(e.getParenArguments());
        inherit(e.getParenBase());
    }
    void visit(const ParenthesizedExpressionView& e) { inherit(e.getParenthesizedInner()); }
    void visit(const RowView& e) { readAll(e.getRowExpressions()); }
    void visit(const UnaryOperationView& e) { inherit(e.getUnaryOperand()); }

    // These have no effect.
    void visit(const CharacterLiteralView&) {}
    void visit(const ColonView&) {}
    void visit(const EndView&) {}
    void visit(const IgnoredArgumentView&) {}
    void visit(const NumberLiteralView&) {}
    void visit(const StringLiteralView&) {}

    /// The other kinds are not expected in an expression.
    template <typename View>
    std::enable_if_t<isInGroups<View, Statements, Clauses, Definitions,
                                KindGroup<AnyExpressionView, DiscardedExpressionView>>>
    visit(const View&) {}

private:
    void inherit(const NodeView& child) { effects.visitChild(child, access, certainty); }
    void read(const NodeView& child) { effects.visitChild(child, AccessKind::Read, certainty); }
    template <typename Range>
    void readAll(const Range& children) {
        effects.visitRange(children, AccessKind::Read, certainty);
    }

    HeadEffects& effects;
    AccessKind access;
    Certainty certainty;
};

} // namespace zt::orvex::flow::internal
