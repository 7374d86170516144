#include "report/analysis/LeavesParallel.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>

#include <algorithm>
#include <optional>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

/// What a jump does where it meets a block that is open around it.
enum class Meeting { Passes, StaysInside, Leaves };

Meeting meet(NodeKind jump, NodeKind block) {
    const bool isBreak = jump == NodeKind::BreakStatement;
    switch (block) {
    case NodeKind::ForStatement:
    case NodeKind::WhileStatement:
        return isBreak ? Meeting::StaysInside : Meeting::Passes;
    case NodeKind::SpmdStatement:
        return isBreak ? Meeting::Passes : Meeting::Leaves;
    case NodeKind::ParforStatement:
        return Meeting::Leaves;
    default:
        return Meeting::Passes;
    }
}

/// The loops, parallel constructs and jumps of a file, in source order.
std::vector<NodeView> blocksAndJumps(const ParsedFile& file) {
    std::vector<NodeView> found;
    forEachNodeIn(file.root, [&](NodeView node) {
        switch (node.getKind()) {
        case NodeKind::BreakStatement:
        case NodeKind::ForStatement:
        case NodeKind::ParforStatement:
        case NodeKind::ReturnStatement:
        case NodeKind::SpmdStatement:
        case NodeKind::WhileStatement:
            found.push_back(node);
            break;
        default:
            break;
        }
    });
    std::sort(found.begin(), found.end(), [&](NodeView a, NodeView b) {
        return file.tree->beginOffset(a) < file.tree->beginOffset(b);
    });
    return found;
}

class LeavingFinder {
public:
    explicit LeavingFinder(const ParsedFile& parsed) : file(parsed) {}

    std::vector<Leaving> run() {
        for (const NodeView node : blocksAndJumps(file)) {
            const std::size_t begin = file.tree->beginOffset(node);
            while (!open.empty() && file.tree->endOffset(open.back().node) <= begin)
                open.pop_back();
            const NodeKind kind = node.getKind();
            if (kind == NodeKind::BreakStatement || kind == NodeKind::ReturnStatement) {
                note(node);
            } else {
                open.push_back({node, constructAt(begin)});
            }
        }
        return std::move(found);
    }

private:
    struct Block {
        NodeView node;
        std::size_t construct; ///< If it is one.
    };

    /// Constructs come in source order, too.
    std::size_t constructAt(std::size_t begin) {
        while (next < file.constructs.size() && file.constructs[next].offset < begin)
            ++next;
        return next;
    }

    void note(NodeView jump) {
        for (auto block = open.rbegin(); block != open.rend(); ++block) {
            const Meeting meeting = meet(jump.getKind(), block->node.getKind());
            if (meeting == Meeting::Passes) continue;
            if (meeting == Meeting::Leaves) found.push_back({jump, block->construct});
            return;
        }
    }

    const ParsedFile& file;
    std::vector<Block> open; ///< Around the current node, innermost last.
    std::size_t next = 0;
    std::vector<Leaving> found;
};

} // namespace

std::vector<Leaving> findLeaving(const ParsedFile& file) { return LeavingFinder(file).run(); }

} // namespace ostrel::report
