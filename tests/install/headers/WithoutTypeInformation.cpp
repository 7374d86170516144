// Compiled with -fno-rtti: includes everything, and instantiates the templates that look at the
// classes of their arguments.
#include <zt_orvex/zt_orvex.h>
#include <zt_orvex_kit/zt_orvex_kit.h>

#if defined(__cpp_rtti)
#error "compile this without run-time type information"
#endif

using Lattice = zt::orvex::flow::PowerSetLattice<zt::orvex::SymbolView>;

template class zt::orvex::flow::OrderedSet<zt::orvex::SymbolView>;
template class zt::orvex::flow::PowerSetLattice<zt::orvex::SymbolView>;
template class zt::orvex::flow::SystemOfEquations<Lattice>;
template class zt::orvex::flow::SystemOfEquationsBuilder<Lattice>;
