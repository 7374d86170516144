#pragma once

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex_kit/Export.h>
#include <zt_orvex_kit/body/Access.h>
#include <zt_orvex_kit/body/Span.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <unordered_set>
#include <vector>

namespace zt::orvex::kit {

/// The number of a flow node in its graph.
using FlowNode = std::uint32_t;

/// The control flow of a range of statements, what each statement reads and writes, and what is
/// live before and after it: all that the library's analyzer knows while it works, kept to be
/// asked.
///
/// A flow node is a statement, a case, else-if or catch clause, or one of two pseudo nodes: the
/// entry and the exit of the range. Nodes are numbered in source order from the entry, 0; a print
/// comes before the statement that it prints, and the exit last. Else and otherwise clauses are no
/// flow nodes, nor are expressions.
///
/// Control flow, accesses and results are the library's own, to the bit: one pass over the
/// statements by the same code, and the same least solution. Unlike the library, a graph accepts
/// loops nested a thousand deep.
///
///     FlowGraph graph(universe, loop.getParforBody(), AnalysisTypeView::May,
///                     AnalysisModeView::Plain);
///     for (const SymbolView& symbol : graph.liveBefore(statement)) use(symbol);
///
/// Operations that take a flow node don't check it: it must be below `size()`. An index is that of
/// a variable in the universe; a variable that the graph doesn't know is never live.
///
/// The tree must outlive the graph, and so must the universe, of which a graph knows the elements
/// that were there when it was made; those added later are never accessed and never live. A graph
/// may be shared by threads that only ask. Cost: about an analysis; memory in proportion to the
/// statements times the words of the universe, one for every 64 variables.
class ZT_ORVEX_KIT_EXPORT FlowGraph {
public:
    /// `subscriptVariables` matter in the mode `Sliced` alone: an indexed write is partial if one
    /// of them is among its subscripts, bare.
    ///
    /// Throws std::invalid_argument("A node occurs at two places of the tree, or is the entry or
    /// exit node, too") where the library's analyzer refuses the tree; every exception of the tree;
    /// and std::length_error("too many flow nodes") beyond 2^32 - 1 nodes or edges. A node of an
    /// unknown kind is skipped. The recursion is as deep as the tree.
    FlowGraph(const flow::OrderedSet<SymbolView>& universe, const StatementRangeView& statements,
              flow::AnalysisTypeView type, flow::AnalysisModeView mode,
              const std::unordered_set<SymbolView>& subscriptVariables = {});

    /// The universe that the graph was made with, as it is now.
    const flow::OrderedSet<SymbolView>& universe() const { return *symbols; }
    /// How many elements of the universe the graph knows: those with the lowest indices.
    std::uint64_t variableCount() const { return knownVariables; }
    /// The type that the graph was made with.
    flow::AnalysisTypeView type() const { return analysisType; }
    /// The mode that the graph was made with.
    flow::AnalysisModeView mode() const { return analysisMode; }

    /// The number of flow nodes, at least two.
    FlowNode size() const { return static_cast<FlowNode>(nodes.size()); }
    /// Where control enters the range: always 0.
    FlowNode entry() const { return 0; }
    /// Where control leaves the range: always the last node.
    FlowNode exit() const { return size() - 1; }

    /// The statement or clause, or a pseudo node, which a tree knows nothing of.
    const NodeView& nodeAt(FlowNode node) const { return nodes.elementAt(node); }
    /// Whether the node is the entry or the exit, and no part of the tree.
    bool isPseudoNode(FlowNode node) const { return node == entry() || node == exit(); }
    /// The flow node of a statement or clause; nothing for any other node.
    boost::optional<FlowNode> find(const NodeView& node) const;

    /// Where control may go next, in ascending order. Empty for the exit.
    Span<FlowNode> successors(FlowNode node) const { return forward.of(node); }
    /// Where control may come from, in ascending order. Empty for the entry, and for what no path
    /// reaches.
    Span<FlowNode> predecessors(FlowNode node) const { return backward.of(node); }

    /// What the head reads and writes, one for each occurrence of a variable of the universe: first
    /// what it reads only, then the targets from left to right, each with its subscripts before it.
    Span<Access> accesses(FlowNode node) const {
        return {allAccesses.data() + accessBegin[node], allAccesses.data() + accessBegin[node + 1]};
    }
    /// The first access by which the node has this effect on the variable, or null. Linear in the
    /// accesses of the node.
    const Access* findAccess(FlowNode node, std::uint64_t index, LivenessEffect effect) const;

    /// Whether the node makes the variable live, and so has a read that counts. Constant.
    bool makesLive(FlowNode node, std::uint64_t index) const { return has(gen, node, index); }
    /// Whether the node has a write that ends the variable's liveness. A node can do both: then the
    /// variable is live before it. Constant.
    bool endsLiveness(FlowNode node, std::uint64_t index) const { return has(kill, node, index); }
    /// Whether the variable is live where control comes to the node. Constant.
    bool isLiveBefore(FlowNode node, std::uint64_t index) const { return has(liveIn, node, index); }
    /// Whether the variable is live where control leaves the node: before some successor under
    /// `May`, before all of them under `Must`. Linear in the successors.
    bool isLiveAfter(FlowNode node, std::uint64_t index) const;

    /// What is live at the entry: what the library's analyzer answers.
    std::unordered_set<SymbolView> liveAtEntry() const;

    /// @{
    /// What is live before or after a statement or clause. Throws std::invalid_argument("The node
    /// is not a flow node of this graph") for a node that `find` doesn't find.
    std::unordered_set<SymbolView> liveBefore(const NodeView& statement) const;
    std::unordered_set<SymbolView> liveAfter(const NodeView& statement) const;
    /// @}

private:
    class Recorder;

    /// The neighbours of all nodes, side by side.
    struct Neighbours {
        Span<FlowNode> of(FlowNode node) const {
            return {all.data() + begin[node], all.data() + begin[node + 1]};
        }
        std::vector<std::uint32_t> begin; // of each node in `all`, and the end
        std::vector<FlowNode> all;
    };
    /// A row of bits for each node, one bit for each variable.
    using Rows = std::vector<std::uint64_t>;

    bool has(const Rows& rows, FlowNode node, std::uint64_t index) const {
        if (index >= knownVariables) return false;
        return (rows[node * wordCount + index / 64] >> (index % 64) & 1) != 0;
    }
    FlowNode require(const NodeView& statement) const;
    void makeRows();
    void solve();
    std::vector<FlowNode> postOrder() const;
    void mergeSuccessors(FlowNode node, std::uint64_t* into) const;
    std::unordered_set<SymbolView> symbolsOf(const std::uint64_t* row) const;

    const flow::OrderedSet<SymbolView>* symbols;
    std::uint64_t knownVariables;
    std::uint64_t wordCount; // of a row
    flow::AnalysisTypeView analysisType;
    flow::AnalysisModeView analysisMode;

    flow::OrderedSet<NodeView> nodes;
    Neighbours forward;
    Neighbours backward;
    std::vector<std::uint32_t> accessBegin; // of each node in `allAccesses`, and the end
    std::vector<Access> allAccesses;
    Rows gen;
    Rows kill;
    Rows liveIn;
};

} // namespace zt::orvex::kit
