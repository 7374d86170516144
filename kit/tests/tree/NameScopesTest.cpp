#include "tree/NameScopes.h"

#include <gtest/gtest.h>

#include <string>

namespace zt::orvex::kit::internal {
namespace {

TEST(NameScopes, NameKeepsItsFirstSymbol) {
    NameScopes scopes;
    EXPECT_EQ(scopes.use(NameScopes::ROOT, u"a", 1).symbol, 1u);
    EXPECT_EQ(scopes.use(NameScopes::ROOT, u"a", 2).symbol, 1u);
    EXPECT_EQ(scopes.use(NameScopes::ROOT, u"b", 2).symbol, 2u);
}

TEST(NameScopes, FunctionsDoNotShareNames) {
    NameScopes scopes;
    const auto function = scopes.open(NameScopes::ROOT, false);
    scopes.use(NameScopes::ROOT, u"a", 1);
    EXPECT_EQ(scopes.use(function, u"a", 2).symbol, 2u);
    EXPECT_FALSE(scopes.isInRoot(function));
}

TEST(NameScopes, AnonymousFunctionHasItsParametersAlone) {
    NameScopes scopes;
    const auto outer = scopes.open(NameScopes::ROOT, true);
    const auto inner = scopes.open(outer, true);
    scopes.declare(outer, u"p", 1);
    scopes.declare(inner, u"q", 2);
    EXPECT_TRUE(scopes.use(inner, u"p", 9).isParameter);
    EXPECT_EQ(scopes.use(inner, u"p", 9).symbol, 1u);
    EXPECT_EQ(scopes.use(inner, u"q", 9).symbol, 2u);
    EXPECT_EQ(scopes.use(inner, u"a", 3).symbol, 3u);
    EXPECT_EQ(scopes.use(NameScopes::ROOT, u"a", 9).symbol, 3u);
    EXPECT_FALSE(scopes.use(NameScopes::ROOT, u"p", 4).isParameter);
    EXPECT_TRUE(scopes.isInRoot(inner));
}

TEST(NameScopes, KeepsItsOwnCopyOfAName) {
    NameScopes scopes;
    std::u16string name = u"short";
    scopes.use(NameScopes::ROOT, name, 1);
    name = u"other";
    EXPECT_EQ(scopes.use(NameScopes::ROOT, u"short", 2).symbol, 1u);
}

} // namespace
} // namespace zt::orvex::kit::internal
