#include "testing/FakeAst.h"

#include <zt_orvex/zt_orvex.h>

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

namespace zt::orvex {
namespace {

/// The text of the std::logic_error that `ask` throws.
template <typename Ask>
std::string refusal(const Ask& ask) {
    try {
        ask();
    } catch (const std::exception& error) {
        EXPECT_EQ(typeid(error), typeid(std::logic_error));
        return error.what();
    }
    return "nothing was thrown";
}

TEST(BasicAstView, RequiredPartThatIsNotOverriddenThrowsWithOperationAndKind) {
    const BasicAstView tree;
    std::map<std::string, std::string> expected;
#define ZT_ORVEX_ONE(Kind, accessor)                                                               \
    expected[#accessor] = #accessor " of " #Kind " was asked and is not overridden";
#define ZT_ORVEX_SHARED_ONE(Kind, accessor)
#include <zt_orvex/ast/NodeKinds.def>
    expected["getMethodName"] = "getMethodName of MethodDeclaration or MethodDefinition was asked "
                                "and is not overridden";

    std::size_t count = 0;
#define ZT_ORVEX_TEST_ONE(name)                                                                    \
    EXPECT_EQ(refusal([&] { tree.name(1); }), expected[#name]);                                    \
    ++count;
#include "testing/IAstViewOperations.def"
    EXPECT_EQ(count, expected.size());
    EXPECT_EQ(expected["getIfCondition"],
              "getIfCondition of IfStatement was asked and is not overridden");
}

TEST(BasicAstView, NameSymbolOperatorAndKindThatAreNotOverriddenThrow) {
    const BasicAstView tree;
    EXPECT_EQ(refusal([&] { tree.getIdentifierName(1); }),
              "getIdentifierName of Identifier was asked and is not overridden");
    EXPECT_EQ(refusal([&] { tree.getIdentifierSymbol(1); }),
              "getIdentifierSymbol of Identifier was asked and is not overridden");
    EXPECT_EQ(refusal([&] { tree.getBinaryOperator(1); }),
              "getBinaryOperator of BinaryOperation was asked and is not overridden");
    EXPECT_EQ(refusal([&] { tree.getUnaryOperator(1); }),
              "getUnaryOperator of UnaryOperation was asked and is not overridden");
    EXPECT_EQ(refusal([&] { tree.getNodeKind(1); }), "getNodeKind was asked and is not overridden");
}

TEST(BasicAstView, OptionalPartThatIsNotOverriddenIsAbsent) {
    const BasicAstView tree;
#define ZT_ORVEX_TEST_MAYBE(name) EXPECT_FALSE(tree.name(1).has_value()) << #name;
#include "testing/IAstViewOperations.def"
}

/// A tree whose ranges are told apart by their words, none of which mean an empty range.
struct RangesThatAreNeverEmpty : BasicAstView {
    NodeView rangeElement(std::uint64_t index, std::uint64_t first,
                          std::uint64_t second) const override {
        return {100 * first + 10 * second + index, this};
    }
    std::uint64_t rangeSize(std::uint64_t first, std::uint64_t second) const override {
        return first + second + 1;
    }
};

TEST(BasicAstView, RangeThatIsNotOverriddenIsEmptyAlsoWhereNoRangeOfTheTreeIs) {
    const RangesThatAreNeverEmpty tree;
#define ZT_ORVEX_TEST_RANGE(name, View)                                                            \
    EXPECT_EQ(tree.name(1).size(), 0U) << #name;                                                   \
    EXPECT_EQ(tree.name(1).second, 0U) << #name;                                                   \
    EXPECT_EQ(tree.name(1).view, &tree) << #name;
#include "testing/IAstViewOperations.def"
}

TEST(BasicAstView, RangesOfAllFamiliesLeadToTwoOperations) {
    const RangesThatAreNeverEmpty tree;
#define ZT_ORVEX_RANGE_FAMILY(View, elementOperation, sizeOperation)                               \
    EXPECT_EQ((View{7, 2, &tree}.size()), 10U) << #View;                                           \
    EXPECT_EQ((View{7, 2, &tree}[3].node), 723U) << #View;
#include <zt_orvex/ast/RangeFamilies.def>
}

TEST(BasicAstView, RangeOperationsThatAreNotOverriddenThrowTheirNames) {
    const BasicAstView tree;
#define ZT_ORVEX_RANGE_FAMILY(View, elementOperation, sizeOperation)                               \
    EXPECT_EQ(refusal([&] {                                                                        \
                  (View{7, 2, &tree}.size());                                                      \
              }),                                                                                  \
              "rangeSize was asked and is not overridden");                                        \
    EXPECT_EQ(refusal([&] {                                                                        \
                  (View{7, 2, &tree}[0]);                                                          \
              }),                                                                                  \
              "rangeElement was asked and is not overridden");
#include <zt_orvex/ast/RangeFamilies.def>
}

TEST(BasicAstView, ReservedOperationsReturnZero) {
    const BasicAstView tree;
#define ZT_ORVEX_TEST_NODE 1
#define ZT_ORVEX_TEST_NO_ARGUMENT
#define ZT_ORVEX_TEST_UNSETTLED(name, arguments)                                                   \
    EXPECT_EQ(tree.name(ZT_ORVEX_TEST_##arguments), 0U) << #name;
#include "testing/IAstViewOperations.def"
#undef ZT_ORVEX_TEST_NODE
#undef ZT_ORVEX_TEST_NO_ARGUMENT
}

TEST(BasicAstView, PseudoNodesHaveTheTwoHighestHandles) {
    const BasicAstView tree;
    EXPECT_EQ(tree.getEntryNode().node, UINT64_MAX - 1);
    EXPECT_EQ(tree.getExitNode().node, UINT64_MAX);
    EXPECT_EQ(tree.getEntryNode().view, &tree);
    EXPECT_EQ(tree.getExitNode().view, &tree);
}

TEST(BasicAstView, EverySymbolIsAVariable) {
    const BasicAstView tree;
    EXPECT_TRUE(tree.isVariableSymbol(0));
    EXPECT_TRUE(tree.isVariableSymbol(UINT64_MAX));
}

TEST(BasicAstView, ParameterHoldsTheIdentifierThatTheTreeGivesOrElseAnIgnoredArgument) {
    struct OneName : BasicAstView {
        boost::optional<NodeView> getInputParameterIdentifier(std::uint64_t node) const override {
            if (node == 1) return NodeView{2, this};
            return {};
        }
    };
    const OneName tree;
    EXPECT_EQ(tree.getInputParameterKind(1), NodeKind::Identifier);
    EXPECT_EQ(tree.getInputParameterKind(3), NodeKind::IgnoredArgument);
}

/// function name(p) with the body: parfor k = n, if c, y = f(k), end, end. Overrides what these
/// kinds have, and nothing else.
struct SmallTree : BasicAstView {
    struct Node {
        NodeKind kind;
        std::vector<std::uint64_t> children;
    };
    std::vector<Node> nodes = {
        {NodeKind::FunctionDefinition, {1, 2, 4, 5}}, // 0: name, input, part, member
        {NodeKind::Identifier, {}},
        {NodeKind::InputParameter, {3}},
        {NodeKind::Identifier, {}},
        {NodeKind::FillerNode, {}},
        {NodeKind::ParforStatement, {6, 7, 8}}, // 5: variable, expression, body
        {NodeKind::Identifier, {}},
        {NodeKind::Identifier, {}},
        {NodeKind::IfStatement, {9, 10}}, // 8: condition, body
        {NodeKind::Identifier, {}},
        {NodeKind::AssignmentStatement, {11, 12}}, // 10
        {NodeKind::Identifier, {}},
        {NodeKind::ParenOperation, {13, 14}}, // 12: base, argument
        {NodeKind::Identifier, {}},
        {NodeKind::Identifier, {}},
    };

    NodeView child(std::uint64_t node, std::uint64_t i) const {
        return {nodes[node].children[i], this};
    }

    NodeKind getNodeKind(std::uint64_t node) const override { return nodes[node].kind; }
    std::u16string_view getIdentifierName(std::uint64_t) const override { return u"name"; }
    SymbolView getIdentifierSymbol(std::uint64_t node) const override { return {node, this}; }
    NodeView getFunctionName(std::uint64_t node) const override { return child(node, 0); }
    InputParameterRangeView getFunctionInputs(std::uint64_t node) const override {
        return {node, 1, this};
    }
    boost::optional<NodeView> getInputParameterIdentifier(std::uint64_t node) const override {
        return child(node, 0);
    }
    NodeView getFunctionPart(std::uint64_t node) const override { return child(node, 2); }
    NodeRangeView getFunctionMembers(std::uint64_t node) const override { return {node, 3, this}; }
    NodeView getParforVariable(std::uint64_t node) const override { return child(node, 0); }
    NodeView getParforExpression(std::uint64_t node) const override { return child(node, 1); }
    StatementRangeView getParforBody(std::uint64_t node) const override { return {node, 2, this}; }
    NodeView getIfCondition(std::uint64_t node) const override { return child(node, 0); }
    StatementRangeView getIfBody(std::uint64_t node) const override { return {node, 1, this}; }
    NodeView getAssignmentLhs(std::uint64_t node) const override { return child(node, 0); }
    NodeView getAssignmentRhs(std::uint64_t node) const override { return child(node, 1); }
    NodeView getParenBase(std::uint64_t node) const override { return child(node, 0); }
    ExpressionRangeView getParenArguments(std::uint64_t node) const override {
        return {node, 1, this};
    }
    // A range is a node and the place of its one element among the children.
    NodeView rangeElement(std::uint64_t, std::uint64_t node, std::uint64_t place) const override {
        return child(node, place);
    }
    std::uint64_t rangeSize(std::uint64_t, std::uint64_t) const override { return 1; }
};

TEST(BasicAstView, TreeOverridesOnlyWhatItHasAndIsWalkedWhole) {
    const SmallTree tree;
    std::vector<std::uint64_t> visited;
    forEachNodeIn(NodeView{0, &tree}, [&](NodeView node) { visited.push_back(node.node); });
    EXPECT_EQ(visited,
              (std::vector<std::uint64_t>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}));
}

TEST(BasicAstView, TreeOverridesOnlyWhatItHasAndIsAnalysed) {
    const SmallTree tree;
    flow::OrderedSet<SymbolView> universe;
    for (const std::uint64_t identifier : {9U, 11U, 13U, 14U})
        universe.add({identifier, &tree});
    const auto live = flow::computeLiveAsTemporaryVariables(ParforStatementView(NodeView{5, &tree}),
                                                            universe, nullptr);
    EXPECT_EQ(live, (std::unordered_set<SymbolView>{{9, &tree}}));
}

} // namespace
} // namespace zt::orvex
