#include "analysis/KindGroups.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace zt::orvex::testing {
namespace {

using namespace flow::internal;

template <typename View>
constexpr int groupsOf() {
    return isInGroups<View, Statements> + isInGroups<View, Clauses> +
           isInGroups<View, Expressions> + isInGroups<View, Definitions>;
}

TEST(KindGroups, HoldEachKindOnce) {
#define ZT_ORVEX_NODE_KIND(Name, Class) EXPECT_EQ(groupsOf<Name##View>(), 1) << #Name;
#include <zt_orvex/ast/NodeKinds.def>
}

class NewKindView : public NodeView {
public:
    explicit NewKindView(const NodeView& of) : NodeView(of) {}
};

TEST(KindGroups, DoNotHoldAKindThatIsNotListed) {
    EXPECT_EQ(groupsOf<NewKindView>(), 0);
    EXPECT_EQ(groupsOf<NodeView>(), 0);
}

template <typename Visitor, typename View, typename = void>
constexpr bool handles = false;
template <typename Visitor, typename View>
constexpr bool
    handles<Visitor, View,
            std::void_t<decltype(std::declval<Visitor&>().visit(std::declval<const View&>()))>> =
        true;

struct ListingVisitor {
    void visit(const IfStatementView&) {}
    template <typename View>
    std::enable_if_t<isInGroups<View, Expressions, KindGroup<WhileStatementView>>>
    visit(const View&) {}
};

struct FallingBackVisitor {
    void visit(const IfStatementView&) {}
    void visit(const NodeView&) {}
};

TEST(KindGroups, VisitorThatListsItsKindsDoesNotTakeANewOne) {
    EXPECT_TRUE((handles<ListingVisitor, IfStatementView>));
    EXPECT_TRUE((handles<ListingVisitor, WhileStatementView>));
    EXPECT_TRUE((handles<ListingVisitor, IdentifierView>));
    EXPECT_FALSE((handles<ListingVisitor, ForStatementView>));
    EXPECT_FALSE((handles<ListingVisitor, NewKindView>));
    EXPECT_TRUE((handles<FallingBackVisitor, NewKindView>));
}

TEST(KindGroups, FallbackIsFound) {
    EXPECT_TRUE(hasFallback<FallingBackVisitor>);
    EXPECT_FALSE(hasFallback<ListingVisitor>);
}

} // namespace
} // namespace zt::orvex::testing
