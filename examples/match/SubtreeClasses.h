#pragma once

#include "tree/Tree.h"

#include <zt_orvex/ast/NodeView.h>

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace ostrel {

/// The classes of a tree's nodes, by NodeId.
struct NodeClasses {
    std::vector<std::uint32_t> own;   ///< Of a node without its children: its kind and text.
    std::vector<std::uint32_t> whole; ///< Of the subtree.
};

/// Numbers the subtrees of several trees so that two subtrees have the same number exactly if a
/// TreeMatcher finds them equivalent. Comparing subtrees is then comparing numbers, however large
/// they are.
///
///     SubtreeClasses classes;
///     const NodeClasses first = classes.of(a);
///     const NodeClasses second = classes.of(b);
///
/// Cost: linear in the trees.
class SubtreeClasses {
public:
    NodeClasses of(const Tree& tree);

private:
    std::u16string ownText(const Tree& tree, zt::orvex::NodeView node);
    static std::uint32_t numberOf(std::unordered_map<std::u32string, std::uint32_t>& known,
                                  const std::u32string& key);

    std::unordered_map<std::u16string, std::uint32_t> texts;
    std::unordered_map<std::u32string, std::uint32_t> owns;
    std::unordered_map<std::u32string, std::uint32_t> wholes;
};

} // namespace ostrel
