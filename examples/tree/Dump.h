#pragma once

#include "tree/Tree.h"

#include <zt_orvex/ast/NodeKind.h>

#include <string>
#include <string_view>

namespace ostrel {

/// The kind's enumerator, such as "IfStatement"; "Invalid" for a value that isn't a kind.
std::string_view kindName(zt::orvex::NodeKind kind);

/// A node and its subtree as one line of text, for tests and for reading.
///
/// A node is `(Kind field field ...)`, with the fields in the order in which a walk visits them: a
/// child by itself, an absent child as `-`, a range as `[a b]`. An operator comes before its
/// operands. A leaf is printed as its kind's name, an identifier as its own name, or as `<ans>` if
/// it is implicit, and a literal as the source spells it.
///
///     x = -1   (AssignmentStatement x (UnaryOperation - 1))
std::string dump(const Tree& tree, zt::orvex::NodeView node);

/// Whether two trees have the same nodes, names, operators and literals. Their places in the
/// sources don't matter.
bool isSameTree(const Tree& a, const Tree& b);

} // namespace ostrel
