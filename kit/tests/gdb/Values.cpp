// A value of each type that gdb has a printer for. The script stops in `lookHere` and prints them.
#include "testing/TreeBuilder.h"

#include <zt_orvex/zt_orvex.h>

#include <cstdio>

using namespace zt::orvex;

[[gnu::noinline]] void lookHere() { std::puts("all made"); }

int main() {
    testing::TreeBuilder t;
    const IdentifierView identifier = t.id("x");
    const NodeView node = t.assign(identifier, t.number());
    const NodeView strange = t.unknown(200);
    const NodeView nowhere = {31, nullptr};
    const SymbolView symbol = t.symbol("x");
    const StatementRangeView range = t.block({node, t.breakStatement()});

    flow::OrderedSet<int> universe({7, 9, 11});
    flow::BitSet<int> set(universe);
    set.add(7);
    set.add(11);
    const flow::OrderedSet<SymbolView> symbols({symbol});

    const internal::SmallString small("idx");
    const ConvertibleBasicStringView<char> narrow("index");
    const ConvertibleBasicStringView<char16_t> wide(u"\u03B1\u03B2");
    internal::StringPool pool;
    pool.poolIfShort("idx", u"idx");
    static_cast<void>(pool.lookup("idx"));
    static_cast<void>(pool.lookup("row"));

    const Pragma pragma = *parsePragma(u"%#function a", 7);
    const LiteralValue byte = static_cast<unsigned char>(65);
    const LiteralValue real = 2.5;
    const LiteralValue imaginary = Imaginary(0.5);

    flow::PowerSetLattice<int> lattice(universe);
    flow::SystemOfEquationsBuilder<flow::PowerSetLattice<int>> builder(lattice, nullptr);
    auto* const x = builder.createVariable("x");
    auto* const y = builder.createVariable("y");
    auto* const z = builder.createVariable("z");
    auto* const free = builder.createVariable("free");
    builder.addEquation(x, {builder.createConstant(set)});
    builder.addEquation(y, {x, builder.createMinus(free), builder.createJoin(x)});
    builder.addEquation(z, {y, builder.createMeet(x)});
    const auto built = builder.build();
    auto* const system = built.get();
    system->solve();
    const auto* const equation = system->equations()[1];

    lookHere();
    return nowhere == strange || range.size() == 0 || symbols.size() == 0 || small.str().empty() ||
                   narrow.empty() || wide.empty() || byte.which() == real.which() ||
                   imaginary.which() == 0 || pragma.getSourcePosition() == 0 ||
                   equation->rightHandSide.empty()
               ? 1
               : 0;
}
