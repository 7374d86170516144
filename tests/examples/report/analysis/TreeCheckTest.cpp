#include "report/analysis/TreeCheck.h"

#include "frontend/ParsedFile.h"
#include "report/program/Run.h"
#include "testing/TreeBuilder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <string>

namespace ostrel::report::testing {

namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using zt::orvex::NodeView;
using zt::orvex::testing::TreeBuilder;

constexpr const char* FUNCTION = "function f(a)\n b = a;\n spmd\n  c = b;\n  parfor k = 1:3\n"
                                 "   d(k) = b;\n  end\n end\nend\n";

std::string findingsOf(const ParsedFile& file) {
    std::ostringstream errors;
    const bool isCorrect = isTreeCorrect(file, errors);
    EXPECT_EQ(isCorrect, errors.str().empty());
    return errors.str();
}

/// A file whose tree is another than the one that was parsed.
ParsedFile fileWithTree(TreeBuilder& tree, const NodeView& root) {
    ParsedFile file = parseOstrel("wrong.ost", "");
    file.root = root;
    file.scopes.front().universe = {tree.symbol("x")};
    file.scopes.front().ans = tree.symbol("ans");
    return file;
}

/// Collects what is written to a stream while it lives.
class Collected {
public:
    explicit Collected(std::ostream& from) : stream(from), buffer(from.rdbuf(text.rdbuf())) {}
    ~Collected() { stream.rdbuf(buffer); }
    Collected(const Collected&) = delete;
    Collected& operator=(const Collected&) = delete;

    std::string string() const { return text.str(); }

private:
    std::ostream& stream;
    std::ostringstream text;
    std::streambuf* buffer;
};

TEST(TreeCheck, TreeOfTheParserIsCorrect) {
    EXPECT_EQ(findingsOf(parseOstrel("f.ost", FUNCTION)), "");
    EXPECT_EQ(findingsOf(parseOstrel("empty.ost", "")), "");
    EXPECT_EQ(findingsOf(parseOstrel("unfinished.ost", "x = ;\nparfor k = 1:3\n y = x;\n")), "");
}

TEST(TreeCheck, NodeAtTwoPlacesIsALineWithThePathOfTheFile) {
    TreeBuilder tree;
    const NodeView statement = tree.assign(tree.id("x"), tree.number());
    EXPECT_EQ(findingsOf(fileWithTree(tree, tree.program({statement}))), "");
    EXPECT_THAT(findingsOf(fileWithTree(tree, tree.program({statement, statement}))),
                AllOf(StartsWith("orvex-report: the tree of 'wrong.ost' is wrong: node-shared at "
                                 "Program."),
                      EndsWith(".\n")));
}

TEST(TreeCheck, EveryFindingHasALine) {
    TreeBuilder tree;
    const std::string findings =
        findingsOf(fileWithTree(tree, tree.program({tree.assign(tree.id("x"), tree.unknown(0)),
                                                    tree.whileLoop(tree.unknown(200), {})})));
    EXPECT_EQ(std::count(findings.begin(), findings.end(), '\n'), 2);
}

TEST(TreeCheck, ConstructOfAFunctionIsHeldAgainstTheVariablesOfTheFunction) {
    ParsedFile file = parseOstrel("f.ost", FUNCTION);
    ASSERT_EQ(file.scopes.size(), 2U);
    auto& universe = file.scopes[1].universe;
    universe.erase(universe.begin() + 1); // b
    const std::string findings = findingsOf(file);
    EXPECT_THAT(findings, HasSubstr("universe-lacks-symbol"));
    EXPECT_EQ(std::count(findings.begin(), findings.end(), '\n'), 1) << findings;
}

TEST(TreeCheck, VariableThatTheScriptLacksIsFoundOnce) {
    ParsedFile file = parseOstrel("s.ost", "a = 1;\nspmd\n b = a;\nend\n");
    file.scopes[0].universe.pop_back(); // b
    const std::string findings = findingsOf(file);
    EXPECT_EQ(std::count(findings.begin(), findings.end(), '\n'), 1) << findings;
}

TEST(TreeCheck, SymbolOfAnsThatAVariableHasIsFound) {
    ParsedFile file = parseOstrel("f.ost", FUNCTION);
    file.scopes[1].ans = file.scopes[1].universe[2]; // c
    EXPECT_THAT(findingsOf(file), HasSubstr("ans-misnamed"));
}

TEST(TreeCheck, FileWithAWrongTreeIsLeftOutOfTheReportWithStatus1) {
    TreeBuilder tree;
    const auto read = [&](const std::string& path) {
        return path == "wrong.ost" ? fileWithTree(tree, tree.program({tree.unknown(0)}))
                                   : parseOstrel(path, "parfor k = 1:3, end\n");
    };
    Options options;
    options.files = {"wrong.ost", "right.ost"};
    options.checksTrees = true;
    const Collected output(std::cout);
    const Collected errors(std::cerr);
    EXPECT_EQ(run(options, read), 1);
    EXPECT_THAT(output.string(),
                AllOf(HasSubstr("right.ost:1:1: parfor over k"), Not(HasSubstr("wrong.ost"))));
    EXPECT_THAT(errors.string(), StartsWith("orvex-report: the tree of 'wrong.ost' is wrong: "));
}

TEST(TreeCheck, ControlCharactersDoNotReachATerminal) {
    TreeBuilder tree;
    ParsedFile file = fileWithTree(tree, tree.unknown(0));
    file.path = "\x1b[2J.ost";
    EXPECT_THAT(findingsOf(file), HasSubstr("'\xEF\xBF\xBD[2J.ost'"));
}

} // namespace

} // namespace ostrel::report::testing
