#pragma once

#include "lying/LyingAst.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex_kit/tree/CheckTree.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <set>
#include <string>

namespace zt::orvex::kit {

/// A small program in which a test plants one mistake, to see what the check finds and what an
/// analysis answers without it.
///
///     parfor k = n
///         t = a + b;
///         if c
///             t = x;
///         end
///         r = f(t);
///     end
class CheckTreeFixture : public ::testing::Test, protected testing::TreeBuilder {
protected:
    using Call = testing::Call;
    using Operation = testing::Operation;

    CheckTreeFixture() : lying(ast) {
        ast.setIsVariable(u"f", false);
        for (const char* name : {"a", "b", "c", "k", "n", "r", "t", "x"}) {
            const SymbolView variable = symbol(name);
            universe.add({variable.symbol, &lying});
        }
    }

    const IdentifierView k = id("k"), n = id("n"), t1 = id("t"), a = id("a"), b = id("b"),
                         c = id("c"), t2 = id("t"), x = id("x"), r = id("r"), f = id("f"),
                         t3 = id("t");
    const BinaryOperationView sum = add(a, b);
    const AssignmentStatementView first = assign(t1, sum);
    const AssignmentStatementView second = assign(t2, x);
    const IfStatementView branch = ifStatement(c, {second});
    const ParenOperationView value = paren(f, {t3});
    const AssignmentStatementView last = assign(r, value);
    const ParforStatementView loop = parforLoop(k, n, {first, branch, last});

    testing::LyingAst lying;
    flow::OrderedSet<SymbolView> universe;
    CheckTreeOptions options;

    /// The findings as "code at place", a line each.
    std::string findings() const { return findings(lying.view(loop)); }
    std::string findings(const NodeView& root) const {
        std::string text;
        for (const Finding& finding : checkTree(root, options)) {
            text += (text.empty() ? "" : "\n") + std::string(codeText(finding.code)) + " at " +
                    finding.place;
        }
        return text;
    }

    /// The one finding; a failure if there isn't exactly one.
    Finding onlyFinding() const {
        const auto all = checkTree(lying.view(loop), options);
        EXPECT_EQ(all.size(), 1u);
        return all.empty() ? Finding{} : all.front();
    }

    /// The variables that some path through the body reads first, or the exception. Truly "a b c x".
    std::string readFirst() const {
        try {
            std::set<std::string> names;
            const ParforStatementView parfor(lying.view(loop));
            for (const SymbolView& symbol : flow::computeMaybeLiveAsTemporaryVariables(
                     parfor, universe, [](NodeView) { return std::string(); })) {
                names.insert(testing::label(SymbolView{symbol.symbol, &ast}));
            }
            std::string text;
            for (const std::string& name : names)
                text += (text.empty() ? "" : " ") + name;
            return text;
        } catch (const std::exception& exception) {
            return std::string("threw ") + exception.what();
        }
    }

    // Lies
    void answerNode(Operation operation, const NodeView& asked, NodeView answer) {
        lying.onNode = [=](const Call& call, NodeView& node) {
            if (call.operation == operation && call.arguments[0] == asked.node) node = answer;
        };
    }
    void answerElement(Operation operation, std::uint64_t index, NodeView answer) {
        lying.onNode = [=](const Call& call, NodeView& node) {
            if (call.operation == operation && call.arguments[0] == index) node = answer;
        };
    }
    void answerKind(const NodeView& asked, NodeKind answer) {
        lying.onKind = [=](const Call& call, NodeKind& kind) {
            if (call.arguments[0] == asked.node) kind = answer;
        };
    }
};

} // namespace zt::orvex::kit
