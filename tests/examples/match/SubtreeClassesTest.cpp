#include "match/SubtreeClasses.h"

#include "Programs.h"
#include "match/TreeMatcher.h"
#include "testing/Random.h"
#include "testing/RandomProgram.h"

#include <gtest/gtest.h>
#include <zt_orvex/equivalence/EquivalenceNullLogger.h>

#include <string>

namespace ostrel::testing {

namespace {

bool haveSameClass(std::string_view a, std::string_view b) {
    const ParsedFile first = parse(a);
    const ParsedFile second = parse(b);
    SubtreeClasses classes;
    const NodeClasses inFirst = classes.of(*first.tree);
    const NodeClasses inSecond = classes.of(*second.tree);
    return inFirst.whole[first.root.node] == inSecond.whole[second.root.node];
}

bool matches(const ParsedFile& first, const ParsedFile& second) {
    zt::orvex::internal::EquivalenceNullLogger logger;
    return TreeMatcher({*first.tree, first.source}, {*second.tree, second.source}, logger).match();
}

} // namespace

TEST(SubtreeClasses, LayoutCommentsAndSpellingDoNotCount) {
    EXPECT_TRUE(haveSameClass("x = 1 + a; % one\n", "\n  x=1+a;"));
    EXPECT_TRUE(haveSameClass("x = 1.50;", "x = 15e-1;"));
    EXPECT_TRUE(haveSameClass("x = 0xFFu8;", "x = 0b11111111U8;"));
    EXPECT_TRUE(haveSameClass("x = 2i;", "x = 2.0j;"));
    EXPECT_TRUE(haveSameClass("turn on", "turn 'on'"));
}

TEST(SubtreeClasses, KindsNamesOperatorsTypesAndPartsCount) {
    EXPECT_FALSE(haveSameClass("x = 1;", "x = 1"));
    EXPECT_FALSE(haveSameClass("x = 1;", "y = 1;"));
    EXPECT_FALSE(haveSameClass("x = a + b;", "x = a - b;"));
    EXPECT_FALSE(haveSameClass("x = 1;", "x = 1i;"));
    EXPECT_FALSE(haveSameClass("x = 0xFF;", "x = 0x00FF;"));
    EXPECT_FALSE(haveSameClass("x = 'a';", "x = \"a\";"));
    EXPECT_FALSE(haveSameClass("x = 1:n;", "x = 1:1:n;"));
    EXPECT_FALSE(haveSameClass("f(a, b);", "f([a, b]);"));
    EXPECT_FALSE(haveSameClass("[a; b];", "[a b];"));
}

TEST(SubtreeClasses, AgreeWithTheMatcherOnAllPairsOfStatements) {
    zt::orvex::testing::Random random;
    SCOPED_TRACE(random.describe());
    zt::orvex::testing::RandomProgram programs(random);
    for (std::size_t round = zt::orvex::testing::rounds(2000); round > 0; --round) {
        const auto statement = [&] { return "a = " + programs.expression(4) + ";"; };
        const std::string a = statement();
        const std::string b = statement();
        ASSERT_EQ(haveSameClass(a, b), matches(parse(a), parse(b))) << a << "\n" << b;
    }
}

} // namespace ostrel::testing
