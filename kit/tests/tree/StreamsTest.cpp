#include <zt_orvex_kit/tree/Streams.h>

#include "testing/TreeBuilder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <unordered_set>

namespace zt::orvex::kit {
namespace {

template <typename T>
std::string text(const T& value) {
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

class Streams : public ::testing::Test, protected testing::TreeBuilder {};

TEST_F(Streams, NodePrintsAsKindAndHandle) {
    EXPECT_EQ(text(NodeView(breakStatement())), "BreakStatement (node 0x1000)");
}

TEST_F(Streams, IdentifierPrintsWithItsName) {
    EXPECT_EQ(text(NodeView(id(u"\u03B1"))), "Identifier \xCE\xB1 (node 0x1000)");
}

TEST_F(Streams, TypedViewPrintsAsTheNodeThatItIs) {
    EXPECT_EQ(text(id("x")), "Identifier x (node 0x1000)");
    EXPECT_EQ(text(returnStatement()), "ReturnStatement (node 0x1001)");
}

TEST_F(Streams, UnknownKindPrintsAsItsNumber) {
    EXPECT_EQ(text(unknown(200)), "unknown kind 200 (node 0x1000)");
    EXPECT_EQ(text(unknown(0)), "unknown kind 0 (node 0x1001)");
}

TEST_F(Streams, HandleWithoutAViewIsNotAsked) {
    EXPECT_EQ(text(NodeView{31, nullptr}), "node 0x1f without a view");
    EXPECT_EQ(text(SymbolView{31, nullptr}), "symbol 0x1f without a view");
}

TEST_F(Streams, SymbolSaysIfItIsNoVariable) {
    ast.setIsVariable(u"f", false);
    EXPECT_EQ(text(symbol("f")), "symbol 0x500000000000 (not a variable)");
    EXPECT_EQ(text(symbol("x")), "symbol 0x500000000001");
}

TEST_F(Streams, SetsPrintTheirElements) {
    const SymbolView first = symbol("a"), second = symbol("b");
    const std::string both = text(first) + ", " + text(second);
    const std::string reverse = text(second) + ", " + text(first);
    EXPECT_EQ(text(std::unordered_set<SymbolView>({second, first})), '{' + both + '}');
    const flow::OrderedSet<SymbolView> universe({second, first});
    EXPECT_EQ(text(universe), '{' + reverse + '}');
    flow::BitSet<SymbolView> set(universe);
    EXPECT_EQ(text(set), "{}");
    set.add(first);
    EXPECT_EQ(text(set), '{' + text(first) + '}');
}

TEST_F(Streams, EmptySetsPrintAsBraces) {
    EXPECT_EQ(text(std::unordered_set<SymbolView>()), "{}");
    EXPECT_EQ(text(flow::OrderedSet<SymbolView>()), "{}");
}

} // namespace
} // namespace zt::orvex::kit
