#pragma once

#include <zt_orvex/support/Fnv1a.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>

namespace zt::orvex {

class IAstView;

/// A handle that names one symbol of a consumer's program.
///
/// Two words, copied freely, owning nothing. Two views are equal when their handles are equal, and
/// hash by the handle alone; `view` is ignored.
struct SymbolView {
    std::uint64_t symbol; ///< Identifies the symbol to `view`; the library never looks inside.
    const IAstView* view; ///< The tree to ask; must outlive the handle.

    /// @{
    /// Compares the handles alone. Symbols of two programs can be equal: don't mix them in one set.
    friend bool operator==(const SymbolView& a, const SymbolView& b) {
        return a.symbol == b.symbol;
    }
    friend bool operator!=(const SymbolView& a, const SymbolView& b) {
        return a.symbol != b.symbol;
    }
    /// @}
};

static_assert(sizeof(SymbolView) == 16 && std::is_trivially_copyable_v<SymbolView>);

} // namespace zt::orvex

/// Hashes by the handle alone, as equality compares; the same value on every machine.
template <>
struct std::hash<zt::orvex::SymbolView> {
    /// The FNV-1a hash of the handle.
    std::size_t operator()(const zt::orvex::SymbolView& symbol) const noexcept {
        return zt::orvex::internal::fnv1a(symbol.symbol);
    }
};
