#include "AnyTree.h"

#include "WalkTraces.h"

#include <map>
#include <sstream>
#include <string>

namespace zt::orvex::testing {

namespace {

enum class Form { One, Maybe, Range };

struct Accessor {
    Operation operation;
    Form form;
};

/// The accessors that return children, by name.
std::map<std::string, Accessor> makeAccessors() {
    std::map<std::string, Accessor> accessors;
#define ZT_ORVEX_TEST_ONE(name) accessors[#name] = {Operation::name, Form::One};
#define ZT_ORVEX_TEST_MAYBE(name) accessors[#name] = {Operation::name, Form::Maybe};
#define ZT_ORVEX_TEST_RANGE(name, View) accessors[#name] = {Operation::name, Form::Range};
#include "testing/IAstViewOperations.def"
    return accessors;
}

using Grammar = std::map<NodeKind, std::vector<Accessor>>;

/// The accessors of each kind in the order of visit, read from the hand-written traces.
Grammar makeGrammar() {
    const auto accessors = makeAccessors();
    Grammar grammar;
    for (const WalkTrace& trace : FULL_TRACES) {
        auto& row = grammar[trace.kind];
        std::istringstream tokens(trace.expected);
        std::string previous;
        for (std::string token; tokens >> token; previous = token) {
            const auto accessor = accessors.find(token);
            if (accessor != accessors.end() && token != previous) row.push_back(accessor->second);
        }
    }
    return grammar;
}

const Grammar& getGrammar() {
    static const Grammar grammar = makeGrammar();
    return grammar;
}

void walkInto(const FakeAst& ast, const NodeView& node, std::vector<NodeView>& visited) {
    const auto row = getGrammar().find(ast.getNodeKind(node.node));
    if (row == getGrammar().end()) return;
    visited.push_back(node);
    if (row->first == NodeKind::InputParameter) {
        const auto accessor = ast.getInputParameterKind(node.node) == NodeKind::Identifier
                                  ? Operation::getInputParameterIdentifier
                                  : Operation::getInputParameterIgnored;
        for (const NodeView& child : ast.childrenOf(node, accessor))
            walkInto(ast, child, visited);
        return;
    }
    for (const Accessor& accessor : row->second) {
        for (const NodeView& child : ast.childrenOf(node, accessor.operation))
            walkInto(ast, child, visited);
    }
}

} // namespace

NodeView AnyTree::make(int depth) {
    if (nodesLeft > 0) --nodesLeft;
    const bool isLeaf = nodesLeft == 0 || depth > 40;
    const auto kind =
        isLeaf ? NodeKind::End : static_cast<NodeKind>(random.below(FULL_TRACES.size() + 5));
    if (kind == NodeKind::Identifier) return ast.addIdentifier(u"x");
    if (kind == NodeKind::InputParameter) return makeInputParameter(depth);
    // A node of an unknown kind gets parts, too: they must not be visited.
    const auto row = getGrammar().find(kind);
    const auto& accessors =
        row != getGrammar().end() ? row->second : getGrammar().at(NodeKind::ForStatement);
    std::vector<std::vector<NodeView>> children;
    for (const Accessor& accessor : accessors) {
        children.emplace_back();
        const bool isRange = accessor.form == Form::Range;
        const std::size_t count = countFor(isRange || accessor.form == Form::Maybe, isRange);
        for (std::size_t left = count; left > 0; --left)
            children.back().push_back(make(depth + 1));
    }
    std::vector<Part> parts;
    for (std::size_t i = 0; i < accessors.size(); ++i)
        parts.emplace_back(accessors[i].operation, children[i]);
    return ast.add(kind, parts);
}

std::size_t AnyTree::countFor(bool isOptional, bool isRange) {
    if (!isOptional) return 1;
    if (nodesLeft == 0) return 0;
    return random.below(isRange ? 5 : 2);
}

NodeView AnyTree::makeInputParameter(int depth) {
    const bool holdsIdentifier = random.oneIn(2);
    const std::vector<NodeView> held(random.below(2), make(depth + 1));
    const auto accessor = holdsIdentifier ? Operation::getInputParameterIdentifier
                                          : Operation::getInputParameterIgnored;
    const auto kind = holdsIdentifier ? NodeKind::Identifier : NodeKind::IgnoredArgument;
    return ast.add(NodeKind::InputParameter, {Part(accessor, held)},
                   static_cast<std::uint32_t>(kind));
}

std::vector<NodeView> walkPlainly(const FakeAst& ast, const NodeView& root) {
    std::vector<NodeView> visited;
    walkInto(ast, root, visited);
    return visited;
}

} // namespace zt::orvex::testing
