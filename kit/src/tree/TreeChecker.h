#pragma once

#include "tree/CheckPath.h"
#include "tree/CheckReport.h"
#include "tree/HandleSet.h"
#include "tree/IdentifierChecker.h"

#include <zt_orvex_kit/tree/CheckTree.h>

#include <cstddef>
#include <optional>
#include <vector>

namespace zt::orvex::kit::internal {

/// One run of `checkTree`: a walk that keeps its path itself and trusts no answer.
class TreeChecker {
public:
    TreeChecker(const NodeView& rootNode, const CheckTreeOptions& optionsToUse)
        : root(rootNode), options(optionsToUse), report(path, optionsToUse.maxFindings),
          identifiers(rootNode.view, optionsToUse, report) {}

    std::vector<Finding> run();

private:
    // The path: each step checks one part of the node at its end, or leaves it.
    void step();
    void startPart();
    void startRange();
    void stepInRange();
    void startHeld();
    void enterChild(const NodeView& child);
    void endPart();
    void endElement();

    // A node at a place where a part of the kind `role` stands.
    void checkNode(const NodeView& node, const Role& role, bool isRequired);
    /// Whether what an accessor returned belongs to this tree, so that it can be asked.
    bool isOfTree(const Question& question, const IAstView* view) {
        if (view != root.view) reportView(question, view);
        return view == root.view;
    }
    [[gnu::cold, gnu::noinline]] void reportView(const Question& question, const IAstView* view);
    bool claimHandle(const NodeView& node);
    std::optional<NodeKind> askKind(const NodeView& node);
    void checkPlace(const NodeView& node, NodeKind kind, const Role& role, bool isRequired);
    void checkValues(const NodeView& node, NodeKind kind, Use use, NameScopes::ScopeId scope);
    template <typename Operator>
    void checkOperator(const Question& question,
                       Operator (IAstView::*accessor)(std::uint64_t) const, Operator last);
    void push(const NodeView& node, NodeKind kind, Use use, NameScopes::ScopeId scope);
    NodeKind askHeldKind(const NodeView& parameter);

    void checkPseudoNodes();
    bool isOver() const { return isStopped || report.isFull(); }

    const NodeView root;
    const CheckTreeOptions& options;
    CheckPath path;
    CheckReport report;
    IdentifierChecker identifiers;
    HandleSet seen;
    std::size_t nodes = 0;
    std::optional<NodeView> entry;
    std::optional<NodeView> exit;
    bool isStopped = false;  ///< By the limit of nodes.
    bool isCutShort = false; ///< Whether a limit hid a part of the tree.
};

} // namespace zt::orvex::kit::internal
