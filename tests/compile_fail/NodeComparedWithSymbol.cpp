// The handles of nodes and of symbols can't be mixed up.
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>

using namespace zt::orvex;

#ifdef ZT_ORVEX_MUST_FAIL
bool compare(const NodeView& node, const SymbolView& symbol) { return node == symbol; }
#else
bool compare(const NodeView& node, const NodeView& other) { return node == other; }
#endif
