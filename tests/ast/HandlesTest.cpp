#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>
#include <unordered_set>

namespace zt::orvex {
namespace {

using testing::Operation;
using testing::TreeBuilder;

template <typename Handle>
constexpr bool isPlain = std::is_trivially_copyable_v<Handle>&& std::is_standard_layout_v<Handle> &&
                         !std::is_polymorphic_v<Handle>;

static_assert(sizeof(NodeView) == 16 && isPlain<NodeView>);
static_assert(offsetof(NodeView, node) == 0 && offsetof(NodeView, view) == 8);
static_assert(sizeof(SymbolView) == 16 && isPlain<SymbolView>);
static_assert(offsetof(SymbolView, symbol) == 0 && offsetof(SymbolView, view) == 8);

#define ZT_ORVEX_NODE_KIND(Name, Class)                                                            \
    static_assert(sizeof(Name##View) == 16 && isPlain<Name##View>);                                \
    static_assert(std::is_base_of_v<NodeView, Name##View>);                                        \
    static_assert(std::is_convertible_v<const Name##View&, const NodeView&>);                      \
    static_assert(std::is_constructible_v<Name##View, const NodeView&>);                           \
    static_assert(!std::is_convertible_v<const NodeView&, Name##View>, "only explicitly");         \
    static_assert(Name##View::KIND == NodeKind::Name);
#include <zt_orvex/ast/NodeKinds.def>

#define ZT_ORVEX_RANGE_FAMILY(View, element, size)                                                 \
    static_assert(sizeof(View) == 24 && isPlain<View>);                                            \
    static_assert(offsetof(View, first) == 0 && offsetof(View, second) == 8);                      \
    static_assert(offsetof(View, view) == 16);
#include <zt_orvex/ast/RangeFamilies.def>

TEST(Fnv1a, ReturnsThePublishedHashOfEightBytesLowestFirst) {
    // "chongo w", from the test vectors that the authors of the hash published.
    EXPECT_EQ(internal::fnv1a(0x77'20'6f'67'6e'6f'68'63), 0xd1edd10b507344d0U);
}

TEST(Fnv1a, StartsFromThePublishedBasisAndMultipliesByThePrime) {
    std::uint64_t eightZeros = 0xcbf29ce484222325; // The basis is the hash of no bytes.
    for (int byte = 0; byte < 8; ++byte)
        eightZeros *= 0x100000001b3;
    EXPECT_EQ(internal::fnv1a(0), eightZeros);
    EXPECT_EQ(internal::fnv1a(0), 0xa8c7f832281a39c5U);
}

TEST(NodeView, EqualsAndHashesByTheHandleAlone) {
    TreeBuilder t;
    TreeBuilder other;
    const NodeView a{42, &t.ast};
    const NodeView sameHandle{42, &other.ast};
    const NodeView otherHandle{43, &t.ast};
    EXPECT_TRUE(a == sameHandle);
    EXPECT_FALSE(a != sameHandle);
    EXPECT_FALSE(a == otherHandle);
    EXPECT_TRUE(a != otherHandle);
    EXPECT_EQ(std::hash<NodeView>()(a), std::hash<NodeView>()(sameHandle));
    EXPECT_EQ(std::hash<NodeView>()(a), internal::fnv1a(42));
    EXPECT_EQ((std::unordered_set<NodeView>{a, sameHandle, otherHandle}).size(), 2U);
}

TEST(SymbolView, EqualsAndHashesByTheHandleAlone) {
    TreeBuilder t;
    TreeBuilder other;
    const SymbolView a{42, &t.ast};
    const SymbolView sameHandle{42, &other.ast};
    const SymbolView otherHandle{43, &t.ast};
    EXPECT_TRUE(a == sameHandle);
    EXPECT_FALSE(a != sameHandle);
    EXPECT_FALSE(a == otherHandle);
    EXPECT_TRUE(a != otherHandle);
    EXPECT_EQ(std::hash<SymbolView>()(a), std::hash<SymbolView>()(sameHandle));
    EXPECT_EQ(std::hash<SymbolView>()(a), internal::fnv1a(42));
    EXPECT_EQ((std::unordered_set<SymbolView>{a, sameHandle, otherHandle}).size(), 2U);
}

TEST(TypedView, HasTheTwoFieldsOfTheNodeAndIsMadeWithoutAskingTheTree) {
    TreeBuilder t;
    const NodeView node = t.id("x");
    t.ast.startRecording();
    const WhileStatementView view(node); // Not checked: it isn't one.
    EXPECT_EQ(view.node, node.node);
    EXPECT_EQ(view.view, node.view);
    EXPECT_EQ(view, node);
    EXPECT_TRUE(t.ast.calls().empty());
}

TEST(RangeView, ForwardsItsWordsAndIteratesWithFor) {
    TreeBuilder t;
    const auto range = t.block({t.id("a"), t.id("b"), t.id("c")});
    EXPECT_EQ(range.size(), 3U);
    std::string labels;
    for (const NodeView node : range)
        labels += testing::label(node);
    EXPECT_EQ(labels, "abc");
    EXPECT_EQ(testing::label(range[2]), "c");
    for (const NodeView node : t.block({}))
        FAIL() << testing::label(node);
}

TEST(RangeView, IterationAsksTheSizeAnewBeforeEachElement) {
    TreeBuilder t;
    const auto clause = t.elseClause({t.id("a"), t.id("b"), t.id("c")});
    const auto range = clause.getElseBody();
    t.ast.startRecording();
    std::string labels;
    for (const NodeView node : range) {
        labels += testing::label(node);
        if (labels == "ab") t.ast.setSize(clause, Operation::getElseBody, 1);
    }
    EXPECT_EQ(labels, "ab");
    EXPECT_EQ(t.ast.count(Operation::getStatementRangeSize), 3U);
    EXPECT_EQ(t.ast.count(Operation::getStatementRangeElement), 2U);
}

} // namespace
} // namespace zt::orvex
