// A consumer that was compiled with other Boost headers than the library: calls every function whose
// signature has a type that could depend on Boost, and checks what comes back.
#include "LoopTree.h"

#include <zt_orvex/zt_orvex.h>

#include <boost/version.hpp>

#include <cstddef>
#include <iostream>
#include <set>
#include <string>
#include <unordered_set>

namespace {

using namespace zt::orvex;
using Names = std::set<std::u16string>;

int failures = 0;

void expect(const char* what, bool isAsExpected) {
    if (isAsExpected) return;
    ++failures;
    std::cerr << "FAILED: " << what << '\n';
}

constexpr int NUMBER_OF_FURTHER_NAMES = 100; // enough for the universe's index to grow

std::u16string furtherName(int index) {
    return std::u16string(u"w") + static_cast<char16_t>(u'0' + index);
}

/// A tree whose ranges have a step, which it gives as a boost::optional, and which also has an spmd.
class Tree : public LoopTree {
public:
    boost::optional<NodeView> getColonStep(std::uint64_t) const override { return step; }
    StatementRangeView getSpmdBody(std::uint64_t node) const override {
        return getParforBody(node);
    }

    /// kind k = 1:s:n
    ///     t = a(k)
    ///     for i = 1:s:t, t = t + i, end
    ///     b(k) = t + s
    ///     s = t
    ///     w0 = a, w1 = a, ...
    /// end
    NodeView program(NodeKind kind) {
        step = id(u"s");
        Nodes body = {assign(id(u"t"), at(id(u"a"), id(u"k"))),
                      loop(NodeKind::ForStatement, id(u"i"), range(number(), id(u"t")),
                           {assign(id(u"t"), sum(id(u"t"), id(u"i")))}),
                      assign(at(id(u"b"), id(u"k")), sum(id(u"t"), id(u"s"))),
                      assign(id(u"s"), id(u"t"))};
        for (int index = 0; index < NUMBER_OF_FURTHER_NAMES; ++index)
            body.push_back(assign(id(furtherName(index)), id(u"a")));
        return loop(kind, id(u"k"), range(number(), id(u"n")), body);
    }

    bool hasNames(const std::unordered_set<SymbolView>& symbols, const Names& expected) const {
        Names actual;
        for (const SymbolView symbol : symbols)
            actual.insert(nameOf(symbol));
        return actual == expected;
    }

