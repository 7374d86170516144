#include "ReportOf.h"

#include "report/analysis/Classify.h"
#include "report/text/RoleText.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::report::testing {

namespace {

TEST(Classify, LoopVariableThatTheBodyWritesKeepsItsRole) {
    EXPECT_EQ(roleIn("parfor k = 1:3, k = k + 1; end", "k"), Role::LoopVariable);
}

TEST(Classify, ValueIsCarriedFromItsReadToItsWrite) {
    const File file = reportOf("s = 0;\nx = 1:9;\nparfor k = 1:9\n    s = s / x(k);\nend\n");
    const Variable sum = variableOf(file.constructs.at(0), "s");
    EXPECT_EQ(sum.role, Role::Carried);
    EXPECT_EQ(lineAndColumn(sum.firstRead.value()), "4:9");
    EXPECT_EQ(lineAndColumn(sum.lastWrite.value()), "4:5");
    EXPECT_TRUE(sum.isReadOnEveryPath);
    EXPECT_FALSE(sum.isFirstReadPartialWrite);
    ASSERT_EQ(sum.places.size(), 2U);
    EXPECT_EQ(lineAndColumn(sum.places[0]), "4:5");
    EXPECT_EQ(lineAndColumn(sum.places[1]), "4:9");
}

TEST(Classify, ValueSetOnOnePathOnlyIsCarried) {
    const std::string text = "m = 0; c = 1;\nparfor k = 1:9\n if c, m = k; end\n y = m;\nend\n";
    EXPECT_EQ(roleIn(text, "m"), Role::Carried);
    EXPECT_EQ(roleIn(text, "y"), Role::Temporary);
    EXPECT_EQ(roleIn(text, "c"), Role::ReadFromOutside);
}

TEST(Classify, ElementsIndexedByTheLoopVariableAreSliced) {
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, x(k) = 1; end", "x"), Role::Sliced);
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, x(k) = x(k) + 1; end", "x"), Role::Sliced);
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, x{k}.a(2) = x{k}.a(1); end", "x"), Role::Sliced);
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, x(:, (k)) = x(end, k); end", "x"), Role::Sliced);
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, for j = 1:3, x(j, k) = x(k, k); end, end", "x"),
              Role::Sliced);
}

TEST(Classify, ElementsThatOtherIterationsUseAreCarried) {
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, x(k) = x(k + 1); end", "x"), Role::Carried);
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, x(k, 1) = x(1, k); end", "x"), Role::Carried);
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, x(k) = x(k, 1); end", "x"), Role::Carried);
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, x(k) = sum(x); end", "x"), Role::Carried);
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, f = @() x; x(k) = f() + x(k); end", "x"),
              Role::Carried);
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, f = @(k) x(k); x(k) = x(k); end", "x"),
              Role::Carried);
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, for j = 1:3, x(j) = k; end, end", "x"),
              Role::Carried);
}

TEST(Classify, ElementsAreNotOwnIfTheBodyWritesTheLoopVariable) {
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, k = 1; x(k) = x(k) + 1; end", "x"), Role::Carried);
}

TEST(Classify, VariableWithRemovedElementsIsNotSliced) {
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, y = x(k); x(k) = []; end", "x"), Role::Carried);
}

TEST(Classify, UnreachableWriteOfTheLoopVariableDoesNotCount) {
    EXPECT_EQ(roleIn("x = 1;\nparfor k = 1:9, x(k) = x(k) + 1; continue, k = 1; end", "x"),
              Role::Sliced);
}

TEST(Classify, PartsThatTwoIterationsMayWriteAreShared) {
    EXPECT_EQ(roleIn("x = 1;\nparfor i = 1:9, x(7) = i; end", "x"), Role::Shared);
    EXPECT_EQ(roleIn("w = 1;\nparfor i = 1:9, w(mod(i,3)+1) = i; end", "w"), Role::Shared);
    EXPECT_EQ(roleIn("f = 1; c = 1;\nparfor i = 1:9, f(c) = i; end", "f"), Role::Shared);
    EXPECT_EQ(roleIn("parfor i = 1:9, w.f = i; end", "w"), Role::Shared);
    EXPECT_EQ(roleIn("x = 1;\nparfor i = 1:9, x(i) = 1; x(2) = 1; end", "x"), Role::Shared);
}

TEST(Classify, PartOfASharedVariableIsReadByItsWrite) {
    const File file = reportOf("h = 1; b = 1;\nparfor k = 1:9, h(b(k)) = 1; end");
    const Variable variable = variableOf(file.constructs.at(0), "h");
    EXPECT_FALSE(variable.hasOwnElements);
    EXPECT_TRUE(variable.isFirstReadPartialWrite);
    EXPECT_EQ(lineAndColumn(variable.firstRead.value()), "2:17");
}

