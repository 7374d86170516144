#include "frontend/ParsedFile.h"
#include "testing/Random.h"
#include "testing/RandomProgram.h"

#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex_kit/tree/CheckTree.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

// The tree of the example consumer is correct for every program.
namespace zt::orvex::kit {
namespace {

std::string findingsOf(const NodeView& root, const CheckTreeOptions& options = {}) {
    std::ostringstream text;
    for (const Finding& finding : checkTree(root, options))
        text << finding << '\n';
    return text.str();
}

/// The findings of the whole file, of its script with the script's universe, and of each construct
/// with that of its scope, of which the construct need not name every variable.
std::string findingsOf(const ostrel::ParsedFile& file) {
    std::string text = findingsOf(file.root);
    for (const ostrel::Construct& construct : file.constructs) {
        const ostrel::Scope& scope = file.scopes[construct.scope];
        const flow::OrderedSet<SymbolView> universe(scope.universe.begin(), scope.universe.end());
        CheckTreeOptions options;
        options.universe = &universe;
        options.ans = scope.ans;
        for (const Finding& finding : checkTree(construct.node, options)) {
            if (finding.code != FindingCode::UniverseUnused) text += finding.place + finding.advice;
        }
    }
    const flow::OrderedSet<SymbolView> universe(file.scopes.front().universe.begin(),
                                                file.scopes.front().universe.end());
    CheckTreeOptions options;
    options.universe = &universe;
    options.ans = file.scopes.front().ans;
    return text + findingsOf(file.root, options);
}

TEST(CheckExamples, EveryProgramIsCorrect) {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ZT_ORVEX_PROGRAMS)) {
        if (entry.path().extension() != ".ost") continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        EXPECT_EQ(findingsOf(ostrel::parseOstrel(entry.path().string(), text)), "") << entry.path();
        ++count;
    }
    EXPECT_GE(count, 11u);
}

TEST(CheckExamples, EveryRandomProgramIsCorrect) {
    testing::Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < testing::rounds(2000); ++round) {
        const std::string text = testing::RandomProgram(random).program();
        ASSERT_EQ(findingsOf(ostrel::parseOstrel("random.ost", text)), "") << text;
    }
}

} // namespace
} // namespace zt::orvex::kit
