#include "analysis/ReferenceEffects.h"

#include <zt_orvex/ast/TypedViews.h>

#include <vector>

namespace zt::orvex::testing {
namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;

bool isShortCircuit(const NodeView& operation) {
    const BinaryOperator op = BinaryOperationView(operation).getBinaryOperator();
    return op == BinaryOperator::ShortCircuitAnd || op == BinaryOperator::ShortCircuitOr;
}

bool isElementLogic(const NodeView& operation) {
    const BinaryOperator op = BinaryOperationView(operation).getBinaryOperator();
    return op == BinaryOperator::ElementAnd || op == BinaryOperator::ElementOr;
}

bool isCondition(NodeKind statement) {
    return statement == NodeKind::IfStatement || statement == NodeKind::ElseIfClause ||
           statement == NodeKind::WhileStatement;
}

bool holdsOneExpression(const MatrixView& matrix) {
    const RowRangeView rows = matrix.getMatrixRows();
    return rows.size() == 1 && RowView(rows[0]).getRowExpressions().size() == 1;
}

// Whether an elementwise `&` or `|` directly inside this expression can still short-circuit.
bool keepsShortCircuit(const NodeView& expression) {
    switch (expression.getKind()) {
    case NodeKind::BinaryOperation:
        return isElementLogic(expression);
    case NodeKind::Matrix:
        return holdsOneExpression(MatrixView(expression));
    case NodeKind::ParenthesizedExpression:
    case NodeKind::Row:
        return true;
    default:
        return false;
    }
}

NodeView stripParentheses(NodeView expression) {
    while (expression.getKind() == NodeKind::ParenthesizedExpression)
        expression = ParenthesizedExpressionView(expression).getParenthesizedInner();
    return expression;
}

// The effects of one statement. It first gathers plain facts (what is read, with what certainty,
// and what is written, through what path), and then settles what they mean under the settings.
class EffectsOfStatement {
public:
    EffectsOfStatement(const NodeView& ofStatement, const ReferenceSettings& under)
        : statement(ofStatement), kind(ofStatement.getKind()), settings(under) {
        visitHeader();
    }

    Effects settle() const {
        Effects effects;
        for (const Read& read : reads)
            if (counts(read)) effects.gen.insert(symbolOf(read.identifier));
        for (const Write& write : writes)
            settleWrite(write, effects);
        return effects;
    }

private:
    struct Read {
        NodeView identifier;
        bool mayBeSkipped;
    };
    struct Write {
        NodeView identifier;
        std::vector<NodeView> path; // from the target down, without the identifier
    };
    struct Place {
        bool mayBeSkipped = false;
        bool inConditionChain = false;
    };

    static std::uint64_t symbolOf(const NodeView& identifier) {
        return IdentifierView(identifier).getIdentifierSymbol().symbol;
    }

    bool counts(const Read& read) const {
        const SymbolView symbol = IdentifierView(read.identifier).getIdentifierSymbol();
        const bool certain = settings.type == AnalysisTypeView::May || !read.mayBeSkipped;
        return certain && settings.universe.count(symbol.symbol) != 0 &&
               symbol.view->isVariableSymbol(symbol.symbol);
    }

    void settleWrite(const Write& write, Effects& effects) const {
        const std::uint64_t symbol = symbolOf(write.identifier);
        if (settings.universe.count(symbol) == 0) return;
        const bool must = settings.type == AnalysisTypeView::Must;
        if (IdentifierView(write.identifier).getIdentifierName() == u"ans") {
            if (kind == NodeKind::BareIdentifierStatement ||
                kind == NodeKind::ImplicitCommandStatement)
                return;
            if (kind == NodeKind::CommandStatement || kind == NodeKind::ExpressionStatement) {
                if (must || settings.mode == AnalysisModeView::Ans) effects.kill.insert(symbol);
                return;
            }
        }
        if (must || isWhole(write.path))
            effects.kill.insert(symbol);
        else
            effects.gen.insert(symbol);
    }

    bool isWhole(const std::vector<NodeView>& path) const {
        if (path.empty()) return true;
        if (settings.mode != AnalysisModeView::Sliced || path.size() > 1) return false;
        for (const NodeView& subscript : subscriptsOf(path.front())) {
            const NodeView bare = stripParentheses(subscript);
            if (bare.getKind() == NodeKind::Identifier &&
                settings.subscriptVariables.count(symbolOf(bare)) != 0)
                return false;
        }
        return true;
    }

