// A row of the table of kinds can't declare a range or an optional child as a plain one.
#include "ast/Children.h"

using namespace zt::orvex;

#ifdef ZT_ORVEX_MUST_FAIL
using Condition = internal::One<&IAstView::getIfBody>;
#else
using Condition = internal::One<&IAstView::getIfCondition>;
#endif

void visit(const NodeView& node) {
    Condition::visit(node, [](NodeView) {});
}
