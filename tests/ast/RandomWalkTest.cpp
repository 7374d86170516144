#include "WalkTraces.h"
#include "ast/ForEachForStatementIn.h"
#include "testing/PrintTo.h"
#include "testing/Random.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <vector>

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

/// A random tree: nodes of all kinds, unknown ones included, in any place.
class RandomTree {
public:
    explicit RandomTree(Random& randomToUse)
        : random(randomToUse), nodesLeft(random.between(1, 120)) {}

    FakeAst ast;

    NodeView make(int depth = 0) {
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
            for (std::size_t count = countFor(accessor.form); count > 0; --count) {
                children.back().push_back(make(depth + 1));
            }
        }
        std::vector<Part> parts;
        for (std::size_t i = 0; i < accessors.size(); ++i) {
            parts.emplace_back(accessors[i].operation, children[i]);
        }
        return ast.add(kind, parts);
    }

private:
    std::size_t countFor(Form form) {
        if (form == Form::One) return 1;
        if (nodesLeft == 0) return 0;
        return form == Form::Maybe ? random.below(2) : random.below(5);
    }

    NodeView makeInputParameter(int depth) {
        const bool holdsIdentifier = random.oneIn(2);
        const std::vector<NodeView> held(random.below(2), make(depth + 1));
        const auto accessor = holdsIdentifier ? Operation::getInputParameterIdentifier
                                              : Operation::getInputParameterIgnored;
        const auto kind = holdsIdentifier ? NodeKind::Identifier : NodeKind::IgnoredArgument;
        return ast.add(NodeKind::InputParameter, {Part(accessor, held)},
                       static_cast<std::uint32_t>(kind));
    }

    Random& random;
    std::size_t nodesLeft;
};

/// The plain walk that the library's walk is compared with: it follows the grammar on the lists of
/// the FakeAst.
void walkPlainly(const FakeAst& ast, const NodeView& node, std::vector<NodeView>& visited) {
    const auto row = getGrammar().find(ast.getNodeKind(node.node));
    if (row == getGrammar().end()) return;
    visited.push_back(node);
    if (row->first == NodeKind::InputParameter) {
        const auto accessor = ast.getInputParameterKind(node.node) == NodeKind::Identifier
                                  ? Operation::getInputParameterIdentifier
                                  : Operation::getInputParameterIgnored;
        for (const NodeView& child : ast.childrenOf(node, accessor)) {
            walkPlainly(ast, child, visited);
        }
        return;
    }
    for (const Accessor& accessor : row->second) {
        for (const NodeView& child : ast.childrenOf(node, accessor.operation)) {
            walkPlainly(ast, child, visited);
        }
    }
}

TEST(RandomWalk, BothWalkersAgreeWithAPlainOne) {
    Random random;
    SCOPED_TRACE(random.describe());
    std::map<NodeKind, int> kindsSeen;
    for (std::size_t round = 0; round < rounds(5000); ++round) {
        RandomTree tree(random);
        const NodeView root = tree.make();
        std::vector<NodeView> expected;
        walkPlainly(tree.ast, root, expected);
        std::vector<NodeView> expectedLoops;
        for (const NodeView& node : expected) {
            ++kindsSeen[node.getKind()];
            if (node.getKind() == NodeKind::ForStatement) expectedLoops.push_back(node);
        }

        std::vector<NodeView> visited;
        forEachNodeIn(root, [&](const NodeView& node) { visited.push_back(node); });
        ASSERT_EQ(visited, expected) << "round " << round;
        std::vector<NodeView> loops;
        internal::forEachForStatementIn(root, [&](const NodeView& node) { loops.push_back(node); });
        ASSERT_EQ(loops, expectedLoops) << "round " << round;
    }
    EXPECT_EQ(kindsSeen.size(), FULL_TRACES.size()) << "not all kinds were seen";
}

} // namespace
} // namespace zt::orvex::testing
