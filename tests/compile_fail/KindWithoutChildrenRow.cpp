// A kind that the table of children does not know stops the walkers from compiling.
#include "ast/TreeWalker.h"

using namespace zt::orvex;

class NewKindView : public NodeView {
public:
    explicit NewKindView(const NodeView& of) : NodeView(of) {}
};

#ifdef ZT_ORVEX_MUST_FAIL
using View = NewKindView;
#else
using View = WhileStatementView;
#endif

void walk(const NodeView& node) {
    const auto hook = [](const NodeView&, NodeKind) {};
    internal::TreeWalker walker{hook};
    walker.visit(View(node));
}
