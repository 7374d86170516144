#pragma once

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex_kit/Export.h>

#include <cstdint>
#include <string_view>

namespace zt::orvex::kit {

/// What the head of a statement does to a variable, and how certainly.
enum class AccessKind : std::uint8_t {
    CertainRead,     ///< Whenever the statement runs.
    ConditionalRead, ///< In an operand that may be skipped: b in `a && b`.
    WholeWrite,      ///< All of it: `x = 1`.
    PartialWrite,    ///< A part of it: `x(k).f = 1`.
    ImplicitTarget,  ///< The `ans` of a statement that doesn't mention it.
};

/// "certain read", "conditional read", "whole write", "partial write" or "implicit target";
/// "unknown access" for a value that isn't an enumerator. The text lives as long as the program.
ZT_ORVEX_KIT_EXPORT std::string_view toText(AccessKind kind);

/// Whether the access is a write of any kind.
constexpr bool isWrite(AccessKind kind) {
    return kind != AccessKind::CertainRead && kind != AccessKind::ConditionalRead;
}

/// One access to one variable of the universe.
struct Access {
    AccessKind kind;           ///< What happens.
    IdentifierView identifier; ///< Where it happens.
    SymbolView symbol;         ///< The identifier's.
    std::uint64_t index;       ///< The symbol's index in the universe.
};

/// What an access means to liveness, in the direction of the analysis: from the end to the entry.
enum class LivenessEffect : std::uint8_t {
    None,         ///< Nothing changes.
    MakesLive,    ///< The variable is live before the statement.
    EndsLiveness, ///< What comes after the statement doesn't make it live before.
};

/// What an access of this kind means under the settings of an analysis: the library's own rule. A
/// statement that does both to a variable makes it live, since it reads before it writes.
///
///     access             May                           Must
///     certain read       makes live                    makes live
///     conditional read   makes live                    none: it may not happen
///     whole write        ends liveness                 ends liveness
///     partial write      makes live: the rest is kept  ends liveness
///     implicit target    mode Ans: ends liveness       ends liveness
///                        others: none
ZT_ORVEX_KIT_EXPORT LivenessEffect livenessEffectOf(AccessKind kind, flow::AnalysisTypeView type,
                                                    flow::AnalysisModeView mode);

} // namespace zt::orvex::kit
