#pragma once

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>

#include <ostream>

// How GoogleTest prints values that the library prints as numbers or not at all. Include it
// wherever such values are compared: a program whose files see different printers for one type
// violates the one-definition rule.
namespace zt::orvex {

/// The enumerator and its number, such as "IfStatement (38)".
void PrintTo(const NodeKind& kind, std::ostream* stream);
/// The label and the handle, such as "x (0x1003)".
void PrintTo(const NodeView& node, std::ostream* stream);
void PrintTo(const SymbolView& symbol, std::ostream* stream);

} // namespace zt::orvex
