#include "Programs.h"
#include "testing/RandomProgram.h"

#include "syntax/Printer.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

using testing::parse;
using zt::orvex::testing::Random;
using zt::orvex::testing::RandomProgram;
using zt::orvex::testing::rounds;

void expectToSurvivePrinting(const std::string& source) {
    const ParsedFile first = parse(source);
    ASSERT_EQ(testing::dumpErrors(first), "") << source;
    const std::string printed = printSource(*first.tree);
    const ParsedFile second = parse(printed);
    ASSERT_EQ(testing::dumpErrors(second), "") << source << "\nprinted as\n" << printed;
    ASSERT_TRUE(isSameTree(*first.tree, *second.tree)) << source << "\nprinted as\n"
                                                       << printed << "\n"
                                                       << testing::dumpNodes(first) << "\n"
                                                       << testing::dumpNodes(second);
    ASSERT_EQ(printSource(*second.tree), printed);
}

TEST(Printer, UsesALayoutOfItsOwn) {
    EXPECT_EQ(
        printSource(*parse("if a,b=1;elseif c d=[1 -2;3 4]\nelse,turn on,end").tree).substr(0, 5),
        "if a\n");
    EXPECT_EQ(printSource(*parse("if a,b=1;else,x\nend;y=2,z(1).q={1 'a'};").tree),
              "if a\n    b = 1;\nelse\n    x\nend\ny = 2\nz(1).q = {1, 'a'};\n");
}

TEST(Printer, PrintedProgramsParseToTheSameTree) {
    expectToSurvivePrinting("x = 1;\ny\nfoo -bar 'a b'\n!copy\n;\nx = a:b:c:d, -a^-b'\n");
    expectToSurvivePrinting("for (k = 1:3) x; end, parfor (k = e, 3) end\nspmd (3) y, end");
    expectToSurvivePrinting("x = [a -b; c' 'd']; f(name = 3, :); {@(x) x +1, @f, ?c}, m@s(1)");
    expectToSurvivePrinting("switch a, case 1, b; otherwise c, end, try, a; catch e, b; end");
    expectToSurvivePrinting("class (A = 1) B < C & D\nproperties\na (1,:) t {c} = 1\nend\nend\n");
}

TEST(Printer, RandomProgramsParseToTheSameTree) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t i = 0; i < rounds(1000); ++i) {
        expectToSurvivePrinting(RandomProgram(random).program());
        if (HasFatalFailure()) return;
    }
}

TEST(Printer, DiscardedNodesAreDiscardedAgain) {
    const ParsedFile first = parse("x = );\nif (\ny = 0b2;\nend\nz = 1;");
    const ParsedFile second = parse(printSource(*first.tree));
    EXPECT_TRUE(isSameTree(*first.tree, *second.tree));
    EXPECT_EQ(second.diagnostics.size(), first.diagnostics.size());
}

} // namespace
} // namespace ostrel
