#pragma once

#include <zt_orvex/support/Export.h>

#include <cstdint>
#include <ostream>
#include <set>

namespace zt::orvex {

/// The kind of a node: `Invalid` (0), or 1 to 66 in alphabetical order of the names.
///
/// No node of a well-formed tree is `Invalid`. Dispatchers skip a node of kind 0, or of a kind
/// above 66, without a word.
enum class NodeKind : std::uint8_t {
    Invalid,
#define ZT_ORVEX_NODE_KIND(Name, Class) Name,
#include <zt_orvex/ast/NodeKinds.def>
};

static_assert(static_cast<int>(NodeKind::WhileStatement) == 66 && sizeof(NodeKind) == 1);

/// All 66 valid kinds, ascending: the same object at every call. Any thread may read it.
ZT_ORVEX_EXPORT const std::set<NodeKind>& getAllNodeKinds();

/// Prints the kind as a decimal number, any byte whatever: `IfStatement` as 38, a byte of 200 as
/// 200.
///
/// On an 8-bit stream the number is written as an `int`, so the stream's flags, width and fill
/// apply. On a 16-bit stream it is written as text, which needs no locale for 16-bit characters.
///
/// Deliberate: kinds print as numbers, not names. Messages and logs rely on it.
ZT_ORVEX_EXPORT std::ostream& operator<<(std::ostream& stream, const NodeKind& kind);
ZT_ORVEX_EXPORT std::basic_ostream<char16_t>& operator<<(std::basic_ostream<char16_t>& stream,
                                                         const NodeKind& kind);

} // namespace zt::orvex
