#include "tree/Roles.h"

#include "analysis/HeadEffects.h"
#include "analysis/RandomTree.h"
#include "testing/Random.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex_kit/tree/KindName.h>
#include <zt_orvex_kit/tree/Traversal.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace zt::orvex::kit::internal {
namespace {

/// The comment above each operation of IAstView.h, by the operation's name.
std::map<std::string, std::string> readComments() {
    std::map<std::string, std::string> comments;
    std::ifstream file(ZT_ORVEX_AST_HEADER);
    std::string comment;
    for (std::string line; std::getline(file, line);) {
        const std::size_t mark = line.find("///");
        if (mark != std::string::npos) {
            comment += line.substr(mark + 3);
            continue;
        }
        const std::size_t name = line.find(" get");
        const std::size_t end = line.find('(');
        if (name != std::string::npos && end != std::string::npos && name < end) {
            comments[line.substr(name + 1, end - name - 1)] = comment;
        }
        const bool isBegun =
            line.find("virtual") != std::string::npos && line.find('(') == std::string::npos;
        if (!isBegun) comment.clear();
    }
    return comments;
}

bool contains(const std::string& text, const std::string& part) {
    const auto isEqual = [](char a, char b) { return std::tolower(a) == std::tolower(b); };
    return std::search(text.begin(), text.end(), part.begin(), part.end(), isEqual) != text.end();
}

std::string wordsFor(const Expected& expected) {
    if (expected.kind != NodeKind::Invalid) return '`' + std::string(kindName(expected.kind)) + '`';
    if (expected.flags == expected::Expressions.flags) return "expression";
    if (expected.flags == expected::Statements.flags) return "statement";
    if (expected.flags == expected::Methods.flags) return "`MethodDefinition`";
    return "any";
}

TEST(Roles, ExpectWhatTheCommentsOfIAstViewSay) {
    const auto comments = readComments();
    for (const Part& part : PARTS) {
        const auto found = comments.find(part.name);
        ASSERT_NE(found, comments.end()) << part.name;
        EXPECT_TRUE(contains(found->second, wordsFor(roleOf(part).expected)))
            << part.name << ':' << found->second;
    }
}

TEST(Roles, AreLabelsWhereTheCommentsSayOnlyWalked) {
    // No analysis looks at these, either, though their elements have a class.
    const std::set<std::string> others = {"getClassSuperclasses", "getEnumerationMemberArguments",
                                          "getAttributeValue"};
    const auto comments = readComments();
    for (const Part& part : PARTS) {
        const bool isLabel =
            contains(comments.at(part.name), "only walked") || others.count(part.name) != 0;
        EXPECT_EQ(roleOf(part).use == Use::Label, isLabel) << part.name;
    }
}

/// Records the identifiers that the analyses read and write.
struct EffectLog {
    void record(const flow::internal::Effect& effect) {
        log.insert((flow::internal::isRead(effect.kind) ? "read " : "write ") +
                   std::to_string(effect.identifier.node));
    }
    std::set<std::string> log;
};

/// The same by the table, for the identifiers of the head of `statement`.
std::set<std::string> effectsByTable(const NodeView& statement, const testing::TreeBuilder& t) {
    std::set<std::string> log;
    std::vector<Use> uses;
    traverse(statement,
             {[&](const Visit& visit) {
                  Use use = Use::Own;
                  if (visit.depth() != 0) {
                      const auto part =
                          std::find_if(std::begin(PARTS), std::end(PARTS), [&](const Part& each) {
                              return each.name == visit.role().accessor;
                          });
                      use = passOn(uses.back(), roleOf(*part).use);
                      if (use == Use::Own) return Next::Skip;
                  }
                  uses.push_back(use);
                  if (visit.kind() != NodeKind::Identifier) return Next::Descend;
                  const std::string node = std::to_string(visit.node().node);
                  const auto name = t.ast.getIdentifierName(visit.node().node);
                  const bool isAns = name == u"ans";
                  if (use == Use::Read && name != u"sin") log.insert("read " + node);
                  if (use == Use::Write) log.insert("write " + node);
                  if (use == Use::Bare && !isAns) log.insert("write " + node);
                  const bool isCommand = statement.getKind() == NodeKind::ImplicitCommandStatement;
                  if (use == Use::Target && !(isAns && isCommand)) {
                      log.insert("write " + node);
                  }
                  return Next::Descend;
              },
              [&](const Visit& visit) {
                  if (uses.size() > visit.depth()) uses.pop_back();
              }});
    return log;
}

TEST(Roles, AgreeWithTheEffectsThatTheAnalysesSee) {
    testing::Random random;
    SCOPED_TRACE(random.describe());
    std::size_t effects = 0;
    for (std::size_t round = 0; round < testing::rounds(300); ++round) {
        testing::TreeBuilder t;
        testing::RandomTreeShape shape;
        shape.expressionDepth = 3;
        const NodeView root = t.program(testing::RandomTree(t, random, shape).statements());
        flow::OrderedSet<SymbolView> universe;
        for (const std::string& name : testing::RandomTree::names())
            universe.add(t.symbol(name));
        traverse(root, {[&](const Visit& visit) {
                            if (!flow::isControlFlowNode(visit.node())) return Next::Descend;
                            EffectLog expected;
                            flow::internal::HeadEffects<EffectLog> head(
                                universe, flow::AnalysisModeView::Plain, {}, expected);
                            head.report(visit.node());
                            EXPECT_EQ(effectsByTable(visit.node(), t), expected.log)
                                << toText(visit.place());
                            effects += expected.log.size();
                            return Next::Descend;
                        },
                        {}});
    }
    EXPECT_GT(effects, 1000u);
}

} // namespace
} // namespace zt::orvex::kit::internal