TEST(Classify, NoteSaysThatAPartialWriteIsTheFirstRead) {
    const File file = reportOf("t = 1;\nparfor k = 1:9\n for c = 1:3, t(c) = k; end\nend");
    const Variable variable = variableOf(file.constructs.at(0), "t");
    EXPECT_EQ(variable.role, Role::Carried);
    EXPECT_TRUE(variable.isFirstReadPartialWrite);
    EXPECT_EQ(lineAndColumn(variable.firstRead.value()), "3:15");
}

TEST(Classify, SpmdHasOutputsAndInputs) {
    const std::string text = "a = 1; u = 1;\nspmd, y = a; u = u + 1; z(2) = 1; end";
    EXPECT_EQ(roleIn(text, "a"), Role::ReadFromOutside);
    EXPECT_EQ(roleIn(text, "y"), Role::Output);
    EXPECT_EQ(roleIn(text, "u"), Role::Updated);
    EXPECT_EQ(roleIn(text, "z"), Role::Updated);
}

TEST(Classify, UnreachableStatementsNeitherReadNorWrite) {
    const std::string text = "a = 1;\nparfor k = 1:9\n continue\n b = a;\nend";
    EXPECT_EQ(roleIn(text, "a"), Role::NotUsed);
    EXPECT_EQ(roleIn(text, "b"), Role::NotUsed);
    EXPECT_EQ(roleIn("parfor k = 1:9, global g, end", "g"), Role::NotUsed);
}

TEST(Classify, AnsIsWrittenByExpressionStatements) {
    EXPECT_EQ(roleIn("parfor k = 1:9, sin(k); y = ans; end", "ans"), Role::Temporary);
    EXPECT_EQ(roleIn("parfor k = 1:9, y = ans; sin(k); end", "ans"), Role::Carried);
    EXPECT_EQ(roleIn("parfor k = 1:9, y = ans; end", "ans"), Role::ReadFromOutside);
    EXPECT_EQ(roleIn("spmd, sin(2); y = ans; end", "ans"), Role::Output);
    const File file = reportOf("parfor k = 1:9, y = ans; sin(k); end");
    EXPECT_EQ(lineAndColumn(*variableOf(file.constructs.at(0), "ans").lastWrite), "1:26");
}

TEST(Classify, VariablesNotNamedByTheConstructAreLeftOut) {
    const File file = reportOf("a = 1; b = 2;\nparfor k = 1:a\n c = 3;\nend");
    const Construct& construct = file.constructs.at(0);
    ASSERT_EQ(construct.variables.size(), 3U);
    EXPECT_EQ(construct.variables[0].name, "k");
    EXPECT_EQ(construct.variables[0].role, Role::LoopVariable);
    EXPECT_EQ(construct.variables[1].name, "a");
    EXPECT_FALSE(construct.variables[1].isInBody);
    EXPECT_EQ(construct.variables[1].role, Role::ReadFromOutside);
    EXPECT_EQ(noteOf(construct.variables[1]), "read only in the head");
    EXPECT_EQ(construct.variables[2].name, "c");
    EXPECT_TRUE(construct.variables[2].isInBody);
}

TEST(Classify, HeadReadsWhatItNames) {
    EXPECT_EQ(roleIn("n = 1;\nparfor k = 1:n, continue, y = n; end", "n"), Role::ReadFromOutside);
    EXPECT_EQ(roleIn("n = 1;\nparfor (k = 1:3, n), end", "n"), Role::ReadFromOutside);
    EXPECT_EQ(roleIn("n = 1;\nspmd (n), end", "n"), Role::ReadFromOutside);
    EXPECT_EQ(roleIn("n = 1;\nparfor k = 1:n, n = 2; end", "n"), Role::Temporary);
}

TEST(Classify, VariablesStandInTheOrderOfTheConstruct) {
    const File file = reportOf("a = 1; b = 2; c = 3;\nparfor k = 1:c\n y = b + a;\nend");
    std::string order;
    for (const Variable& variable : file.constructs.at(0).variables)
        order += variable.name;
    EXPECT_EQ(order, "kcyba");
}

TEST(Classify, RoleDependsOnTheConstruct) {
    const File file = reportOf("parfor k = 1:3\n s = 0;\n parfor j = 1:3, s = s + j; end\nend");
    EXPECT_EQ(variableOf(file.constructs.at(0), "s").role, Role::Temporary);
    EXPECT_EQ(variableOf(file.constructs.at(1), "s").role, Role::Reduction);
    EXPECT_EQ(variableOf(file.constructs.at(0), "j").role, Role::Temporary);
}

} // namespace

} // namespace ostrel::report::testing
