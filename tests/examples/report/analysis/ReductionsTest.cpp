#include "ReportOf.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::report::testing {

namespace {

/// By what `x` is reduced in a body; its role's name if it isn't.
std::string reductionOf(const std::string& body) {
    const File file = reportOf("a = 1; b = 1; c = 1; x = 1;\nparfor k = 1:a\n" + body + "\nend\n");
    EXPECT_FALSE(file.hasErrors()) << file.diagnostics.front().message;
    const Variable variable = variableOf(file.constructs.at(0), "x");
    return variable.role == Role::Reduction ? variable.by
                                            : std::string(identifierOf(variable.role));
}

TEST(Reductions, EachOperatorCombines) {
    EXPECT_EQ(reductionOf("x = x + a;"), "+");
    EXPECT_EQ(reductionOf("x = x .* a;"), ".*");
    EXPECT_EQ(reductionOf("x = x * a;"), "*");
    EXPECT_EQ(reductionOf("x = x & a;"), "&");
    EXPECT_EQ(reductionOf("x = x | a;"), "|");
    EXPECT_EQ(reductionOf("x = x - a;"), "-");
}

TEST(Reductions, OtherOperatorsDoNot) {
    for (const char* op : {"/", "\\", "./", ".\\", "^", ".^", "<", "==", "&&", "||"})
        EXPECT_EQ(reductionOf("x = x " + std::string(op) + " a;"), "carried") << op;
    EXPECT_EQ(reductionOf("x = x:a;"), "carried");
    EXPECT_EQ(reductionOf("x = -x;"), "carried");
}

TEST(Reductions, VariableMayBeTheLastOperand) {
    EXPECT_EQ(reductionOf("x = a + x;"), "+");
    EXPECT_EQ(reductionOf("x = a * b * x;"), "*");
    EXPECT_EQ(reductionOf("x = a + x; x = x + b;"), "+");
}

TEST(Reductions, DifferenceFromTheVariableIsNone) {
    EXPECT_EQ(reductionOf("x = a - x;"), "carried");
}

TEST(Reductions, SeveralValuesMayBeCombinedAtOnce) {
    EXPECT_EQ(reductionOf("x = x + a + b;"), "+");
    EXPECT_EQ(reductionOf("x = x - a - b;"), "-");
    EXPECT_EQ(reductionOf("x = x + a * b;"), "+");
    EXPECT_EQ(reductionOf("x = x + a - b;"), "carried");
    EXPECT_EQ(reductionOf("x = a + x + b;"), "carried");
}

TEST(Reductions, AppendingIsOne) {
    EXPECT_EQ(reductionOf("x = [x, a];"), "[,]");
    EXPECT_EQ(reductionOf("x = [x a b];"), "[,]");
    EXPECT_EQ(reductionOf("x = [x; a];"), "[;]");
    EXPECT_EQ(reductionOf("x = [x; a, b];"), "[;]");
}

TEST(Reductions, PrependingAndMixedMatricesAreNone) {
    EXPECT_EQ(reductionOf("x = [a, x];"), "carried");
    EXPECT_EQ(reductionOf("x = [a; x];"), "carried");
    EXPECT_EQ(reductionOf("x = [x, a; b, c];"), "carried");
    EXPECT_EQ(reductionOf("x = [x];"), "carried");
    EXPECT_EQ(reductionOf("x = {x, a};"), "carried");
}

TEST(Reductions, CallOfAFunctionWithTheVariableFirstIsOne) {
    EXPECT_EQ(reductionOf("x = max(x, a);"), "max");
    EXPECT_EQ(reductionOf("x = combine(x, a + b);"), "combine");
}

TEST(Reductions, OtherCallsAreNone) {
    EXPECT_EQ(reductionOf("x = max(a, x);"), "carried");
    EXPECT_EQ(reductionOf("x = max(x);"), "carried");
    EXPECT_EQ(reductionOf("x = max(x, a, b);"), "carried");
    EXPECT_EQ(reductionOf("x = c(x, a);"), "carried");     // an element of a variable
    EXPECT_EQ(reductionOf("x = m.max(x, a);"), "carried"); // a method
}

TEST(Reductions, AllStatementsMustUseTheSameOperation) {
    EXPECT_EQ(reductionOf("x = x + a; x = x + b;"), "+");
    EXPECT_EQ(reductionOf("x = x + a; x = x * 2;"), "carried");
    EXPECT_EQ(reductionOf("x = x + a; x = x - b;"), "carried");
    EXPECT_EQ(reductionOf("x = max(x, a); x = min(x, a);"), "carried");
    EXPECT_EQ(reductionOf("x = [x, a]; x = [x; a];"), "carried");
}

TEST(Reductions, AnyOtherMentionSpoilsOne) {
    EXPECT_EQ(reductionOf("x = x + x;"), "carried");
    EXPECT_EQ(reductionOf("x = x + f(x);"), "carried");
    EXPECT_EQ(reductionOf("x = x + a; y = x;"), "carried");
    EXPECT_EQ(reductionOf("x = x + a; if x > 3, y = 1; end"), "carried");
    EXPECT_EQ(reductionOf("x = x + a; g = @() x;"), "carried");
    EXPECT_EQ(reductionOf("x(k) = x + a;"), "carried");
    EXPECT_EQ(reductionOf("[x, y] = f(x);"), "carried");
}

TEST(Reductions, StatementsMayBeConditional) {
    EXPECT_EQ(reductionOf("if a, x = x + b; else, x = x + c; end"), "+");
    EXPECT_EQ(reductionOf("for j = 1:3, x = x + j; end"), "+");
    EXPECT_EQ(reductionOf("parfor j = 1:3, x = x + j; end"), "+");
    EXPECT_EQ(reductionOf("x = x + a"), "+"); // printed
}

TEST(Reductions, ImplicitAnsIsAMention) {
    const File file = reportOf("parfor k = 1:3, ans = ans + k; sin(k); end");
    EXPECT_EQ(variableOf(file.constructs.at(0), "ans").role, Role::Carried);
    const File alone = reportOf("parfor k = 1:3, ans = ans + k; end");
    EXPECT_EQ(variableOf(alone.constructs.at(0), "ans").role, Role::Reduction);
}

} // namespace

} // namespace ostrel::report::testing