    static std::vector<NodeView> subscriptsOf(const NodeView& expression) {
        if (expression.getKind() == NodeKind::ParenOperation)
            return listOf(ParenOperationView(expression).getParenArguments());
        if (expression.getKind() == NodeKind::BraceOperation)
            return listOf(BraceOperationView(expression).getBraceArguments());
        return {};
    }

    template <typename Range>
    static std::vector<NodeView> listOf(const Range& range) {
        std::vector<NodeView> list;
        for (std::uint64_t i = 0; i < range.size(); ++i)
            list.push_back(range[i]);
        return list;
    }

    void visitHeader() {
        switch (kind) {
        case NodeKind::AssignmentStatement:
            readFrom(AssignmentStatementView(statement).getAssignmentRhs());
            writeTo(AssignmentStatementView(statement).getAssignmentLhs());
            break;
        case NodeKind::MultiAssignmentStatement:
            readFrom(MultiAssignmentStatementView(statement).getMultiAssignmentRhs());
            for (const NodeView& target :
                 listOf(MultiAssignmentStatementView(statement).getMultiAssignmentTargets()))
                writeTo(target);
            break;
        case NodeKind::ExpressionStatement:
            readFrom(ExpressionStatementView(statement).getExpressionStatementExpression());
            writeTo(ExpressionStatementView(statement).getExpressionStatementTarget());
            break;
        case NodeKind::CommandStatement:
            readFrom(CommandStatementView(statement).getCommandCallee());
            writeTo(CommandStatementView(statement).getCommandTarget());
            break;
        case NodeKind::ImplicitCommandStatement:
            writeTo(ImplicitCommandStatementView(statement).getImplicitCommandTarget());
            break;
        case NodeKind::BareIdentifierStatement:
            writeTo(BareIdentifierStatementView(statement).getBareIdentifier());
            break;
        case NodeKind::ForStatement:
            readFrom(ForStatementView(statement).getForExpression());
            writeTo(ForStatementView(statement).getForVariable());
            break;
        case NodeKind::ParforStatement:
            for (const NodeView& option : listOf(ParforStatementView(statement).getParforOptions()))
                readFrom(option);
            readFrom(ParforStatementView(statement).getParforExpression());
            writeTo(ParforStatementView(statement).getParforVariable());
            break;
        case NodeKind::SpmdStatement:
            for (const NodeView& option : listOf(SpmdStatementView(statement).getSpmdOptions()))
                readFrom(option);
            break;
        case NodeKind::IfStatement:
            readFrom(IfStatementView(statement).getIfCondition());
            break;
        case NodeKind::ElseIfClause:
            readFrom(ElseIfClauseView(statement).getElseIfCondition());
            break;
        case NodeKind::WhileStatement:
            readFrom(WhileStatementView(statement).getWhileCondition());
            break;
        case NodeKind::SwitchStatement:
            readFrom(SwitchStatementView(statement).getSwitchSubject());
            break;
        case NodeKind::CaseClause:
            readFrom(CaseClauseView(statement).getCaseExpression());
            break;
        case NodeKind::CatchClause: {
            const auto identifier = CatchClauseView(statement).getCatchIdentifier();
            if (identifier) writeTo(*identifier);
            break;
        }
        default:
            break;
        }
    }

    void readFrom(const NodeView& expression) {
        Place outermost;
        outermost.inConditionChain = isCondition(kind);
        read(expression, outermost);
    }

    void readAll(const std::vector<NodeView>& expressions, const Place& place) {
        for (const NodeView& expression : expressions)
            read(expression, place);
    }

