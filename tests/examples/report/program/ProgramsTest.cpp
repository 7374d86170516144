#include "ReportOf.h"
#include "RunReport.h"
#include "examples/KindsInText.h"

#include <gmock/gmock.h>
#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::IsEmpty;
using zt::orvex::NodeKind;
using zt::orvex::NodeView;

/// The names of the programs in a folder, without `.ost`.
std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".ost") names.push_back(entry.path().stem().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

const char* const REMARKS_FOLDER = OSTREL_PROGRAMS_FOLDER "/remarks";

/// The names of the example programs.
std::vector<std::string> programNames() { return namesIn(OSTREL_PROGRAMS_FOLDER); }

std::string sourceOf(const std::string& name) {
    return readFile(std::string(OSTREL_PROGRAMS_FOLDER) + "/" + name + ".ost");
}

class Program : public ::testing::TestWithParam<std::string> {};

/// A page without its style sheet and its script, which are the same in all pages.
std::string withoutAssets(std::string page) {
    for (const std::string name : {"style", "script"}) {
        const std::string open = "<" + name + ">\n";
        const std::size_t begin = page.find(open) + open.size();
        const std::size_t end = page.find("</" + name + ">", begin);
        EXPECT_GT(end, begin + 1000) << name;
        page.erase(begin, end - begin);
    }
    return page;
}

// After an intended change, scripts/update-expected-reports.sh writes the expected files anew.
void expectReport(const std::string& folder, const std::string& name, const std::string& format,
                  const std::string& ending) {
    const Outcome outcome = runReport({"--format", format, name + ".ost"}, "", folder);
    const std::string expected = readFile(folder + "/expected/" + name + ending);
    EXPECT_EQ(outcome.status, name == "unfinished" ? 1 : 0);
    EXPECT_EQ(outcome.errors, "");
    ASSERT_FALSE(expected.empty());
    EXPECT_EQ(format == "html" ? withoutAssets(outcome.output) : outcome.output, expected);
}

void expectReports(const std::string& folder, const std::string& name) {
    expectReport(folder, name, "text", ".txt");
    expectReport(folder, name, "json", ".json");
    expectReport(folder, name, "sarif", ".sarif");
    expectReport(folder, name, "html", ".html");
}

TEST_P(Program, HasTheExpectedReports) { expectReports(OSTREL_PROGRAMS_FOLDER, GetParam()); }

class RemarkProgram : public ::testing::TestWithParam<std::string> {};

TEST_P(RemarkProgram, HasTheExpectedReports) { expectReports(REMARKS_FOLDER, GetParam()); }

INSTANTIATE_TEST_SUITE_P(Examples, RemarkProgram, ::testing::ValuesIn(namesIn(REMARKS_FOLDER)),
                         [](const auto& test) { return test.param; });

INSTANTIATE_TEST_SUITE_P(Examples, Program, ::testing::ValuesIn(programNames()),
                         [](const auto& test) { return test.param; });

/// The example program of docs/report.md.
std::string documentedProgram() {
    const std::string page = readFile(OSTREL_PROGRAMS_FOLDER "/../../docs/report.md");
    const std::string fence = "\n```\n";
    const std::size_t begin = page.find(fence) + fence.size();
    return page.substr(begin, page.find(fence, begin) + 1 - begin);
}

TEST(Documentation, ExampleVariablesHaveTheRolesThatItGives) {
    const File file = reportOf(documentedProgram());
    ASSERT_EQ(file.constructs.size(), 2u);
    const auto roleIn = [&](std::size_t construct, const char* name) {
        return variableOf(file.constructs[construct], name).role;
    };
    EXPECT_EQ(roleIn(0, "k"), Role::LoopVariable);
    EXPECT_EQ(roleIn(0, "t"), Role::Temporary);
    EXPECT_EQ(roleIn(0, "j"), Role::Temporary);
    EXPECT_EQ(roleIn(0, "b"), Role::Sliced);
    EXPECT_EQ(roleIn(0, "c"), Role::Carried);
    EXPECT_EQ(roleIn(0, "best"), Role::Carried);
    EXPECT_EQ(roleIn(0, "last"), Role::Shared);
    EXPECT_EQ(roleIn(0, "sum"), Role::Reduction);
    EXPECT_EQ(roleIn(0, "w"), Role::ReadFromOutside);
    EXPECT_EQ(roleIn(1, "part"), Role::Output);
    EXPECT_EQ(roleIn(1, "rows"), Role::Updated);
    const Variable best = variableOf(file.constructs[0], "best");
    ASSERT_TRUE(best.firstRead && best.lastWrite);
    EXPECT_EQ(best.firstRead->line, 8u);
    EXPECT_EQ(best.lastWrite->line, 9u);
}

TEST(Programs, ContainEveryKindOfNode) {
    std::set<NodeKind> found;
    for (const std::string& name : programNames()) {
        const ParsedFile file = parseOstrel(name, sourceOf(name));
        zt::orvex::forEachNodeIn(file.root, [&](NodeView node) { found.insert(node.getKind()); });
    }
    EXPECT_EQ(found, ostrel::testing::kindsInText());
}

std::vector<File> allFiles() {
    std::vector<File> files;
    for (const std::string& name : programNames())
        files.push_back(reportOf(sourceOf(name)));
    for (const std::string& name : namesIn(REMARKS_FOLDER))
        files.push_back(reportOf(sourceOf("remarks/" + name)));
    return files;
}

std::vector<Construct> allConstructs() {
    std::vector<Construct> constructs;
    for (const File& file : allFiles())
        constructs.insert(constructs.end(), file.constructs.begin(), file.constructs.end());
    return constructs;
}

TEST(Programs, HaveVariablesOfEveryRole) {
    std::set<Role> found;
    for (const Construct& construct : allConstructs()) {
        for (const Variable& variable : construct.variables)
            found.insert(variable.role);
    }
    EXPECT_EQ(found.size(), 10U);
}

bool contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The answers about the variables of a construct and about the construct itself, as text.
std::set<std::string> answersIn(const File& file, const Construct& construct) {
    std::set<std::string> answers;
    for (const std::string& name : file.scopes.at(construct.scope).universe) {
        if (construct.kind == ConstructKind::Spmd) {
            answers.insert(contains(construct.notOutputs, name) ? "no output" : "output");
            continue;
        }
        const bool must = contains(construct.liveAsTemporary, name);
        const bool may = contains(construct.maybeLiveAsTemporary, name);
        const bool sliced = contains(construct.liveAsSliced, name);
        answers.insert(std::string(must  ? "surely live, "
                                   : may ? "maybe live, "
                                         : "not live, ") +
                       (sliced ? "live as sliced" : "not live as sliced"));
    }
    const std::string keyword = construct.kind == ConstructKind::Parfor ? "parfor" : "spmd";
    answers.insert(keyword + (construct.ansPossiblyReadBeforeBeingWritten ? " reads ans first"
                                                                          : " does not read ans"));
    answers.insert(keyword + (construct.restrictedExternals.empty() ? " is unrestricted"
                                                                    : " uses restricted names"));
    return answers;
}

TEST(Programs, ShowEveryResultOfTheAnalyses) {
    std::set<std::string> found;
    for (const File& file : allFiles()) {
        for (const Construct& construct : file.constructs)
            found.merge(answersIn(file, construct));
    }
    EXPECT_EQ(found,
              (std::set<std::string>{
                  "maybe live, live as sliced", "maybe live, not live as sliced",
                  "not live, not live as sliced", "surely live, live as sliced", "output",
                  "no output", "parfor reads ans first", "parfor does not read ans",
                  "spmd reads ans first", "spmd does not read ans", "parfor uses restricted names",
                  "parfor is unrestricted", "spmd uses restricted names", "spmd is unrestricted"}));
}

TEST(Programs, HaveRemarksOfEveryKind) {
    std::set<RemarkCode> found;
    for (const File& file : allFiles()) {
        for (const Remark& remark : file.remarks)
            found.insert(remark.code);
    }
    EXPECT_EQ(found.size(), remarkRules().size());
}

TEST(Programs, AreAsLongAsRealPrograms) {
    for (const std::string& name : programNames()) {
        const std::string text = sourceOf(name);
        const auto lines = std::count(text.begin(), text.end(), '\n');
        EXPECT_TRUE(lines >= 40 && lines <= 150) << name << ": " << lines;
    }
    EXPECT_GE(programNames().size(), 8U);
}

} // namespace

} // namespace ostrel::report::testing
