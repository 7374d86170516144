#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/TypedViews.h>

#include <gtest/gtest.h>

namespace zt::orvex {
namespace {

using testing::Call;
using testing::FakeAst;
using testing::Operation;
using testing::Part;

/// A node of `kind` in which that accessor, if it returns children, has one.
NodeView makeNode(FakeAst& ast, NodeKind kind, Operation accessor) {
    const NodeView child = ast.addIdentifier(u"child");
    if (kind == NodeKind::Identifier) return child;
    return ast.add(kind, {Part(accessor, child)});
}

/// Expects that `accessor` of a typed view asks one operation, with the view's handle.
template <typename View, typename Accessor>
void expectForward(Operation operation, const Accessor& accessor) {
    SCOPED_TRACE(testing::nameOf(operation));
    FakeAst ast;
    const View view(makeNode(ast, View::KIND, operation));
    ast.startRecording();
    accessor(view);
    ASSERT_EQ(ast.calls().size(), 1U);
    EXPECT_EQ(ast.calls()[0].operation, operation);
    EXPECT_EQ(ast.calls()[0].arguments[0], view.node);
}

TEST(TypedViews, EachAccessorAsksTheOperationOfItsName) {
#define ZT_ORVEX_VALUE(Kind, accessor, Type)                                                       \
    expectForward<Kind##View>(Operation::accessor,                                                 \
                              [](const Kind##View& view) { (void)view.accessor(); });
#define ZT_ORVEX_ONE(Kind, accessor) ZT_ORVEX_VALUE(Kind, accessor, NodeView)
#define ZT_ORVEX_MAYBE(Kind, accessor) ZT_ORVEX_VALUE(Kind, accessor, NodeView)
#define ZT_ORVEX_HELD(Kind, accessor, Held) ZT_ORVEX_VALUE(Kind, accessor, NodeView)
#define ZT_ORVEX_EACH(Kind, accessor, View) ZT_ORVEX_VALUE(Kind, accessor, View)
#include <zt_orvex/ast/NodeKinds.def>
}

template <typename Range>
void expectForwards(Operation element, Operation size) {
    SCOPED_TRACE(testing::nameOf(element));
    // The hook sees the calls; the words mean nothing to a FakeAst, which refuses them afterwards.
    FakeAst ast;
    std::vector<Call> calls;
    ast.onCall = [&](const Call& call) { calls.push_back(call); };
    const Range range{11, 22, &ast};
    EXPECT_THROW(range[33], std::logic_error);
    EXPECT_THROW(range.size(), std::logic_error);
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].operation, element);
    EXPECT_EQ(calls[0].arguments[0], 33U);
    EXPECT_EQ(calls[0].arguments[1], 11U);
    EXPECT_EQ(calls[0].arguments[2], 22U);
    EXPECT_EQ(calls[1].operation, size);
    EXPECT_EQ(calls[1].arguments[0], 11U);
    EXPECT_EQ(calls[1].arguments[1], 22U);
}

TEST(RangeViews, EachAsksThePairOfOperationsOfItsFamily) {
#define ZT_ORVEX_RANGE_FAMILY(View, element, size)                                                 \
    expectForwards<View>(Operation::element, Operation::size);
#include <zt_orvex/ast/RangeFamilies.def>
}

} // namespace
} // namespace zt::orvex
