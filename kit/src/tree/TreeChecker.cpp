#include "tree/TreeChecker.h"

#include "tree/AskTwice.h"

#include <string>

namespace zt::orvex::kit::internal {

namespace {

constexpr Role ANYTHING = {expected::Nodes, Use::Own};

std::string nameOf(const Expected& expected) {
    if (expected.kind != NodeKind::Invalid) return std::string(kindName(expected.kind));
    if (expected.flags == expected::Expressions.flags) return "expression";
    if (expected.flags == expected::Statements.flags) return "statement";
    return "method";
}

bool opensScope(NodeKind kind) {
    return kind == NodeKind::AnonymousFunction || kind == NodeKind::FunctionDefinition ||
           kind == NodeKind::MethodDeclaration || kind == NodeKind::MethodDefinition;
}

} // namespace

std::vector<Finding> TreeChecker::run() {
    if (root.view == nullptr) {
        reportView({"root", root}, nullptr);
    } else {
        checkPseudoNodes();
        checkNode(root, ANYTHING, false);
        while (!path.empty() && !isOver())
            step();
        if (!isOver() && !isCutShort) identifiers.checkUniverseIsUsed();
    }
    return report.take();
}

void TreeChecker::checkPseudoNodes() {
    entry = askTwice(report, {"getEntryNode", root}, [&] { return root.view->getEntryNode(); });
    exit = askTwice(report, {"getExitNode", root}, [&] { return root.view->getExitNode(); });
    if (!entry || !exit || *entry != *exit) return;
    report.addAtRoot(
        FindingCode::PseudoNodesEqual, *entry,
        "getEntryNode and getExitNode answer the same handle, so the analyses take the "
        "beginning for the end. Return two handles that no node has.");
}

void TreeChecker::step() {
    CheckLevel& level = path.top();
    if (level.isChildBegun) {
        level.isChildBegun = false;
        level.isInRange ? endElement() : endPart();
    } else if (level.part == level.end) {
        path.pop();
    } else if (level.isInRange) {
        stepInRange();
    } else {
        startPart();
    }
}

void TreeChecker::endPart() { ++path.top().part; }

void TreeChecker::endElement() { ++path.range().index; }

void TreeChecker::startPart() {
    const CheckLevel& level = path.top();
    const Part& part = *level.part;
    const NodeView node = level.node;
    const Question question = {part.name, node};
    switch (part.form) {
    case Form::One: {
        const auto child =
            askTwice(report, question, [&] { return (node.view->*part.one)(node.node); });
        return child ? enterChild(*child) : endPart();
    }
    case Form::Maybe: {
        const auto child =
            askTwice(report, question, [&] { return (node.view->*part.maybe)(node.node); });
        return child && *child ? enterChild(**child) : endPart();
    }
    case Form::Each:
        return startRange();
    case Form::Held:
        return startHeld();
    }
}

/// The child that the path is at. Afterwards the path may end with it.
void TreeChecker::enterChild(const NodeView& child) {
    CheckLevel& level = path.top();
    level.isChildBegun = true;
    checkNode(child, roleOf(*level.part), level.part->form == Form::One);
}

/// Keeps the view of both askings: their words may differ if they mean the same range, so what is
/// compared is what the two say of size and elements.
void TreeChecker::startRange() {
    const CheckLevel& level = path.top();
    const Part& part = *level.part;
    const Question question = {part.name, level.node};
    const auto askForView = [&] { return part.range(*level.node.view, level.node.node); };
    const auto first = ask(report, question, askForView);
    if (!first || !isOfTree(question, first->view)) return endPart();
    const auto again = ask(report, question, askForView);
    if (!again || !isOfTree(question, again->view)) return endPart();
    const Question sizeQuestion = {part.family->sizeName, level.node};
    const auto size = ask(report, sizeQuestion, [&] { return part.family->sizeOf(*first); });
    if (!size) return endPart();
    if (*size > options.maxRangeSize) {
        isCutShort = true;
        report.add(FindingCode::RangeTooLong, sizeQuestion,
                   std::string(part.family->sizeName) + " answered " + std::to_string(*size) +
                       ", which is more than maxRangeSize allows. Make the two words of the range "
                       "as " +
                       part.family->sizeName + " and " + part.family->elementName +
                       " take them, or raise the limit.");
        return endPart();
    }
    path.enterRange({*first, *again, *size});
}

/// Asks the size anew before each element, as a walk does.
void TreeChecker::stepInRange() {
    const CheckLevel& level = path.top();
    const RangeFamily& family = *level.part->family;
    const CheckRange range = path.range();
    const auto endRange = [&] {
        path.leaveRange();
        endPart();
    };
    const Question sizeQuestion = {family.sizeName, level.node};
    const auto size = ask(report, sizeQuestion, [&] { return family.sizeOf(range.again); });
    if (!size) return endRange();
    if (*size != range.size) {
        report.addChange(sizeQuestion, showAnswer(range.size), showAnswer(*size));
        return endRange();
    }
    if (range.index == *size) return endRange();

    const Question question = {family.elementName, level.node};
    const auto first =
        ask(report, question, [&] { return family.elementOf(range.range, range.index); });
    if (!first) return endElement();
    const auto second =
        ask(report, question, [&] { return family.elementOf(range.again, range.index); });
    if (!second) return endElement();
    if (!isSameAnswer(*first, *second)) {
        report.addChange(question, showAnswer(*first), showAnswer(*second));
        return endElement();
    }
    enterChild(*first);
}

/// One of the two accessors of a parameter. The one that doesn't match what the parameter says it
/// holds isn't asked: no walk does.
void TreeChecker::startHeld() {
    const CheckLevel& level = path.top();
    const Part& part = *level.part;
    const NodeView node = level.node;
    if (level.held != part.held) return endPart();
    const Question question = {part.name, node};
    const auto child =
        askTwice(report, question, [&] { return (node.view->*part.maybe)(node.node); });
    if (!child) return endPart();
    if (*child) return enterChild(**child);
    report.add(FindingCode::ParameterUnclear, question,
               "getInputParameterKind answers " + showAnswer(level.held) + ", but " + part.name +
                   " answers none. Return the node that the parameter holds.");
    endPart();
}

void TreeChecker::checkNode(const NodeView& node, const Role& role, bool isRequired) {
    const NameScopes::ScopeId scope = path.empty() ? NameScopes::ROOT : path.top().scope;
    const Use use = path.empty() ? role.use : passOn(path.top().use, role.use);
    if (node.view != root.view) return reportView({"view", node}, node.view);
    if (!claimHandle(node)) return;
    if (++nodes > options.maxNodes) {
        isStopped = true;
        return report.add(FindingCode::TooManyNodes, {"nodes", node},
                          "This is one node more than maxNodes allows. Look for an accessor that "
                          "makes new nodes at each question, or raise the limit.");
    }
    const std::optional<NodeKind> kind = askKind(node);
    if (!kind) return;
    checkPlace(node, *kind, role, isRequired);
    checkValues(node, *kind, use, scope);
    if (!PartsOf(*kind).empty()) push(node, *kind, use, scope);
}

void TreeChecker::reportView(const Question& question, const IAstView* view) {
    if (view == nullptr) {
        report.add(
            FindingCode::ViewNull, question,
            "The `view` of what is returned here is null, and the next question goes through "
            "it. Return handle and pointer of a node; leave an optional child out with an "
            "empty optional.");
    } else {
        report.add(FindingCode::ViewForeign, question,
                   "The `view` of what is returned here is that of another tree. Handles are "
                   "compared without their trees, so nodes of two trees get mixed up. Return the "
                   "pointer of the tree that was asked.");
    }
}

/// Whether the node was not met before.
bool TreeChecker::claimHandle(const NodeView& node) {
    const bool isPseudo = (entry && node == *entry) || (exit && node == *exit);
    if (isPseudo) {
        report.add(FindingCode::PseudoNodeReal, {"node", node},
                   "getEntryNode or getExitNode answers the handle of this node. Return handles "
                   "that no node has.");
    }
    if (seen.insert(node.node)) return true;
    if (path.contains(node)) {
        report.add(FindingCode::NodeCycle, {"node", node},
                   "This node is below itself, so a walk never ends. Return a child, not an "
                   "ancestor.");
    } else {
        report.add(FindingCode::NodeShared, {"node", node},
                   "This node is at another place, too, and the analyses keep one state for each "
                   "node. Give every place a node with a handle of its own.");
    }
    return false;
}

std::optional<NodeKind> TreeChecker::askKind(const NodeView& node) {
    const Question question = {"getNodeKind", node};
    const auto kind = askTwice(report, question, [&] { return node.view->getNodeKind(node.node); });
    if (!kind || isKnown(*kind)) return kind;
    report.add(FindingCode::KindUnknown, question,
               "getNodeKind answered " + std::to_string(static_cast<int>(*kind)) +
                   ", and nodes of unknown kinds are skipped with all that is below them. Return "
                   "one of the kinds from 1, AnonymousFunction, to 66, WhileStatement.");
    return std::nullopt;
}

/// A filler node is what a tree has in place of an expression that is missing in the source.
void TreeChecker::checkPlace(const NodeView& node, NodeKind kind, const Role& role,
                             bool isRequired) {
    if (role.expected.allows(kind)) return;
    const bool isFiller = kind == NodeKind::FillerNode && isRequired &&
                          role.expected.flags == expected::Expressions.flags;
    if (isFiller) return;
    report.add(FindingCode::KindMisplaced, {"getNodeKind", node},
               "This is a node of the kind " + showAnswer(kind) + ", class " +
                   std::string(className(kind)) + ", where " + nameOf(role.expected) +
                   " is expected. Return the child that belongs here.");
}

void TreeChecker::checkValues(const NodeView& node, NodeKind kind, Use use,
                              NameScopes::ScopeId scope) {
    switch (kind) {
    case NodeKind::Identifier:
        return identifiers.check(node, use, scope);
    case NodeKind::BinaryOperation:
        return checkOperator({"getBinaryOperator", node, kind}, &IAstView::getBinaryOperator,
                             BinaryOperator::At);
    case NodeKind::UnaryOperation:
        return checkOperator({"getUnaryOperator", node, kind}, &IAstView::getUnaryOperator,
                             UnaryOperator::UnaryAt);
    default:
        return;
    }
}

template <typename Operator>
void TreeChecker::checkOperator(const Question& question,
                                Operator (IAstView::*accessor)(std::uint64_t) const,
                                Operator last) {
    const NodeView& node = question.node;
    const auto op = askTwice(report, question, [&] { return (node.view->*accessor)(node.node); });
    if (!op || *op <= last) return;
    report.add(FindingCode::OperatorUnknown, question,
               std::string(question.operation) + " answered " + showAnswer(*op) +
                   ", which isn't an operator. Return an enumerator of Operators.h.");
}

void TreeChecker::push(const NodeView& node, NodeKind kind, Use use, NameScopes::ScopeId scope) {
    if (path.size() >= options.maxDepth) {
        isCutShort = true;
        return report.add(FindingCode::TooDeep, {"depth", node},
                          "This node is as deep as maxDepth allows, and has children. Look for an "
                          "accessor that returns a new node at each question, or raise the limit. "
                          "Walks and analyses recurse, so they need a large stack here.");
    }
    if (opensScope(kind) && !path.empty()) {
        scope = identifiers.scopes().open(scope, kind == NodeKind::AnonymousFunction);
    }
    const NodeKind held = kind == NodeKind::InputParameter ? askHeldKind(node) : NodeKind::Invalid;
    const PartsOf parts(kind);
    path.push({node, parts.begin(), parts.end(), scope, kind, held, use});
}

/// What a parameter says that it holds; `Invalid` after a finding.
NodeKind TreeChecker::askHeldKind(const NodeView& parameter) {
    const Question question = {"getInputParameterKind", parameter, NodeKind::InputParameter};
    const auto kind = askTwice(
        report, question, [&] { return parameter.view->getInputParameterKind(parameter.node); });
    if (!kind) return NodeKind::Invalid;
    if (*kind == NodeKind::Identifier || *kind == NodeKind::IgnoredArgument) return *kind;
    report.add(FindingCode::ParameterUnclear, question,
               "getInputParameterKind answered " + showAnswer(*kind) +
                   ", so walks visit no child. Return Identifier or IgnoredArgument.");
    return NodeKind::Invalid;
}

} // namespace zt::orvex::kit::internal
