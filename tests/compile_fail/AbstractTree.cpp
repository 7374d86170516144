// An implementation of IAstView must define every operation.
#include <zt_orvex/ast/IAstView.h>

class Tree : public zt::orvex::IAstView {
public:
    zt::orvex::NodeKind getNodeKind(std::uint64_t) const override {
        return zt::orvex::NodeKind::End;
    }
};

#ifdef ZT_ORVEX_MUST_FAIL
Tree makeTree() { return Tree(); }
#endif
