#include "limits/Nestings.h"

#include "ast/ForEachForStatementIn.h"
#include "limits/StackProbe.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex/ast/ForEachNodeIn.h>

namespace zt::orvex::testing {

namespace {

/// The tree that `wrap` makes when it is applied `depth` times, first to `innermost`.
template <typename Wrap>
NodeView nested(TreeBuilder& t, std::size_t depth, NodeView innermost, const Wrap& wrap) {
    for (std::size_t level = 0; level < depth; ++level)
        innermost = wrap(t, innermost);
    return innermost;
}

template <typename Wrap>
NodeView nestedStatement(TreeBuilder& t, std::size_t depth, const Wrap& wrap) {
    return nested(t, depth, t.emptyStatement(), wrap);
}

/// An assignment whose right side is the nested expression.
template <typename Wrap>
NodeView nestedExpression(TreeBuilder& t, std::size_t depth, const Wrap& wrap) {
    return t.assign(t.id("y"), nested(t, depth, t.id("x"), wrap));
}

NodeView nestedTries(TreeBuilder& t, std::size_t depth) {
    return nestedStatement(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.tryStatement({inner}, b.catchClause({}, {b.emptyStatement()}));
    });
}
NodeView nestedCatches(TreeBuilder& t, std::size_t depth) {
    return nestedStatement(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.tryStatement({b.emptyStatement()}, b.catchClause({}, {inner}));
    });
}
NodeView nestedIfs(TreeBuilder& t, std::size_t depth) {
    return nestedStatement(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.ifStatement(b.number(), {inner});
    });
}
NodeView nestedElses(TreeBuilder& t, std::size_t depth) {
    return nestedStatement(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.ifStatement(b.number(), {}, {}, NodeView(b.elseClause({inner})));
    });
}
NodeView nestedWhiles(TreeBuilder& t, std::size_t depth) {
    return nestedStatement(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.whileLoop(b.number(), {inner});
    });
}
NodeView nestedFors(TreeBuilder& t, std::size_t depth) {
    return nestedStatement(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.forLoop(b.id("x"), b.number(), {inner});
    });
}
NodeView nestedSwitches(TreeBuilder& t, std::size_t depth) {
    return nestedStatement(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.switchStatement(b.number(), {b.caseClause(b.number(), {inner})});
    });
}
NodeView nestedParfors(TreeBuilder& t, std::size_t depth) {
    return nestedStatement(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.parforLoop(b.id("x"), b.number(), {inner});
    });
}
NodeView nestedSpmds(TreeBuilder& t, std::size_t depth) {
    return nestedStatement(
        t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView { return b.spmd({inner}); });
}

NodeView sum(TreeBuilder& t, std::size_t depth) {
    return nestedExpression(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.add(inner, b.id("x"));
    });
}
NodeView conditions(TreeBuilder& t, std::size_t depth) {
    return nestedExpression(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.shortCircuitAnd(inner, b.id("x"));
    });
}
NodeView unaries(TreeBuilder& t, std::size_t depth) {
    return nestedExpression(
        t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView { return b.minus(inner); });
}
NodeView parentheses(TreeBuilder& t, std::size_t depth) {
    return nestedExpression(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.parenthesized(inner);
    });
}
NodeView indexChain(TreeBuilder& b, NodeView inner) { return b.paren(inner, {b.number()}); }
NodeView readIndexChain(TreeBuilder& t, std::size_t depth) {
    return nestedExpression(t, depth, indexChain);
}
NodeView writtenIndexChain(TreeBuilder& t, std::size_t depth) {
    return t.assign(nested(t, depth, t.id("x"), indexChain), t.number());
}
NodeView calls(TreeBuilder& t, std::size_t depth) {
    return nestedExpression(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.paren(b.id("f"), {inner});
    });
}
NodeView fields(TreeBuilder& t, std::size_t depth) {
    return nestedExpression(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.dot(inner, b.id("field"));
    });
}
NodeView matrices(TreeBuilder& t, std::size_t depth) {
    return nestedExpression(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.matrix({b.row({inner})});
    });
}
NodeView anonymousFunctions(TreeBuilder& t, std::size_t depth) {
    return nestedExpression(t, depth, [](TreeBuilder& b, NodeView inner) -> NodeView {
        return b.anonymousFunction({}, inner);
    });
}

void analyze(TreeBuilder& t, const NodeView& root) {
    const flow::OrderedSet<SymbolView> universe({t.symbol("x"), t.symbol("y")});
    flow::TransparentLiveVariablesAnalyzerView(universe, t.block({root}),
                                               flow::AnalysisTypeView::May,
                                               flow::AnalysisModeView::Plain, nullptr)
        .getVariablesLiveAtEntry();
}

void walk(TreeBuilder&, const NodeView& root) {
    forEachNodeIn(root, [](const NodeView&) {});
}

void findLoops(TreeBuilder&, const NodeView& root) {
    internal::forEachForStatementIn(root, [](const NodeView&) {});
}

} // namespace

const std::vector<Nesting>& allNestings() {
    static const std::vector<Nesting> nestings{
        {"analysis of nested `try`", nestedTries, analyze},
        {"analysis of `try` nested in `catch`", nestedCatches, analyze},
        {"analysis of nested `if`", nestedIfs, analyze},
        {"analysis of `if` nested in `else`", nestedElses, analyze},
        {"analysis of nested `while`", nestedWhiles, analyze},
        {"analysis of nested `for`", nestedFors, analyze},
        {"analysis of nested `switch`", nestedSwitches, analyze},
        {"analysis of nested `parfor`", nestedParfors, analyze},
        {"analysis of nested `spmd`", nestedSpmds, analyze},
        {"analysis of `x + x + …`", sum, analyze},
        {"analysis of `x && x && …`", conditions, analyze},
        {"analysis of `- - x`", unaries, analyze},
        {"analysis of `((x))`", parentheses, analyze},
        {"analysis of `x(1)(1)`, read", readIndexChain, analyze},
        {"analysis of `x(1)(1)`, written", writtenIndexChain, analyze},
        {"analysis of `f(f(x))`", calls, analyze},
        {"analysis of `x.field.field`", fields, analyze},
        {"analysis of `[[x]]`", matrices, analyze},
        {"analysis of `@() @() x`", anonymousFunctions, analyze},
        {"`forEachNodeIn`, `x + x + …`", sum, walk},
        {"`forEachNodeIn`, `f(f(x))`", calls, walk},
        {"`forEachNodeIn`, `[[x]]`", matrices, walk},
        {"`forEachNodeIn`, nested `try`", nestedTries, walk},
        {"`forEachNodeIn`, nested `if`", nestedIfs, walk},
        {"search for `for` loops, nested `for`", nestedFors, findLoops},
    };
    return nestings;
}

bool isAnswered(const Nesting& nesting, std::size_t depth, std::size_t stackBytes) {
    TreeBuilder builder;
    const NodeView root = nesting.build(builder, depth);
    return fitsInStack(stackBytes, [&] { nesting.ask(builder, root); });
}

} // namespace zt::orvex::testing