    SymbolView symbol(const std::u16string& name) const {
        for (const SymbolView symbol : universe())
            if (nameOf(symbol) == name) return symbol;
        return {};
    }

private:
    NodeView step;
};

Names withFurtherNames(Names names) {
    for (int index = 0; index < NUMBER_OF_FURTHER_NAMES; ++index)
        names.insert(furtherName(index));
    return names;
}

void checkParfor() {
    Tree tree;
    const ParforStatementView loop(tree.program(NodeKind::ParforStatement));
    const flow::OrderedSet<SymbolView> universe = tree.universe();
    expect("computeLiveAsTemporaryVariables",
           tree.hasNames(flow::computeLiveAsTemporaryVariables(loop, universe, nullptr),
                         {u"a", u"k", u"s"}));
    expect("computeMaybeLiveAsTemporaryVariables",
           tree.hasNames(flow::computeMaybeLiveAsTemporaryVariables(loop, universe, nullptr),
                         {u"a", u"b", u"k", u"s"}));
    expect("computeNotLiveAsSlicedVariables",
           tree.hasNames(flow::computeNotLiveAsSlicedVariables(loop, universe, nullptr),
                         withFurtherNames({u"b", u"i", u"n", u"t"})));
    expect("isAnsPossiblyReadBeforeBeingWritten, parfor",
           flow::isAnsPossiblyReadBeforeBeingWritten(loop, tree.symbol(u"s"), nullptr) &&
               !flow::isAnsPossiblyReadBeforeBeingWritten(loop, tree.symbol(u"t"), nullptr));
}

void checkAnalyzer() {
    Tree tree;
    const ParforStatementView loop(tree.program(NodeKind::ParforStatement));
    flow::OrderedSet<SymbolView> universe = tree.universe();
    flow::TransparentLiveVariablesAnalyzerView analyzer(universe, loop.getParforBody(),
                                                        flow::AnalysisTypeView::May,
                                                        flow::AnalysisModeView::Plain, nullptr);
    expect("getVariablesLiveAtEntry",
           tree.hasNames(analyzer.getVariablesLiveAtEntry(), {u"a", u"b", u"k", u"s"}));
    flow::TransparentLiveVariablesAnalyzerView sliced(
        universe, loop.getParforBody(), flow::AnalysisTypeView::May, flow::AnalysisModeView::Sliced,
        {tree.symbol(u"k")}, nullptr);
    expect("getVariablesNotLiveAtEntry", tree.hasNames(sliced.getVariablesNotLiveAtEntry(),
                                                       withFurtherNames({u"i", u"n", u"t"})));
}

void checkSpmd() {
    Tree tree;
    const SpmdStatementView block(tree.program(NodeKind::SpmdStatement));
    expect("computeSpmdOutputVariables",
           tree.hasNames(flow::computeSpmdOutputVariables(block, tree.universe(), nullptr),
                         withFurtherNames({u"i", u"n", u"t"})));
    expect("isAnsPossiblyReadBeforeBeingWritten, spmd",
           flow::isAnsPossiblyReadBeforeBeingWritten(block, tree.symbol(u"s"), nullptr) &&
               !flow::isAnsPossiblyReadBeforeBeingWritten(block, tree.symbol(u"t"), nullptr));
}

void checkWalk() {
    Tree tree;
    std::size_t steps = 0;
    forEachNodeIn(tree.program(NodeKind::ParforStatement), [&](NodeView node) {
        if (node == tree.getColonStep(0)) ++steps;
    });
    expect("forEachNodeIn meets the optional children", steps == 2);
}

void checkOptionals() {
    const boost::optional<Pragma> pragma = parsePragma(u"%#codegen  fast", 7);
    expect("parsePragma", pragma && pragma->getKind() == PragmaKind::codegen &&
                              pragma->getTrimmedArgumentsText() == u"fast");
    expect("parsePragma of no pragma", !parsePragma(u"%# 1", 7));

    internal::StringPool pool;
    const std::u16string text = u"index";
    pool.poolIfShort("index", text);
    const boost::optional<ConvertibleBasicStringView<char16_t>> found = pool.lookup("index");
    expect("StringPool::lookup", found && found->data() == text.data());
    expect("StringPool::lookup of a stranger", !pool.lookup("row"));
}

void checkVariants() {
    const internal::IntegerLiteralValue hex = internal::parseHexLiteral("0xFFs8");
    expect("parseHexLiteral", hex.which() == 4 && boost::get<signed char>(hex) == -1);
    const internal::IntegerLiteralValue binary = internal::parseBinaryLiteral(u"0b11u64");
    expect("parseBinaryLiteral",
           binary.which() == 3 && boost::get<unsigned long long>(binary) == 3);
}

void checkStringRefs() {
    const boost::basic_string_ref<char16_t> text(u"it's");
    expect("quote", quote(text, u'\'') == u"'it''s'");
    internal::EquivalenceFullLogger logger;
    logger.beginMatchingStrings(text, text);
    logger.doneMatching(true);
    expect("beginMatchingStrings", logger.getLog() == "Matching strings [it's] and [it's] - OK\n");
}

/// The templates of the framework use Boost inside, with the consumer's headers alone.
void checkFramework() {
    using Lattice = flow::PowerSetLattice<SymbolView>;
    Tree tree;
    tree.program(NodeKind::ParforStatement);
    const flow::OrderedSet<SymbolView> universe = tree.universe();
    Lattice lattice(universe);
    flow::SystemOfEquationsBuilder<Lattice> builder(lattice, nullptr);
    Lattice::Value someSymbols = lattice.bottom();
    someSymbols.add(tree.symbol(u"s"));
    auto* const x = builder.createVariable("x");
    auto* const y = builder.createVariable("y");
    builder.addEquation(x, {builder.createConstant(someSymbols)});
    builder.addEquation(y, {x, builder.createJoin(y)});
    builder.build()->solve();
    expect("solve", y->value() == someSymbols);
}

} // namespace

int main() {
    checkParfor();
    checkAnalyzer();
    checkSpmd();
    checkWalk();
    checkOptionals();
    checkVariants();
    checkStringRefs();
    checkFramework();
    std::cout << "Boost " << BOOST_LIB_VERSION
              << (failures == 0 ? ": all as expected\n" : ": failed\n");
    return failures == 0 ? 0 : 1;
}
