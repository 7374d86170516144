#include "ReportOf.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> restrictedIn(std::string_view text) {
    const File file = reportOf(text);
    EXPECT_FALSE(file.hasErrors()) << file.diagnostics.front().message;
    return file.constructs.at(0).restrictedExternals;
}

std::string scopeNameOf(const File& file, std::size_t construct) {
    return file.scopes.at(file.constructs.at(construct).scope).name;
}

constexpr const char* WORKED_EXAMPLE =
    "n = 1; c = 1; x = 1;\n"
    "parfor j = 1:3\n"
    "    s = 0; for k = 1:n, if c, break; end, s = s + x(k); end, y = s;\n"
    "end\n";

TEST(Analyze, LoopThatMayEndEarlySurelyReadsOnlyItsRange) {
    const File file = reportOf(WORKED_EXAMPLE);
    const Construct& construct = file.constructs.at(0);
    EXPECT_THAT(construct.maybeLiveAsTemporary, ElementsAre("c", "n", "x"));
    EXPECT_THAT(construct.liveAsTemporary, ElementsAre("n"));
    EXPECT_THAT(construct.liveAsSliced, ElementsAre("c", "n", "x"));
    EXPECT_THAT(file.scopes.at(construct.scope).universe,
                ElementsAre("n", "c", "x", "j", "s", "k", "y"));
}

TEST(Analyze, ColumnsCountCodePoints) {
    const File file = reportOf("x = '\xF0\x9F\x98\x80\xC3\xA9'; parfor k = 1:3, end");
    EXPECT_EQ(lineAndColumn(file.constructs.at(0).keyword), "1:11");
    EXPECT_EQ(file.constructs.at(0).keyword.offset, 11U);
}

TEST(Analyze, AllKindsOfLineEndEndALine) {
    const File file = reportOf("a = 1;\rb = 2;\r\nc = 3;\n  spmd\n  end");
    EXPECT_EQ(lineAndColumn(file.constructs.at(0).keyword), "4:3");
    EXPECT_EQ(file.constructs.at(0).extent.length, 10U);
}

TEST(Analyze, PlacesFarApartAreRight) {
    const std::string text =
        "x = 1; spmd, y = '" + std::string(10000, 'a') + "'; z = x; end, parfor k = 1:x, end";
    const File file = reportOf(text);
    EXPECT_EQ(lineAndColumn(*variableOf(file.constructs.at(0), "x").firstRead), "1:10026");
    EXPECT_EQ(lineAndColumn(file.constructs.at(1).keyword), "1:10034");
}

TEST(Analyze, SetsAreSortedByCodeUnitButNotTheUniverse) {
    const File file = reportOf("spmd, b = b; a_ = a_; aB = aB; B = B; a1 = a1; end");
    EXPECT_THAT(file.scopes.at(0).universe, ElementsAre("b", "a_", "aB", "B", "a1"));
    EXPECT_THAT(file.constructs.at(0).notOutputs, ElementsAre("B", "a1", "aB", "a_", "b"));
}

TEST(Analyze, NestedConstructsAreInSourceOrderAndKnowTheirEnclosingOne) {
    const File file = reportOf("parfor a = 1:2\n spmd\n  parfor b = 1:2, end\n end\n"
                               " parfor c = 1:2, end\nend\nspmd, end");
    ASSERT_EQ(file.constructs.size(), 5U);
    const std::vector<std::string> lines{"1:1", "2:2", "3:3", "5:2", "7:1"};
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lineAndColumn(file.constructs[i].keyword), lines[i]);
    EXPECT_EQ(file.constructs[0].enclosing, std::nullopt);
    EXPECT_EQ(file.constructs[1].enclosing, 0U);
    EXPECT_EQ(file.constructs[2].enclosing, 1U);
    EXPECT_EQ(file.constructs[3].enclosing, 0U);
    EXPECT_EQ(file.constructs[4].enclosing, std::nullopt);
}

TEST(Analyze, ScopeIsTheBareNameOfFunctionOrMethod) {
    const File script = reportOf("spmd, end\nfunction f(), spmd, end, end");
    EXPECT_EQ(scopeNameOf(script, 0), "");
    EXPECT_EQ(scopeNameOf(script, 1), "f");
    const File methods = reportOf("class C\n methods\n function m(self)\n  spmd, end\n end\n"
                                  " end\nend");
    ASSERT_FALSE(methods.hasErrors()) << methods.diagnostics.front().message;
    EXPECT_EQ(scopeNameOf(methods, 0), "m");
}

TEST(Analyze, RestrictedExternalsAreFoundWhereverTheyAreUsed) {
    EXPECT_THAT(restrictedIn("parfor k = 1:3, x = eval('1'); end"), ElementsAre("eval"));
    EXPECT_THAT(restrictedIn("parfor k = 1:3, x = nargin + nargout; end"),
                ElementsAre("nargin", "nargout"));
    EXPECT_THAT(restrictedIn("parfor k = 1:3\n load file\n end"), ElementsAre("load"));
    EXPECT_THAT(restrictedIn("parfor k = 1:3\n whos\n end"), ElementsAre("whos"));
    EXPECT_THAT(restrictedIn("spmd, f = @save; g = @(x) eval(x); end"),
                ElementsAre("eval", "save"));
    EXPECT_THAT(restrictedIn("spmd, s.(input('')) = 1; end"), ElementsAre("input"));
    EXPECT_THAT(restrictedIn("spmd, parfor k = 1:nargin, end, end"), ElementsAre("nargin"));
}

