// A visitor without a fallback must handle every kind: if it misses one, it doesn't compile.
#include "ast/AstViewDispatcher.h"

#include <type_traits>

using namespace zt::orvex;

class NoView {};

template <typename View>
#ifdef ZT_ORVEX_MUST_FAIL
using Handled = std::conditional_t<View::KIND == NodeKind::WhileStatement, NoView, View>;
#else
using Handled = View;
#endif

struct Visitor {
#define ZT_ORVEX_NODE_KIND(Name, Class)                                                            \
    void visit(const Handled<Name##View>&) {}
#include <zt_orvex/ast/NodeKinds.def>
};

void visit(const NodeView& node) {
    Visitor visitor;
    internal::dispatch(visitor, node);
}
