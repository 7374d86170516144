#pragma once

#include "tree/Parts.h"

#include <zt_orvex_kit/tree/Children.h>

#include <cstdint>

namespace zt::orvex::kit::internal {

/// Steps through the children of a node, asking the tree for each when its turn comes.
class ChildCursor {
public:
    ChildCursor(const NodeView& of, NodeKind kind) : parent(of) {
        const PartsOf parts(kind);
        next = parts.begin();
        end = parts.end();
    }

    /// Sets `child` to the next child. Returns false if there is none.
    bool advance(NodeView& child) {
        while (isInRange || next != end) {
            if (isInRange ? advanceInRange(child) : startPart(child)) return true;
        }
        return false;
    }

    /// The role of the child that was returned last; at least one must have been.
    ChildRole role() const {
        const Part& part = isInRange ? *next : *(next - 1);
        return {part.name, isInRange ? index - 1 : 0, isInRange};
    }

private:
    /// Begins with the part at `next`. Returns whether it is a child.
    bool startPart(NodeView& child) {
        const Part& part = *next;
        switch (part.form) {
        case Form::One:
            child = (parent.view->*part.one)(parent.node);
            break;
        case Form::Each:
            range = part.range(*parent.view, parent.node);
            index = 0;
            isInRange = true;
            return false;
        case Form::Held:
            if (parent.view->getInputParameterKind(parent.node) != part.held) return skip();
            [[fallthrough]];
        case Form::Maybe: {
            const boost::optional<NodeView> answer = (parent.view->*part.maybe)(parent.node);
            if (!answer) return skip();
            child = *answer;
            break;
        }
        }
        ++next;
        return true;
    }

    bool advanceInRange(NodeView& child) {
        if (index < next->family->sizeOf(range)) {
            child = next->family->elementOf(range, index++);
            return true;
        }
        isInRange = false;
        return skip();
    }

    bool skip() {
        ++next;
        return false;
    }

    NodeView parent;
    const Part* next;
    const Part* end;
    Range range = {};
    std::uint64_t index = 0;
    bool isInRange = false; ///< Whether elements of the part at `next` are being returned.
};

} // namespace zt::orvex::kit::internal
