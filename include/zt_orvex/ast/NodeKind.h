#pragma once

#include <zt_orvex/support/Export.h>

#include <cstdint>
#include <ostream>
#include <set>

namespace zt::orvex {

/// The kind of a node, numbered from 1 in alphabetical order; `Invalid` is 0.
///
/// No node of a well-formed tree is `Invalid`. A kind is unknown if it is `Invalid` or isn't an
/// enumerator; nodes of unknown kinds are skipped silently everywhere. NodeKinds.def has a line on
/// each kind.
enum class NodeKind : std::uint8_t {
    Invalid, ///< No kind: what a tree may answer for a node that it doesn't know.
#define ZT_ORVEX_NODE_KIND(Name, Class) Name,
#include <zt_orvex/ast/NodeKinds.def>
};

static_assert(sizeof(NodeKind) == 1);

/// All kinds but `Invalid`, ascending: the same object at every call. Any thread may read it.
ZT_ORVEX_EXPORT const std::set<NodeKind>& getAllNodeKinds();

/// @{
/// Prints the kind as a decimal number: `IfStatement` as 38, an unknown kind of value 200 as 200.
///
/// On an 8-bit stream the number is written as an `int`, so the stream's flags, width and fill
/// apply. On a 16-bit stream it is written as text, which needs no locale for 16-bit characters.
///
/// Deliberate: kinds print as numbers, not names. Messages and logs rely on it.
ZT_ORVEX_EXPORT std::ostream& operator<<(std::ostream& stream, const NodeKind& kind);
ZT_ORVEX_EXPORT std::basic_ostream<char16_t>& operator<<(std::basic_ostream<char16_t>& stream,
                                                         const NodeKind& kind);
/// @}

} // namespace zt::orvex
