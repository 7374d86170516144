#include <zt_orvex_kit/tree/SymbolNames.h>

#include "testing/TreeBuilder.h"

#include <gtest/gtest.h>

#include <unordered_set>

namespace zt::orvex::kit {
namespace {

class Names : public ::testing::Test, protected testing::TreeBuilder {};

TEST_F(Names, AreThoseOfTheIdentifiers) {
    const SymbolNames names(assign(id("total"), add(id("a"), id("b"))));
    EXPECT_EQ(names.of(symbol("total")), "total");
    EXPECT_EQ(names.list(std::unordered_set<SymbolView>({symbol("total"), symbol("a")})),
              "a total");
    EXPECT_EQ(names.list(flow::OrderedSet<SymbolView>({symbol("total"), symbol("a")})), "a total");
    EXPECT_EQ(names.list(std::unordered_set<SymbolView>()), "");
}

TEST_F(Names, SymbolThatNoIdentifierHasIsItsHandle) {
    const SymbolNames names(id("a"));
    EXPECT_EQ(names.of(SymbolView{0x77, &ast}), "symbol 0x77");
}

} // namespace
} // namespace zt::orvex::kit
