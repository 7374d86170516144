#pragma once

#include "tree/Tree.h"

#include <zt_orvex/ast/NodeKind.h>

#include <string>
#include <string_view>

namespace ostrel {

/// The kind's enumerator, such as "IfStatement"; "Invalid" for what is no kind.
std::string_view kindName(zt::orvex::NodeKind kind);

/// A node and all below it as one line of text, for tests and curious people.
///
/// A node is `(Kind field field ...)`, with the fields in the order of NodeFields.def: a child by
/// itself, an absent child as `-`, a range as `[a b]`. An operator stands before its operands. A
/// leaf is its kind's name, an identifier its own, `<ans>` when it stands nowhere in the text, and
/// a literal is as the source spells it.
///
///     x = -1   (AssignmentStatement x (UnaryOperation - 1))
std::string dump(const Tree& tree, zt::orvex::NodeView node);

/// Whether two trees have the same nodes, names, operators and literals, wherever these stand in
/// their sources.
bool isSameTree(const Tree& a, const Tree& b);

} // namespace ostrel