    // Reads of an expression at the place `around`.
    void read(const NodeView& expression, const Place& around) {
        Place inside = around;
        inside.inConditionChain = around.inConditionChain && keepsShortCircuit(expression);
        switch (expression.getKind()) {
        case NodeKind::Identifier:
            reads.push_back(Read{expression, around.mayBeSkipped});
            break;
        case NodeKind::BinaryOperation: {
            const BinaryOperationView operation(expression);
            read(operation.getBinaryLhs(), inside);
            Place right = inside;
            if (isShortCircuit(operation) || (isElementLogic(operation) && inside.inConditionChain))
                right.mayBeSkipped = true;
            read(operation.getBinaryRhs(), right);
            break;
        }
        case NodeKind::AnonymousFunction:
            read(AnonymousFunctionView(expression).getAnonymousFunctionBody(), inside);
            break;
        case NodeKind::ParenOperation:
            readAll(subscriptsOf(expression), inside);
            read(ParenOperationView(expression).getParenBase(), inside);
            break;
        case NodeKind::BraceOperation:
            readAll(subscriptsOf(expression), inside);
            read(BraceOperationView(expression).getBraceBase(), inside);
            break;
        case NodeKind::DotOperation:
            read(DotOperationView(expression).getDotBase(), inside);
            break;
        case NodeKind::DynamicFieldOperation:
            read(DynamicFieldOperationView(expression).getDynamicFieldExpression(), inside);
            read(DynamicFieldOperationView(expression).getDynamicFieldBase(), inside);
            break;
        case NodeKind::ColonOperation: {
            const ColonOperationView colon(expression);
            read(colon.getColonStart(), inside);
            if (const auto step = colon.getColonStep()) read(*step, inside);
            read(colon.getColonStop(), inside);
            break;
        }
        case NodeKind::Matrix:
            readAll(listOf(MatrixView(expression).getMatrixRows()), inside);
            break;
        case NodeKind::CellArray:
            readAll(listOf(CellArrayView(expression).getCellArrayRows()), inside);
            break;
        case NodeKind::Row:
            readAll(listOf(RowView(expression).getRowExpressions()), inside);
            break;
        case NodeKind::NamedArgument:
            read(NamedArgumentView(expression).getNamedArgumentValue(), inside);
            break;
        case NodeKind::ParenthesizedExpression:
            read(ParenthesizedExpressionView(expression).getParenthesizedInner(), inside);
            break;
        case NodeKind::UnaryOperation:
            read(UnaryOperationView(expression).getUnaryOperand(), inside);
            break;
        default:
            break;
        }
    }

    void writeTo(const NodeView& target) {
        std::vector<NodeView> path;
        write(target, path);
    }

    // A target's own spine is written; what hangs off the spine is read for certain, since no
    // statement that writes is a condition.
    void write(const NodeView& target, const std::vector<NodeView>& path) {
        std::vector<NodeView> below = path;
        below.push_back(target);
        switch (target.getKind()) {
        case NodeKind::Identifier:
            writes.push_back(Write{target, path});
            break;
        case NodeKind::ParenOperation:
            readAll(subscriptsOf(target), Place());
            write(ParenOperationView(target).getParenBase(), below);
            break;
        case NodeKind::BraceOperation:
            readAll(subscriptsOf(target), Place());
            write(BraceOperationView(target).getBraceBase(), below);
            break;
        case NodeKind::DotOperation:
            write(DotOperationView(target).getDotBase(), below);
            break;
        case NodeKind::DynamicFieldOperation:
            read(DynamicFieldOperationView(target).getDynamicFieldExpression(), Place());
            write(DynamicFieldOperationView(target).getDynamicFieldBase(), below);
            break;
        case NodeKind::ColonOperation: {
            const ColonOperationView colon(target);
            write(colon.getColonStart(), below);
            if (const auto step = colon.getColonStep()) write(*step, below);
            write(colon.getColonStop(), below);
            break;
        }
        case NodeKind::NamedArgument:
            write(NamedArgumentView(target).getNamedArgumentValue(), below);
            break;
        case NodeKind::ParenthesizedExpression:
            write(ParenthesizedExpressionView(target).getParenthesizedInner(), below);
            break;
        case NodeKind::UnaryOperation:
            write(UnaryOperationView(target).getUnaryOperand(), below);
            break;
        default: // an expression that can't be a target is only read
            read(target, Place());
            break;
        }
    }

    NodeView statement;
    NodeKind kind;
    const ReferenceSettings& settings;
    std::vector<Read> reads;
    std::vector<Write> writes;
};

} // namespace

Effects effectsOf(const NodeView& statement, const ReferenceSettings& settings) {
    return EffectsOfStatement(statement, settings).settle();
}

} // namespace zt::orvex::testing
