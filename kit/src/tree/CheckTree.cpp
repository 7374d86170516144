#include <zt_orvex_kit/tree/CheckTree.h>

#include "tree/TreeChecker.h"

namespace zt::orvex::kit {

std::vector<Finding> checkTree(const NodeView& root, const CheckTreeOptions& options) {
    return internal::TreeChecker(root, options).run();
}

} // namespace zt::orvex::kit
