#include "analysis/AnalysisFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

namespace zt::orvex::testing {
namespace {

// Writes of ans

struct AnsRule {
    const char* statement;
    const char* ansMode;
    const char* otherUnderMay;
    const char* otherUnderMust;
};

class AnsTable : public AnalysisFixture {
protected:
    NodeView make(const std::string& statement, const NodeView& target) {
        if (statement == "expression") return expressionStatement(target, id("x"));
        if (statement == "command") return command(target, id("x"), {});
        if (statement == "bare identifier") return bareIdentifier(target);
        if (statement == "implicit command") return implicitCommand(target, {});
        if (statement == "assignment") return assign(target, id("x"));
        if (statement == "multi-assignment") return multiAssign({target}, id("x"));
        if (statement == "for") return forLoop(target, id("x"), {});
        if (statement == "parfor") return parforLoop(target, id("x"), {});
        if (statement == "catch") return catchClause(target, {});
        throw std::invalid_argument(statement);
    }
};

TEST_F(AnsTable, EveryRowUnderEveryMode) {
    static const AnsRule RULES[] = {
        {"expression", "kill ans", "", "kill ans"},
        {"command", "kill ans", "", "kill ans"},
        {"bare identifier", "", "", ""},
        {"implicit command", "", "", ""},
        {"assignment", "kill ans", "kill ans", "kill ans"},
        {"multi-assignment", "kill ans", "kill ans", "kill ans"},
        {"for", "kill ans", "kill ans", "kill ans"},
        {"parfor", "kill ans", "kill ans", "kill ans"},
        {"catch", "kill ans", "kill ans", "kill ans"},
    };
    universe = Universe();
    fill(universe, "ans");
    for (const AnsRule& rule : RULES) {
        const NodeView statement = make(rule.statement, id("ans"));
        EXPECT_EQ(effects(statement, MAY, ANS), rule.ansMode) << rule.statement;
        for (const Mode mode : {PLAIN, SLICED}) {
            EXPECT_EQ(effects(statement, MAY, mode), rule.otherUnderMay) << rule.statement;
            EXPECT_EQ(effects(statement, MUST, mode), rule.otherUnderMust) << rule.statement;
        }
    }
}

TEST_F(AnsTable, UnderMustTheAnsModeIsLikeTheOthers) {
    EXPECT_EQ(effects(make("expression", id("ans")), MUST, ANS), "gen x kill ans");
    EXPECT_EQ(effects(make("command", id("ans")), MUST, ANS), "gen x kill ans");
    EXPECT_EQ(effects(make("bare identifier", id("ans")), MUST, ANS), "");
    EXPECT_EQ(effects(make("implicit command", id("ans")), MUST, ANS), "");
}

TEST_F(AnsTable, PartOfAnsFollowsTheGeneralRuleOnlyWhereTheSourceHasTheTarget) {
    const auto part = [&] { return paren(id("ans"), {number()}); };
    EXPECT_EQ(effects(assign(part(), number()), MAY, ANS), "gen ans");
    EXPECT_EQ(effects(assign(part(), number()), MAY, PLAIN), "gen ans");
    EXPECT_EQ(effects(assign(part(), number()), MAY, SLICED), "kill ans");
    EXPECT_EQ(effects(assign(part(), number()), MUST, ANS), "kill ans");
    // The statement decides before the shape of the target does.
    EXPECT_EQ(effects(expressionStatement(part(), number()), MAY, ANS), "kill ans");
    EXPECT_EQ(effects(expressionStatement(part(), number()), MAY, PLAIN), "");
    EXPECT_EQ(effects(bareIdentifier(part()), MAY, ANS), "");
}

TEST_F(AnsTable, ReadsOfTheExpressionCount) {
    EXPECT_EQ(effects(expressionStatement(id("ans"), id("x")), MAY, PLAIN), "gen x");
    EXPECT_EQ(effects(expressionStatement(id("ans"), id("ans")), MAY, PLAIN), "gen ans");
    EXPECT_EQ(effects(expressionStatement(id("ans"), id("ans")), MAY, ANS), "gen ans kill ans");
}

TEST_F(AnsTable, OnlyTheExactNameCounts) {
    for (const char* name : {"an", "ansx", "Ans", "ANS", "answer"}) {
        universe = Universe();
        fill(universe, name);
        const std::string kill = std::string("kill ") + name;
        EXPECT_EQ(effects(expressionStatement(id(name), number()), MAY, PLAIN), kill);
        EXPECT_EQ(effects(bareIdentifier(id(name)), MAY, PLAIN), kill);
        EXPECT_EQ(effects(implicitCommand(id(name), {}), MAY, PLAIN), kill);
        EXPECT_EQ(effects(command(id(name), number(), {}), MAY, PLAIN), kill);
    }
}

TEST_F(AnsTable, EachUnitOfTheNameCounts) {
    // 0x0161 and 0x6161 end in the byte of 'a'.
    for (const char16_t* name : {u"\u0161ns", u"an\u6173", u"ans\u0300"}) {
        universe = Universe();
        universe.add(ast.symbol(name));
        EXPECT_NE(effects(bareIdentifier(id(std::u16string_view(name))), MAY, PLAIN), "");
    }
}

TEST_F(AnsTable, OtherNamesAsImplicitTargetsAreWholeWritesInEveryMode) {
    for (const Mode mode : {PLAIN, SLICED, ANS}) {
        EXPECT_EQ(effects(expressionStatement(id("y"), number()), MAY, mode), "kill y");
        EXPECT_EQ(effects(command(id("y"), number(), {}), MAY, mode), "kill y");
    }
}

} // namespace
} // namespace zt::orvex::testing
