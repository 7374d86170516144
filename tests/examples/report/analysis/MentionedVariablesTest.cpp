#include "RandomConstruct.h"

#include "report/analysis/LibraryAnswers.h"
#include "report/analysis/MentionedVariables.h"
#include "source/Utf8.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace ostrel::report::testing {

namespace {

using zt::orvex::SymbolView;

/// The names of the variables that a construct of a program mentions.
std::string mentionedIn(std::string_view text, std::size_t construct = 0) {
    const ParsedFile file = parseOstrel("test.ost", text);
    EXPECT_FALSE(file.hasErrors()) << file.diagnostics.front().message;
    std::string names;
    for (const SymbolView symbol : MentionedVariables(file).in(file.constructs.at(construct)))
        names += (names.empty() ? "" : " ") + toUtf8(file.tree->symbolName(symbol));
    return names;
}

LibraryAnswers askAbout(const ostrel::Construct& construct,
                        const std::vector<SymbolView>& variables, SymbolView ans) {
    return askLibrary(construct, {variables.begin(), variables.end()}, ans);
}

TEST(MentionedVariables, KeepTheOrderOfTheScope) {
    EXPECT_EQ(mentionedIn("d = 1; c = 1; b = 1; a = 1;\nparfor k = 1:3, b = a + d; end\n"),
              "d b a k");
}

TEST(MentionedVariables, IncludeTheHeadAndNestedConstructs) {
    const std::string text = "a = 1; b = 1; c = 1; d = 1;\n"
                             "parfor (k = 1:a, b)\n spmd (c)\n d;\n end\nend\n";
    EXPECT_EQ(mentionedIn(text), "a b c d k");
    EXPECT_EQ(mentionedIn(text, 1), "c d");
}

TEST(MentionedVariables, IncludeAnsOnlyIfTheScopeNamesIt) {
    EXPECT_EQ(mentionedIn("a = 1;\nspmd, a(1); end\n"), "a");
    EXPECT_EQ(mentionedIn("a = 1;\nspmd, a(1); end\nb = ans;\n"), "a ans");
}

TEST(MentionedVariables, ExcludeFunctionsFieldsAndParameters) {
    EXPECT_EQ(mentionedIn("a = 1; f = 1; p = 1;\nspmd, show(a.f, @(p) p); end\n"), "a");
}

SymbolSet restrictedTo(const std::vector<SymbolView>& symbols, const SymbolSet& set) {
    SymbolSet common;
    for (const SymbolView symbol : symbols) {
        if (set.count(symbol) != 0) common.insert(symbol);
    }
    return common;
}

TEST(MentionedVariables, AreAllThatTheLibraryNeedsToKnow) {
    zt::orvex::testing::Random random;
    SCOPED_TRACE(random.describe());
    RandomConstruct programs(random);
    for (std::size_t i = zt::orvex::testing::rounds(1000); i > 0; --i) {
        const std::string text = "others = 1; unused = 2;\n" + programs.next();
        SCOPED_TRACE(text);
        const ParsedFile file = parseOstrel("random.ost", text);
        const MentionedVariables mentioned(file);
        for (const ostrel::Construct& construct : file.constructs) {
            const ostrel::Scope& scope = file.scopes[construct.scope];
            const std::vector<SymbolView> few = mentioned.in(construct);
            const LibraryAnswers ofFew = askAbout(construct, few, scope.ans);
            const LibraryAnswers ofAll = askAbout(construct, scope.universe, scope.ans);
            ASSERT_LE(few.size() + 2, scope.universe.size());
            ASSERT_EQ(ofFew.liveAsTemporary, ofAll.liveAsTemporary);
            ASSERT_EQ(ofFew.maybeLiveAsTemporary, ofAll.maybeLiveAsTemporary);
            ASSERT_EQ(ofFew.ansPossiblyReadBeforeBeingWritten,
                      ofAll.ansPossiblyReadBeforeBeingWritten);
            // All that aren't mentioned are in the sets of what isn't live.
            const std::size_t rest = scope.universe.size() - few.size();
            const bool isParfor = kindOf(construct) == ConstructKind::Parfor;
            const SymbolSet& notLive = isParfor ? ofAll.notLiveAsSliced : ofAll.outputs;
            const SymbolSet& notLiveOfFew = isParfor ? ofFew.notLiveAsSliced : ofFew.outputs;
            ASSERT_EQ(notLiveOfFew, restrictedTo(few, notLive));
            ASSERT_EQ(notLive.size(), notLiveOfFew.size() + rest);
        }
    }
}

} // namespace

} // namespace ostrel::report::testing
