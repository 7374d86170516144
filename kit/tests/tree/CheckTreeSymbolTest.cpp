#include "lying/CheckTreeFixture.h"
#include "testing/Widen.h"

#include <gtest/gtest.h>

// Mistakes in names, symbols and the universe: what the check finds, and what an analysis answers
// without it.
namespace zt::orvex::kit {
namespace {

class CheckTreeSymbol : public CheckTreeFixture {
protected:
    CheckTreeSymbol() { options.universe = &universe; }

    void answerSymbol(const NodeView& asked, SymbolView answer) {
        lying.onSymbol = [=](const Call& call, SymbolView& symbol) {
            if (call.arguments[0] == asked.node) symbol = answer;
        };
    }
    SymbolView symbolOf(const char* name) { return {symbol(name).symbol, &lying}; }

    const std::string placeOfX = "ParforStatement.getParforBody[1] > IfStatement.getIfBody[0] > "
                                 "AssignmentStatement.getAssignmentRhs > Identifier.";
    const std::string placeOfT3 = "ParforStatement.getParforBody[2] > "
                                  "AssignmentStatement.getAssignmentRhs > "
                                  "ParenOperation.getParenArguments[0] > Identifier.";
};

TEST_F(CheckTreeSymbol, CorrectTreeFitsItsUniverse) { EXPECT_EQ(findings(), ""); }

TEST_F(CheckTreeSymbol, SymbolWithANullViewIsFound) {
    answerSymbol(t3, {symbol("t").symbol, nullptr});
    EXPECT_EQ(findings(), "symbol-view-null at " + placeOfT3 + "getIdentifierSymbol");
    EXPECT_DEATH(readFirst(), "");
}

TEST_F(CheckTreeSymbol, SymbolOfAnotherTreeIsFound) {
    TreeBuilder other;
    other.symbol("z");
    for (const char* name : {"k", "n", "t", "a", "b", "c", "x"})
        other.ast.setIsVariable(testing::widen(name), false);
    answerSymbol(a, {symbol("a").symbol, &other.ast});
    EXPECT_EQ(findings(), "symbol-view-foreign at ParforStatement.getParforBody[0] > "
                          "AssignmentStatement.getAssignmentRhs > BinaryOperation.getBinaryLhs > "
                          "Identifier.getIdentifierSymbol\n"
                          "universe-symbol-unused at root");
    EXPECT_EQ(readFirst(), "b c x");
}

TEST_F(CheckTreeSymbol, NameWithTwoSymbolsInOneScopeIsFound) {
    answerSymbol(t3, symbolOf("x"));
    EXPECT_EQ(findings(), "name-ambiguous at " + placeOfT3 + "getIdentifierSymbol");
    EXPECT_EQ(onlyFinding().advice.substr(0, 24), "`t` has this symbol here");
    EXPECT_EQ(onlyFinding().symbol->symbol, symbol("x").symbol);
}

TEST_F(CheckTreeSymbol, NameWithTwoSymbolsIsReportedOnce) {
    lying.onSymbol = [&](const Call& asked, SymbolView& answer) {
        if (asked.arguments[0] == t2.node || asked.arguments[0] == t3.node) answer = symbolOf("x");
    };
    EXPECT_EQ(checkTree(lying.view(loop), options).size(), 1u);
    // The second write of `t` isn't seen, and neither is the read after it.
    EXPECT_EQ(readFirst(), "a b c x");
}

TEST_F(CheckTreeSymbol, FunctionsAreScopesOfTheirOwn) {
    const auto inner = id("v"), outer = id("v");
    const auto function =
        functionDefinition({}, id("g"), {inputParameter(inner)}, filler(), {}, {});
    const auto root = program({assign(outer, number()), function});
    options.universe = nullptr;
    answerSymbol(inner, symbolOf("w"));
    EXPECT_EQ(findings(lying.view(root)), "");
}

TEST_F(CheckTreeSymbol, ParameterOfAnAnonymousFunctionHidesTheNameOutside) {
    const auto parameter = id("p"), use = id("p"), outside = id("p");
    const auto function = anonymousFunction({inputParameter(parameter)}, use);
    const auto root = lying.view(program({assign(id("h"), function), assign(outside, number())}));
    flow::OrderedSet<SymbolView> both({symbolOf("h"), symbolOf("p")});
    options.universe = &both;
    lying.onSymbol = [&](const Call& asked, SymbolView& answer) {
        if (asked.arguments[0] == parameter.node || asked.arguments[0] == use.node) {
            answer = symbolOf("q");
        }
    };
    EXPECT_EQ(findings(root), "");
}

TEST_F(CheckTreeSymbol, NameFromOutsideHasOneSymbolInAnAnonymousFunction) {
    const auto inside = id("p");
    const auto function = anonymousFunction({inputParameter(ignoredArgument())}, inside);
    const auto root = program({assign(id("p"), number()), assign(id("h"), function)});
    options.universe = nullptr;
    answerSymbol(inside, symbolOf("q"));
    EXPECT_EQ(findings(lying.view(root)),
              "name-ambiguous at Program.getProgramNodes[1] > "
              "AssignmentStatement.getAssignmentRhs > "
              "AnonymousFunction.getAnonymousFunctionBody > Identifier.getIdentifierSymbol");
}

TEST_F(CheckTreeSymbol, FieldMayHaveAnotherSymbolThanTheVariableOfItsName) {
    const auto field = id("a");
    options.universe = nullptr;
    answerSymbol(field, symbolOf("q"));
    EXPECT_EQ(findings(lying.view(assign(id("a"), dot(id("s"), field)))), "");
}

TEST_F(CheckTreeSymbol, WrittenIdentifierThatIsNoVariableIsFound) {
    ast.setIsVariable(u"t", false);
    EXPECT_EQ(findings(), "write-not-variable at ParforStatement.getParforBody[0] > "
                          "AssignmentStatement.getAssignmentLhs > Identifier.isVariableSymbol\n"
                          "write-not-variable at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfBody[0] > AssignmentStatement.getAssignmentLhs > "
                          "Identifier.isVariableSymbol");
}

TEST_F(CheckTreeSymbol, BaseOfAWriteIsWritten) {
    options.universe = nullptr;
    ast.setIsVariable(u"s", false);
    EXPECT_EQ(findings(lying.view(assign(dot(paren(id("s"), {id("a")}), id("f")), number()))),
              "write-not-variable at AssignmentStatement.getAssignmentLhs > "
              "DotOperation.getDotBase > ParenOperation.getParenBase > "
              "Identifier.isVariableSymbol");
}

TEST_F(CheckTreeSymbol, FunctionThatIsNamedAloneNeedNotBeAVariable) {
    options.universe = nullptr;
    EXPECT_EQ(findings(lying.view(bareIdentifier(id("f")))), "");
}

TEST_F(CheckTreeSymbol, SymbolThatTheUniverseLacksIsFound) {
    flow::OrderedSet<SymbolView> small;
    for (const SymbolView& each : universe)
        if (each != symbol("x")) small.add(each);
    options.universe = &small;
    EXPECT_EQ(findings(), "universe-lacks-symbol at " + placeOfX + "getIdentifierSymbol");
    universe = small;
    EXPECT_EQ(readFirst(), "a b c");
}

TEST_F(CheckTreeSymbol, SymbolThatTheUniverseLacksIsReportedOnce) {
    flow::OrderedSet<SymbolView> small;
    for (const SymbolView& each : universe)
        if (each != symbol("t")) small.add(each);
    options.universe = &small;
    EXPECT_EQ(findings(), "universe-lacks-symbol at ParforStatement.getParforBody[0] > "
                          "AssignmentStatement.getAssignmentLhs > "
                          "Identifier.getIdentifierSymbol");
}

TEST_F(CheckTreeSymbol, SymbolThatNoIdentifierHasIsFound) {
    universe.add(symbolOf("unused"));
    const Finding finding = onlyFinding();
    EXPECT_EQ(finding.code, FindingCode::UniverseUnused);
    EXPECT_EQ(finding.place, "root");
    EXPECT_EQ(finding.symbol->symbol, symbol("unused").symbol);
    EXPECT_FALSE(finding.node.has_value());
}

TEST_F(CheckTreeSymbol, UniverseIsThatOfTheRootAlone) {
    const auto function =
        functionDefinition({}, id("g"), {}, filler(), {}, {assign(id("local"), number())});
    flow::OrderedSet<SymbolView> own({symbolOf("v")});
    options.universe = &own;
    EXPECT_EQ(findings(lying.view(program({assign(id("v"), number()), function}))), "");
    flow::OrderedSet<SymbolView> local({symbolOf("local")});
    options.universe = &local;
    EXPECT_EQ(findings(lying.view(function)), "");
}

TEST_F(CheckTreeSymbol, TargetThatTheSourceDoesNotMentionNeedNotBeInTheUniverse) {
    const auto statement = expressionStatement(id("ans"), id("a"));
    flow::OrderedSet<SymbolView> own({symbolOf("a")});
    options.universe = &own;
    EXPECT_EQ(findings(lying.view(statement)), "");
    EXPECT_EQ(findings(lying.view(assign(id("ans"), id("a")))),
              "universe-lacks-symbol at AssignmentStatement.getAssignmentLhs > "
              "Identifier.getIdentifierSymbol");
}

TEST_F(CheckTreeSymbol, TargetWithAnotherNameThanAnsMustBeInTheUniverse) {
    flow::OrderedSet<SymbolView> own({symbolOf("a")});
    options.universe = &own;
    EXPECT_EQ(findings(lying.view(expressionStatement(id("b"), id("a")))),
              "universe-lacks-symbol at ExpressionStatement.getExpressionStatementTarget > "
              "Identifier.getIdentifierSymbol");
}

TEST_F(CheckTreeSymbol, SymbolOfAnsWithAnotherNameIsFound) {
    options.ans = symbolOf("t");
    EXPECT_EQ(findings().substr(0, 134),
              "ans-misnamed at ParforStatement.getParforBody[0] > "
              "AssignmentStatement.getAssignmentLhs > Identifier.getIdentifierName\n"
              "ans-misnamed at");
}

TEST_F(CheckTreeSymbol, SymbolOfAnsWithItsNameIsFine) {
    options.universe = nullptr;
    options.ans = symbolOf("ans");
    EXPECT_EQ(findings(lying.view(expressionStatement(id("ans"), id("a")))), "");
}

} // namespace
} // namespace zt::orvex::kit
