#include <zt_orvex_kit/tree/Children.h>

#include "tree/ChildCursor.h"

#include <ostream>

namespace zt::orvex::kit {

std::ostream& operator<<(std::ostream& stream, const ChildRole& role) {
    stream << role.accessor;
    if (role.isRangeElement) stream << '[' << role.index << ']';
    return stream;
}

void forEachChild(const NodeView& node,
                  const std::function<void(const NodeView&, const ChildRole&)>& callback) {
    internal::ChildCursor cursor(node, node.getKind());
    NodeView child = {};
    while (cursor.advance(child))
        callback(child, cursor.role());
}

} // namespace zt::orvex::kit
