#pragma once

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex_kit/Export.h>

#include <string_view>

namespace zt::orvex::kit {

/// The enumerator of a kind: "IfStatement". "unknown" for `Invalid` and for a value that isn't an
/// enumerator. The text lives as long as the program.
///
/// The library itself prints kinds as numbers; this is for people.
ZT_ORVEX_KIT_EXPORT std::string_view kindName(NodeKind kind);

/// The class of a kind: "statement", "expression", "method" or "other". Unknown kinds are "other".
ZT_ORVEX_KIT_EXPORT std::string_view className(NodeKind kind);

} // namespace zt::orvex::kit
