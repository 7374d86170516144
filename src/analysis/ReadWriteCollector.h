#pragma once

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <cstddef>
#include <cstdint>
#include <unordered_set>
#include <vector>

namespace zt::orvex::flow::internal {

/// Whether the identifiers that a visit reaches are read or written.
enum class AccessKind : std::uint32_t { Read = 0, Write = 1 };

/// `Conditional`: whether the operand is evaluated depends on an operand before it.
enum class Certainty : std::uint32_t { Certain = 0, Conditional = 1 };

/// Gathers what one flow node's own header reads and writes whole: the place where the meaning of
/// the language enters the analysis. Bodies are not visited.
///
/// Not reentrant: the sets and the stack are working state of the statement under `collect`.
class ReadWriteCollector {
public:
    ReadWriteCollector(AnalysisTypeView type, AnalysisModeView mode,
                       const std::unordered_set<SymbolView>& subscriptVariables,
                       const OrderedSet<SymbolView>& universe);

    /// Empties both sets and brings them to the size of the universe.
    void clear();

    /// Adds what `statement` reads and writes. The caller has cleared the sets.
    void collect(const NodeView& statement);

    /// The variables that are read; also, under `May`, those that are written in part.
    const BitSet<SymbolView>& gen() const { return genSet; }
    /// The variables that are written whole; also, under `Must`, those that are written in part.
    const BitSet<SymbolView>& kill() const { return killSet; }

private:
    class HeaderVisitor;
    class ExpressionVisitor;

    void visitExpression(const NodeView& expression, const NodeView& root, AccessKind access,
                         Certainty certainty);
    void visitChild(const NodeView& expression, const NodeView& root, AccessKind access,
                    Certainty certainty);
    void visitExpressionRange(const ExpressionRangeView& range, const NodeView& root,
                              AccessKind access, Certainty certainty);
    void visitRowRange(const RowRangeView& range, const NodeView& root, AccessKind access,
                       Certainty certainty);

    void recordRead(const IdentifierView& identifier, Certainty certainty);
    void recordWrite(const IdentifierView& identifier, const NodeView& root);
    void record(BitSet<SymbolView>& set, std::uint64_t symbol);
    bool isWholeWrite() const;
    bool hasSubscriptVariable(const ExpressionRangeView& subscripts) const;
    bool isSubscriptVariable(NodeView subscript) const;
    bool isConditionalRhs(const BinaryOperationView& operation, const NodeView& root);
    bool isConditionChain();

    AnalysisTypeView type;
    AnalysisModeView mode;
    std::unordered_set<SymbolView> subscriptVariables;
    const OrderedSet<SymbolView>* universe;
    BitSet<SymbolView> genSet;
    BitSet<SymbolView> killSet;

    // The expressions under visit, outermost first; empty between statements.
    std::vector<NodeView> enclosing;
    // How many of them, from the outermost, are known to be links of a condition chain. It spares a
    // scan of the whole stack for each operand of a1 | a2 | ... | an.
    std::size_t knownLinks = 0;
};

} // namespace zt::orvex::flow::internal
