#include "RandomConstruct.h"
#include "ReportOf.h"

#include "report/analysis/ConstructFacts.h"
#include "report/analysis/FirstAndLastUses.h"
#include "report/analysis/LibraryAnswers.h"
#include "source/Utf8.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace ostrel::report::testing {

namespace {

using zt::orvex::SymbolView;

std::string nameOf(const ParsedFile& file, SymbolView symbol) {
    return toUtf8(file.tree->symbolName(symbol));
}

/// The variables that the library finds live at the entry of a body; `ans` by its own question.
std::set<std::string> liveByLibrary(const ParsedFile& file, const ostrel::Construct& construct) {
    const ostrel::Scope& scope = file.scopes[construct.scope];
    const zt::orvex::flow::OrderedSet<SymbolView> universe(scope.universe.begin(),
                                                           scope.universe.end());
    const LibraryAnswers answers = askLibrary(construct, universe, scope.ans);
    const bool isParfor = kindOf(construct) == ConstructKind::Parfor;
    std::set<std::string> names;
    for (const SymbolView symbol : scope.universe) {
        const bool isLive = isParfor ? answers.maybeLiveAsTemporary.count(symbol) != 0
                                     : answers.outputs.count(symbol) == 0;
        const bool isAns = symbol == scope.ans;
        if (isAns ? answers.ansPossiblyReadBeforeBeingWritten : isLive)
            names.insert(nameOf(file, symbol));
    }
    return names;
}

/// The variables with a first read.
std::set<std::string> readFromEntry(const ParsedFile& file, const ostrel::Construct& construct) {
    const ostrel::Scope& scope = file.scopes[construct.scope];
    const ConstructFacts facts(construct, scope.universe, scope.ans);
    const std::vector<FirstAndLastUses> uses =
        findFirstAndLastUses(*file.tree, facts.graph, facts.unwritten);
    std::set<std::string> names;
    for (std::size_t i = 0; i < uses.size(); ++i) {
        if (uses[i].firstRead) names.insert(nameOf(file, scope.universe[i]));
    }
    return names;
}

TEST(FirstAndLastUses, FindsAFirstReadOfExactlyTheVariablesThatAreLive) {
    zt::orvex::testing::Random random;
    SCOPED_TRACE(random.describe());
    RandomConstruct programs(random);
    for (std::size_t i = zt::orvex::testing::rounds(1000); i > 0; --i) {
        const std::string text = programs.next();
        const ParsedFile file = parseOstrel("random.ost", text);
        ASSERT_FALSE(file.hasErrors()) << file.diagnostics.front().message << '\n' << text;
        ASSERT_FALSE(file.constructs.empty());
        for (const ostrel::Construct& construct : file.constructs)
            ASSERT_EQ(readFromEntry(file, construct), liveByLibrary(file, construct)) << text;
    }
}

TEST(FirstAndLastUses, RandomConstructsHaveLiveVariablesAndOthers) {
    zt::orvex::testing::Random random;
    RandomConstruct programs(random);
    std::set<std::size_t> sizes;
    for (int i = 0; i < 200; ++i) {
        const ParsedFile file = parseOstrel("random.ost", programs.next());
        sizes.insert(liveByLibrary(file, file.constructs.front()).size());
    }
    EXPECT_GE(sizes.size(), 5U);
}

TEST(FirstAndLastUses, FirstReadIsTheFirstThatTheEntryReaches) {
    const File file = reportOf("x = 1; c = 1;\nparfor k = 1:3\n"
                               " if c\n  x = 2;\n  y = x;\n end\n z = x;\n w = x;\nend");
    EXPECT_EQ(lineAndColumn(*variableOf(file.constructs.at(0), "x").firstRead), "7:6");
}

TEST(FirstAndLastUses, FirstReadOfAStatementIsTheFirstInTheSource) {
    const File file = reportOf("x = 1; y = 1; z = 1;\nparfor k = 1:3\n"
                               " z(x) = x + y(y);\nend");
    EXPECT_EQ(lineAndColumn(*variableOf(file.constructs.at(0), "x").firstRead), "3:4");
    EXPECT_EQ(lineAndColumn(*variableOf(file.constructs.at(0), "y").firstRead), "3:13");
}

TEST(FirstAndLastUses, RangeOfANestedParforComesBeforeItsOptions) {
    const File file = reportOf("n = 1;\nspmd\n parfor (j = 1:n, n)\n end\nend");
    EXPECT_EQ(lineAndColumn(*variableOf(file.constructs.at(0), "n").firstRead), "3:16");
}

TEST(FirstAndLastUses, ReadsOfAStatementSeeTheValueFromBeforeItsWrites) {
    const File file = reportOf("x = 1;\nspmd\n [x, x(1)] = f();\nend");
    const Variable variable = variableOf(file.constructs.at(0), "x");
    EXPECT_EQ(lineAndColumn(*variable.firstRead), "3:6");
    EXPECT_TRUE(variable.isFirstReadPartialWrite);
    EXPECT_EQ(lineAndColumn(*variable.lastWrite), "3:6");
}

TEST(FirstAndLastUses, PrintedStatementIsFollowedByWhatComesAfterIt) {
    const File file = reportOf("x = 1;\nparfor k = 1:3\n x = 2\n y = x\n x = y\nend");
    const Variable variable = variableOf(file.constructs.at(0), "x");
    EXPECT_FALSE(variable.firstRead);
    EXPECT_EQ(lineAndColumn(*variable.lastWrite), "5:2");
}

TEST(FirstAndLastUses, PlainReadOfAStatementComesBeforeItsPartialWrite) {
    const File file = reportOf("x = 1;\nparfor k = 1:3\n x(1) = x(2);\nend");
    const Variable variable = variableOf(file.constructs.at(0), "x");
    EXPECT_EQ(lineAndColumn(*variable.firstRead), "3:9");
    EXPECT_FALSE(variable.isFirstReadPartialWrite);
}

TEST(FirstAndLastUses, LastWriteIsOneThatControlReaches) {
    const File file =
        reportOf("x = 1;\nparfor k = 1:3\n x = x + 1;\n if k, x = 2; end\n return\n x = 3;\nend");
    EXPECT_EQ(lineAndColumn(*variableOf(file.constructs.at(0), "x").lastWrite), "4:8");
}

TEST(FirstAndLastUses, ImplicitAnsIsWrittenByItsWholeStatement) {
    const File file = reportOf("spmd\n f(1);\n y = ans;\nend");
    const Place write = *variableOf(file.constructs.at(0), "ans").lastWrite;
    EXPECT_EQ(lineAndColumn(write), "2:2");
    EXPECT_GE(write.length, std::string("f(1)").size());
}

TEST(FirstAndLastUses, EveryStatementOfATryBodyMayFail) {
    const File file =
        reportOf("x = 1;\nparfor k = 1:3\n try\n  x = 2;\n catch e\n  y = x;\n end\nend");
    EXPECT_EQ(lineAndColumn(*variableOf(file.constructs.at(0), "x").firstRead), "6:7");
}

} // namespace

} // namespace ostrel::report::testing
