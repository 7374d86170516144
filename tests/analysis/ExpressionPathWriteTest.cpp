#include "analysis/AnalysisFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace zt::orvex::testing {
namespace {

// What a write of x does, by target, type and mode

struct WriteRule {
    const char* target;
    const char* must;
    const char* mayPlainOrAns;
    const char* maySliced;
};

class WriteTable : public AnalysisFixture {
protected:
    // k is a subscript variable and n isn't; neither is in the universe here.
    NodeView make(const std::string& target) {
        const NodeView x = id("x");
        if (target == "x") return x;
        if (target == "x(n)") return paren(x, {id("n")});
        if (target == "x{n}") return brace(x, {id("n")});
        if (target == "x()") return paren(x, {});
        if (target == "x(k)") return paren(x, {id("k")});
        if (target == "x{k}") return brace(x, {id("k")});
        if (target == "x(1,k)") return paren(x, {number(), id("k")});
        if (target == "x{k,:}") return brace(x, {id("k"), colon()});
        if (target == "x((k))") return paren(x, {parenthesized(parenthesized(id("k")))});
        if (target == "x(k+1)") return paren(x, {add(id("k"), number())});
        if (target == "x(-k)") return paren(x, {minus(id("k"))});
        if (target == "x.a") return dot(x, id("n"));
        if (target == "x.k") return dot(x, id("k"));
        if (target == "x.(n)") return dynamicField(x, id("n"));
        if (target == "x.(k)") return dynamicField(x, id("k"));
        if (target == "x(n).a") return dot(paren(x, {id("n")}), id("n"));
        if (target == "x{n}(n)") return paren(brace(x, {id("n")}), {id("n")});
        if (target == "x.a.b") return dot(dot(x, id("n")), id("n"));
        if (target == "x(n)(n)(n)") return paren(paren(paren(x, {id("n")}), {id("n")}), {id("n")});
        if (target == "(x)") return parenthesized(x);
        if (target == "(x(n))") return parenthesized(paren(x, {id("n")}));
        throw std::invalid_argument(target);
    }
};

TEST_F(WriteTable, EveryRowUnderEveryTypeAndMode) {
    static const WriteRule RULES[] = {
        {"x", "kill x", "kill x", "kill x"},        {"x(n)", "kill x", "gen x", "kill x"},
        {"x{n}", "kill x", "gen x", "kill x"},      {"x()", "kill x", "gen x", "kill x"},
        {"x(k)", "kill x", "gen x", "gen x"},       {"x{k}", "kill x", "gen x", "gen x"},
        {"x(1,k)", "kill x", "gen x", "gen x"},     {"x{k,:}", "kill x", "gen x", "gen x"},
        {"x((k))", "kill x", "gen x", "gen x"},     {"x(k+1)", "kill x", "gen x", "kill x"},
        {"x(-k)", "kill x", "gen x", "kill x"},     {"x.a", "kill x", "gen x", "kill x"},
        {"x.k", "kill x", "gen x", "kill x"},       {"x.(n)", "kill x", "gen x", "kill x"},
        {"x.(k)", "kill x", "gen x", "kill x"},     {"x(n).a", "kill x", "gen x", "gen x"},
        {"x{n}(n)", "kill x", "gen x", "gen x"},    {"x.a.b", "kill x", "gen x", "gen x"},
        {"x(n)(n)(n)", "kill x", "gen x", "gen x"}, {"(x)", "kill x", "gen x", "kill x"},
        {"(x(n))", "kill x", "gen x", "gen x"},
    };
    universe = Universe();
    fill(universe, "x");
    for (const WriteRule& rule : RULES) {
        const NodeView statement = assign(make(rule.target), number());
        for (const Mode mode : {PLAIN, SLICED, ANS})
            EXPECT_EQ(effects(statement, MUST, mode, "k"), rule.must) << rule.target;
        EXPECT_EQ(effects(statement, MAY, PLAIN, "k"), rule.mayPlainOrAns) << rule.target;
        EXPECT_EQ(effects(statement, MAY, ANS, "k"), rule.mayPlainOrAns) << rule.target;
        EXPECT_EQ(effects(statement, MAY, SLICED, "k"), rule.maySliced) << rule.target;
    }
}

TEST_F(WriteTable, ComputedFieldIsReadWhileItsBaseIsWrittenWhole) {
    EXPECT_EQ(effects(assign(dynamicField(id("x"), id("n")), number()), MAY, SLICED),
              "gen n kill x");
}

TEST_F(WriteTable, SubscriptVariablesNeedNotBelongToTheUniverse) {
    EXPECT_EQ(effects(assign(paren(id("x"), {id("outside")}), number()), MAY, SLICED, "outside"),
              "gen x");
}

TEST_F(WriteTable, IndexedLoopVariableFollowsTheSameRules) {
    EXPECT_EQ(effects(forLoop(paren(id("x"), {id("n")}), id("y"), {}), MAY, PLAIN), "gen n x y");
    EXPECT_EQ(effects(forLoop(paren(id("x"), {id("n")}), id("y"), {}), MAY, SLICED),
              "gen n y kill x");
}

TEST_F(WriteTable, SubscriptVariableMakesTheWritePartialAtEachPosition) {
    universe = Universe();
    fill(universe, "x");
    constexpr std::size_t SUBSCRIPTS = 4;
    const Nodes others = {number(), id("n"), colon(), end()};
    const auto write = [&](const Nodes& subscripts, bool hasBraces) {
        const NodeView target =
            hasBraces ? NodeView(brace(id("x"), subscripts)) : NodeView(paren(id("x"), subscripts));
        return effects(assign(target, number()), MAY, SLICED, "k");
    };
    for (const bool hasBraces : {false, true}) {
        EXPECT_EQ(write(others, hasBraces), "kill x");
        for (std::size_t i = 0; i < SUBSCRIPTS; ++i) {
            Nodes subscripts = others;
            subscripts[i] = id("k");
            EXPECT_EQ(write(subscripts, hasBraces), "gen x") << "position " << i;
        }
    }
}

} // namespace
} // namespace zt::orvex::testing
