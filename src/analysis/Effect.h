#pragma once

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>

#include <cstdint>

namespace zt::orvex::flow::internal {

/// What a statement or clause does to a variable, and how certainly.
enum class EffectKind : std::uint8_t {
    /// Reads it whenever the statement runs.
    CertainRead,
    /// Reads it in an operand whose evaluation depends on an operand before it: b in `a && b`.
    ConditionalRead,
    /// Writes all of it: `x = 1`.
    WholeWrite,
    /// Writes a part of it: `x(k).f = 1`.
    PartialWrite,
    /// Has it as the target that the source doesn't mention: the `ans` of an expression or command
    /// statement.
    ImplicitTarget,
};

constexpr bool isRead(EffectKind kind) {
    return kind == EffectKind::CertainRead || kind == EffectKind::ConditionalRead;
}

/// One effect on one variable of the universe.
struct Effect {
    EffectKind kind;
    IdentifierView identifier; ///< Where it happens.
    SymbolView symbol;         ///< The identifier's, with the pointer that its tree gave.
    std::uint64_t index;       ///< The symbol's index in the universe.
};

} // namespace zt::orvex::flow::internal
