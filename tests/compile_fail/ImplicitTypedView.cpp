// A node becomes a typed view only explicitly.
#include <zt_orvex/ast/TypedViews.h>

using namespace zt::orvex;

#ifdef ZT_ORVEX_MUST_FAIL
ForStatementView asLoop(const NodeView& node) { return node; }
#else
ForStatementView asLoop(const NodeView& node) { return ForStatementView(node); }
#endif
