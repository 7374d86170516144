#pragma once

#include "report/analysis/Occurrences.h"
#include "report/analysis/UnwrittenVariables.h"
#include "tree/Tree.h"

#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex_kit/body/FlowGraph.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace ostrel::report {

/// The flow of a few statements of a body.
struct Stretch {
    explicit Stretch(zt::orvex::flow::OrderedSet<zt::orvex::SymbolView> variables,
                     zt::orvex::StatementRangeView statements);
    Stretch(const Stretch&) = delete;
    Stretch& operator=(const Stretch&) = delete;

    const zt::orvex::flow::OrderedSet<zt::orvex::SymbolView> universe;
    const zt::orvex::kit::FlowGraph graph;
};

/// A body that constructs stand in, and where the values in its variables go.
///
/// The body may be a whole script, with thousands of statements and variables. So no graph is made
/// of all of them together: a statement is looked at only if it names the variable in question, and
/// then alone; once, for all of its variables.
class BodyAround {
public:
    /// `outputs` are the variables that are read at the end of the body. Refers to the tree and its
    /// occurrences. Cost: linear in the statements, without what they contain.
    BodyAround(const Tree& program, const Occurrences& inProgram,
               zt::orvex::StatementRangeView body, std::vector<zt::orvex::SymbolView> outputs);

    /// Which of its statements the node is in.
    std::size_t indexOf(zt::orvex::NodeView node) const;

    /// Whether control may come to a node of the body. Cost: the first time, linear in the body.
    bool isReachable(zt::orvex::NodeView node);

    bool isStatement(std::size_t index, zt::orvex::NodeView node) const {
        return statements[index] == node;
    }

    /// The flow of one statement, with all variables that it names. The last one asked for is kept.
    const Stretch& statement(std::size_t index);

    /// The flow of the statements from `first` to `last`, for one variable.
    std::unique_ptr<Stretch> stretch(std::size_t first, std::size_t last,
                                     zt::orvex::SymbolView variable) const;

    // Where a value goes that the variable has after a statement. What stops control from getting
    // there isn't looked at, so the answers hold for the values alone. Cost: that of each statement
    // which names the variable once, and of each mention once.

    /// The next statement that may read it; nothing if all that name it before write it first.
    std::optional<std::size_t> nextRead(std::size_t after, zt::orvex::SymbolView variable);

    /// Whether it may still be there at the end of the body, or at a return, where a function's
    /// caller takes it; false for a variable that isn't an output.
    bool mayReturn(std::size_t after, zt::orvex::SymbolView variable);

    bool isOutput(zt::orvex::SymbolView variable) const;

    std::size_t size() const { return begins.size(); }

private:
    /// What a statement does with a value that one of its variables has before it.
    struct Mention {
        std::size_t statement;
        bool mayRead = false;
        bool mayKeep = false; ///< Some path through the statement doesn't write it whole.
    };
    /// For each mention of a variable, which one from there on decides a question: its statement, or
    /// size() for none. Filled in as far as somebody has asked.
    using Decisions = std::vector<std::optional<std::size_t>>;
    struct Mentions {
        std::vector<Mention> all; ///< Ascending.
        Decisions reads;
        Decisions writes;
    };

    template <typename Decide>
    std::size_t firstDecision(std::size_t after, zt::orvex::SymbolView variable,
                              Mentions& mentionsOfIt, Decisions& known, Decide decide);
    Mentions& mentionsOf(zt::orvex::SymbolView variable);
    void lookAt(std::size_t statement);
    bool isWrittenByHead(std::size_t statement, zt::orvex::SymbolView variable) const;
    std::size_t indexAt(std::size_t offset) const;

    const Tree& tree;
    const Occurrences& occurrences;
    const zt::orvex::StatementRangeView statements;
    const std::vector<zt::orvex::SymbolView> outputs;
    std::vector<std::size_t> begins; ///< The offset of each statement.
    std::size_t end = 0;             ///< The offset after the last one.
    std::unordered_map<zt::orvex::SymbolView, Mentions> mentions; ///< Those asked for so far.
    std::vector<bool> isLookedAt;
    std::size_t current = 0; ///< The statement of `currentStretch`.
    std::unique_ptr<Stretch> currentStretch;
    std::unique_ptr<Stretch> whole; ///< Without variables.
    std::unique_ptr<UnwrittenVariables> reached;
};

} // namespace ostrel::report
