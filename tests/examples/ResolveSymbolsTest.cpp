#include "Programs.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

using testing::parse;
using testing::universe;

TEST(ResolveSymbols, UniverseHasTheVariablesInOrderOfFirstAppearance) {
    EXPECT_EQ(universe(parse("b = a + c;\na(2) = 1;\nfor d = e, end\n"), 0), "b a d");
}

TEST(ResolveSymbols, WrittenNameIsAVariable) {
    EXPECT_EQ(universe(parse("a = 1; b.x(1) = 2; [c, d{1}, ~] = f(g);\n"
                             "for h = 1, end\nparfor i = 1, end\ntry, catch j, end\n"
                             "global k\npersistent l m\n"),
                       0),
              "a b c d h i j k l m");
    EXPECT_EQ(universe(parse("function [a, b] = f(c, ~)\nd = e;\nend"), 1), "a b c d");
}

TEST(ResolveSymbols, AnsBelongsToTheUniverseOnlyIfTheTextNamesIt) {
    EXPECT_EQ(universe(parse("1;\nfoo bar\n!x\n"), 0), "");
    EXPECT_EQ(universe(parse("x = 1; ans(1);\n"), 0), "x ans");
    EXPECT_EQ(universe(parse("f(@() ans);\n"), 0), "ans");
    EXPECT_EQ(universe(parse("s.ans; f(ans = 1); g = @(ans) ans; foo ans\n"), 0), "g");
}

TEST(ResolveSymbols, AnsIsAVariableOfEveryScope) {
    const ParsedFile file = parse("x = 1;\nfunction f\nend");
    ASSERT_EQ(file.scopes.size(), 2U);
    EXPECT_TRUE(file.tree->isVariableSymbol(file.scopes[0].ans.symbol));
    EXPECT_TRUE(file.tree->isVariableSymbol(file.scopes[1].ans.symbol));
    EXPECT_NE(file.scopes[0].ans, file.scopes[1].ans);
    EXPECT_EQ(file.tree->symbolName(file.scopes[1].ans), u"ans");
}

TEST(ResolveSymbols, EachFunctionHasItsOwnSymbols) {
    const ParsedFile file = parse("x = 1;\nfunction f\nx = 2;\nend\nfunction g\ny = x;\nend");
    ASSERT_EQ(file.scopes.size(), 3U);
    EXPECT_EQ(file.scopes[0].name, "");
    EXPECT_EQ(file.scopes[1].name, "f");
    EXPECT_EQ(universe(file, 0), "x");
    EXPECT_EQ(universe(file, 1), "x");
    EXPECT_EQ(universe(file, 2), "y");
    EXPECT_NE(file.scopes[0].universe[0], file.scopes[1].universe[0]);
}

TEST(ResolveSymbols, OneSymbolForEachNameAndScope) {
    const ParsedFile file = parse("x = x + 1;");
    const auto& identifiers = file.tree->parts().identifiers;
    ASSERT_EQ(identifiers.size(), 2U);
    EXPECT_EQ(identifiers[0].symbol, identifiers[1].symbol);
}

TEST(ResolveSymbols, AnonymousParametersHideNamesOfTheScope) {
    const ParsedFile file = parse("t = 1; y = 2; f = @(t) t + y + u; v = t;");
    EXPECT_EQ(universe(file, 0), "t y f v");
    const auto& identifiers = file.tree->parts().identifiers; // t y f t t y u v t
    ASSERT_EQ(identifiers.size(), 9U);
    EXPECT_EQ(identifiers[3].symbol, identifiers[4].symbol);
    EXPECT_NE(identifiers[0].symbol, identifiers[4].symbol);
    EXPECT_EQ(identifiers[1].symbol, identifiers[5].symbol);
    EXPECT_EQ(identifiers[0].symbol, identifiers[8].symbol);
    EXPECT_TRUE(file.tree->isVariableSymbol(identifiers[4].symbol));
}

TEST(ResolveSymbols, InnerAnonymousParametersHideOuterOnes) {
    const ParsedFile file = parse("f = @(a) g(@(a) a, a);"); // f a g a a a
    const auto& identifiers = file.tree->parts().identifiers;
    ASSERT_EQ(identifiers.size(), 6U);
    EXPECT_EQ(identifiers[3].symbol, identifiers[4].symbol);
    EXPECT_EQ(identifiers[1].symbol, identifiers[5].symbol);
    EXPECT_NE(identifiers[1].symbol, identifiers[3].symbol);
}

TEST(ResolveSymbols, CapturedNamesBelongToTheScope) {
    EXPECT_EQ(universe(parse("f = @() b + a;\na = 1; b = 2;\n"), 0), "f b a");
}

TEST(ResolveSymbols, FieldsAndNamedArgumentsAreNotVariables) {
    const ParsedFile file = parse("a = s.b; f(c = a); b = 1;\n");
    EXPECT_EQ(universe(file, 0), "a b");
    for (const auto& identifier : file.tree->parts().identifiers) {
        if (identifier.role == Role::Label) {
            EXPECT_FALSE(file.tree->isVariableSymbol(identifier.symbol));
        }
    }
}

TEST(ResolveSymbols, NamesInDiscardedStatementsDoNotCount) {
    EXPECT_EQ(universe(parse("b = a +;\na = 1; b = 1;\n"), 0), "a b");
}

TEST(ResolveSymbols, ConstructsAreInSourceOrderWithTheirScope) {
    const ParsedFile file = parse("parfor k = 1:3\nspmd\nend\nend\nfunction f\nspmd\nend\nend\n"
                                  "class A\nmethods\nfunction m\nparfor i = 1, end\nend\nend\nend");
    ASSERT_EQ(file.constructs.size(), 4U);
    EXPECT_EQ(file.constructs[0].node.getKind(), zt::orvex::NodeKind::ParforStatement);
    EXPECT_EQ(file.constructs[0].offset, 0U);
    EXPECT_EQ(file.constructs[1].node.getKind(), zt::orvex::NodeKind::SpmdStatement);
    EXPECT_EQ(file.scopes[file.constructs[1].scope].name, "");
    EXPECT_EQ(file.scopes[file.constructs[2].scope].name, "f");
    EXPECT_EQ(file.scopes[file.constructs[3].scope].name, "m");
    EXPECT_EQ(universe(file, file.constructs[3].scope), "i");
}

TEST(ResolveSymbols, SecondPassKeepsEachConstructOnce) {
    EXPECT_EQ(parse("parfor k = 1\nx\nend\nx = 1;\n").constructs.size(), 1U);
}

} // namespace
} // namespace ostrel
