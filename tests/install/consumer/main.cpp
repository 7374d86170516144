// Uses the installed library as any consumer would: with a tree of its own, a call into each part of
// the library, and an exception that crosses from the library to here.
#include "LoopTree.h"

#include <zt_orvex/zt_orvex.h>

#include <cstddef>
#include <iomanip>
#include <iostream>
#include <set>
#include <sstream>
#include <string>
#include <unordered_set>

namespace {

using namespace zt::orvex;

int failures = 0;

template <typename T>
void expect(const char* what, const T& actual, const T& expected) {
    if (actual == expected) return;
    ++failures;
    std::cerr << "FAILED: " << what << '\n';
}

/// Sorted, so that the order of the hash set doesn't matter.
std::set<std::u16string> names(const LoopTree& tree,
                               const std::unordered_set<SymbolView>& symbols) {
    std::set<std::u16string> result;
    for (const SymbolView symbol : symbols)
        result.insert(tree.nameOf(symbol));
    return result;
}

/// parfor k = 1:n
///     t = a(k)
///     for i = 1:t, t = t + i, end
///     b(k) = t + s
///     s = t
/// end
NodeView makeProgram(LoopTree& tree) {
    const NodeView first = tree.assign(tree.id(u"t"), tree.at(tree.id(u"a"), tree.id(u"k")));
    const NodeView inner =
        tree.loop(NodeKind::ForStatement, tree.id(u"i"), tree.range(tree.number(), tree.id(u"t")),
                  {tree.assign(tree.id(u"t"), tree.sum(tree.id(u"t"), tree.id(u"i")))});
    const NodeView third =
        tree.assign(tree.at(tree.id(u"b"), tree.id(u"k")), tree.sum(tree.id(u"t"), tree.id(u"s")));
    const NodeView last = tree.assign(tree.id(u"s"), tree.id(u"t"));
    return tree.loop(NodeKind::ParforStatement, tree.id(u"k"),
                     tree.range(tree.number(), tree.id(u"n")), {first, inner, third, last});
}

void checkTree() {
    LoopTree tree;
    const NodeView program = makeProgram(tree);

    std::size_t identifiers = 0;
    forEachNodeIn(program, [&](NodeView node) {
        if (node.getKind() == NodeKind::Identifier) ++identifiers;
    });
    expect("forEachNodeIn", identifiers, std::size_t(16));

    const flow::OrderedSet<SymbolView> universe = tree.universe();
    const ParforStatementView loop(program);
    using Names = std::set<std::u16string>;
    expect("liveAsTemporary",
           names(tree, flow::computeLiveAsTemporaryVariables(loop, universe, nullptr)),
           Names{u"a", u"k"});
    expect("maybeLiveAsTemporary",
           names(tree, flow::computeMaybeLiveAsTemporaryVariables(loop, universe, nullptr)),
           Names{u"a", u"b", u"k", u"s"});
    expect("notLiveAsSliced",
           names(tree, flow::computeNotLiveAsSlicedVariables(loop, universe, nullptr)),
           Names{u"b", u"i", u"n", u"t"});
}

void checkLeaves() {
    expect("toString", toString(BinaryOperator::ElementPower), std::string(".^"));
    expect("restricted externals", getRestrictedExternals().count(u"eval"), std::size_t(1));
    expect("quote", quote(std::u16string(u"it's"), u'\''), std::u16string(u"'it''s'"));
    expect("parseDoubleLiteral", internal::parseDoubleLiteral(u"1.5d+3"), 1500.0);

    const auto pragma = parsePragma(u"%#codegen  fast", 7);
    expect("parsePragma", pragma && pragma->getTrimmedArgumentsText() == u"fast", true);

    std::basic_ostringstream<char16_t> out;
    out.imbue(getChar16Locale());
    out << std::setfill(u'*') << std::setw(4) << 42 << NodeKind::Invalid;
    expect("16-bit stream", out.str(), std::u16string(u"**420"));
}

void checkExceptionCrosses() {
    bool isCaught = false;
    try {
        internal::parseDoubleLiteral(u"no number");
    } catch (const internal::NumberConversionError&) {
        isCaught = true;
    }
    expect("exception from the library", isCaught, true);
}

} // namespace

int main() {
    checkTree();
    checkLeaves();
    checkExceptionCrosses();
    std::cout << (failures == 0 ? "consumer: all as expected\n" : "consumer: failed\n");
    return failures == 0 ? 0 : 1;
}