TEST(Analyze, RestrictedNamesThatAreNotFunctionsDoNotCount) {
    EXPECT_THAT(restrictedIn("parfor k = 1:nargin, x = 1; end"), IsEmpty());
    EXPECT_THAT(restrictedIn("spmd, x = s.eval; s.load = 1; end"), IsEmpty());
    EXPECT_THAT(restrictedIn("spmd, f(eval = 1); end"), IsEmpty());
    EXPECT_THAT(restrictedIn("spmd, f = @(eval) eval + 1; end"), IsEmpty());
    EXPECT_THAT(restrictedIn("spmd\n go eval load\n end"), IsEmpty());
    EXPECT_THAT(restrictedIn("load = 1;\nspmd, x = load; end"), IsEmpty());
    EXPECT_THAT(restrictedIn("function f(varargin)\n spmd, x = varargin{1}; end\nend"), IsEmpty());
    EXPECT_THAT(restrictedIn("spmd, x = Eval(1); end"), IsEmpty());
}

TEST(Analyze, RestrictedNameIsReportedWhereTheAnonymousParameterEnds) {
    EXPECT_THAT(restrictedIn("spmd, f = @(eval) eval; g = eval('1'); end"), ElementsAre("eval"));
}

TEST(Analyze, NestedUseIsListedAtBothConstructsAndGetsOneRemark) {
    const File file = reportOf("parfor k = 1:3\n spmd (nargin)\n  eval('1');\n end\nend");
    EXPECT_THAT(file.constructs.at(0).restrictedExternals, ElementsAre("eval", "nargin"));
    EXPECT_THAT(file.constructs.at(1).restrictedExternals, ElementsAre("eval"));
    ASSERT_EQ(file.remarks.size(), 2U);
    EXPECT_EQ(file.remarks[0].construct, 0U);
    EXPECT_EQ(file.remarks[0].variable, "nargin");
    EXPECT_EQ(file.remarks[1].construct, 1U);
    EXPECT_EQ(file.remarks[1].variable, "eval");
    EXPECT_EQ(lineAndColumn(file.remarks[1].place), "3:3");
}

TEST(Analyze, RemarksAreInSourceOrder) {
    const File file = reportOf("parfor k = 1:3\n eval('1');\n x = ans;\n load f\nend");
    EXPECT_THAT(file.remarks.size(), 2U);
    const File other = reportOf("spmd\n x = ans;\n eval('1');\n load f\nend");
    std::vector<std::string> names;
    for (const Remark& remark : other.remarks)
        names.push_back(remark.variable);
    EXPECT_THAT(names, ElementsAre("ans", "eval", "load"));
}

TEST(Analyze, PragmasKeepKindNameAndTrimmedArguments) {
    const File file = reportOf("x = 1; %#function a, b\n  %# TestStandardRun\n%#Ok (x) \n");
    ASSERT_EQ(file.pragmas.size(), 3U);
    EXPECT_EQ(file.pragmas[0].kind, "function");
    EXPECT_EQ(file.pragmas[0].arguments, "a, b");
    EXPECT_EQ(lineAndColumn(file.pragmas[0].place), "1:8");
    EXPECT_EQ(file.pragmas[1].kind, "TestStandard");
    EXPECT_EQ(file.pragmas[1].name, "TestStandardRun");
    EXPECT_EQ(file.pragmas[2].kind, "UNRECOGNIZED");
    EXPECT_EQ(file.pragmas[2].name, "Ok");
    EXPECT_EQ(file.pragmas[2].arguments, "(x) ");
}

TEST(Analyze, PragmasWithoutAWordOrInABlockCommentAreNotListed) {
    const File file = reportOf("%#\n%# 1a\n%{\n%#ok\n%}\n%#ok\n");
    ASSERT_EQ(file.pragmas.size(), 1U);
    EXPECT_EQ(file.pragmas[0].place.line, 6U);
}

TEST(Analyze, UnknownDirectiveGetsARemark) {
    const File file = reportOf("%#Function a\n%#nothing\n%#ok\n");
    ASSERT_EQ(file.remarks.size(), 2U);
    EXPECT_EQ(file.remarks[0].variable, "Function");
    EXPECT_EQ(file.remarks[0].help, "write 'function': case matters");
    EXPECT_EQ(file.remarks[1].variable, "nothing");
    EXPECT_EQ(file.remarks[1].help, "known directives: codegen, zel, function, internal, vun, "
                                    "obfuscate, ok, TestStandard");
}

TEST(Analyze, ConstructsAreReportedDespiteErrors) {
    const File file = reportOf("x = ;\nparfor k = 1:3, x(k) = 1; end\n");
    EXPECT_TRUE(file.hasErrors());
    EXPECT_EQ(file.constructs.size(), 1U);
}

} // namespace

} // namespace ostrel::report::testing
