#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex_kit/Export.h>
#include <zt_orvex_kit/tree/Finding.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zt::orvex::kit {

/// What a check holds a tree against. Every limit is inclusive.
struct CheckTreeOptions {
    /// The check ends at the next one, which it reports as TooManyNodes.
    std::size_t maxNodes = 10'000'000;
    std::size_t maxDepth = 1'000'000;       ///< Nodes with children on one path, the root included.
    std::uint64_t maxRangeSize = 1'000'000; ///< A longer range is reported, not entered.
    std::size_t maxNameLength = 65'536;     ///< In UTF-16 units. Longer names aren't read.
    /// The check ends at the next one, which it reports as TooManyFindings.
    std::size_t maxFindings = 100;
    /// The variables of the root's scope, as an analysis gets them. Null: nothing is held against
    /// it.
    const flow::OrderedSet<SymbolView>* universe = nullptr;
    /// The symbol of `ans`, as `isAnsPossiblyReadBeforeBeingWritten` gets it.
    std::optional<SymbolView> ans = std::nullopt;
};

/// Finds where a tree breaks the promises of `IAstView`. A tree that the analyses can trust has no
/// findings.
///
///     for (const Finding& finding : checkTree(root)) std::cerr << finding << '\n';
///
/// The analyses trust a tree and get wrong results in silence if it is wrong. This trusts nothing.
/// It keeps the path in the heap, asks each question twice, ends at the limits even if the tree is
/// cyclic or endless, and turns an exception of the tree into a finding that names the operation.
/// It asks a node only what its kind has, and never asks a `view` other than the root's. What it
/// can't see are answers that are wrong but possible, and a handle that makes the tree itself
/// crash.
///
/// A child may have any kind of the class that IAstView.h names; in place of a required expression
/// there may also be a `FillerNode`. What IAstView.h calls only walked may be of any kind.
///
/// Names. The scope of a name is the innermost function or method around it, or the root. The name
/// of a parameter of an anonymous function is that parameter inside the function. Names that are
/// only walked, such as fields, aren't looked at.
///
/// The universe is held against the root's scope alone: against the variables that an analysis of
/// it reads and writes, without the targets called `ans` that the source doesn't mention. Each
/// symbol is reported once. Symbols that no identifier has come last, and aren't reported if a
/// limit hid a part of the tree.
///
/// Findings are in the order in which a walk comes to them, the same at each run. What is below a
/// node is left out if its kind isn't known, if it can't be asked, or if it was met before.
///
/// Cost: time and memory are linear in the nodes; the benchmark row check_tree/ours stands beside a
/// walk of the same tree. Not synchronised: the tree is asked on the calling thread.
ZT_ORVEX_KIT_EXPORT std::vector<Finding> checkTree(const NodeView& root,
                                                   const CheckTreeOptions& options = {});

} // namespace zt::orvex::kit
