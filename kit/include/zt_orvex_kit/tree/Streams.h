#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex_kit/Export.h>

#include <ostream>
#include <unordered_set>

/// @addtogroup kit_tree
/// ## Handles and sets on a stream
///
/// Include Streams.h, and they print as readable text:
///
///     std::cerr << node << '\n';       // Identifier x (node 0x11)
///     std::cerr << symbol << '\n';     // symbol 0x5
///     std::cerr << symbols << '\n';    // {symbol 0x5, symbol 0x7}
///
/// A typed view prints as the node that it is. A symbol doesn't know its name: `SymbolNames` does.

namespace zt::orvex {

namespace kit {

/// Writes "Identifier x (node 0x11)", "IfStatement (node 0x12)", "unknown kind 200 (node 0x13)", or
/// "node 0x14 without a view". Asks the tree for the kind, and an identifier for its name.
ZT_ORVEX_KIT_EXPORT void print(std::ostream& stream, const NodeView& node);

/// Writes "symbol 0x5", followed by " (not a variable)" if it isn't one, or by " without a view".
ZT_ORVEX_KIT_EXPORT void print(std::ostream& stream, const SymbolView& symbol);

/// Writes "{symbol 0x5, symbol 0x7}", in ascending order of the handles.
ZT_ORVEX_KIT_EXPORT void print(std::ostream& stream, const std::unordered_set<SymbolView>& symbols);

/// Writes "{symbol 0x7, symbol 0x5}", in the order of the set.
ZT_ORVEX_KIT_EXPORT void print(std::ostream& stream, const flow::OrderedSet<SymbolView>& symbols);

} // namespace kit

// These are in the namespace of the handles, where every stream finds them.

/// @{
/// Writes what `kit::print` writes.
inline std::ostream& operator<<(std::ostream& stream, const NodeView& node) {
    kit::print(stream, node);
    return stream;
}

inline std::ostream& operator<<(std::ostream& stream, const SymbolView& symbol) {
    kit::print(stream, symbol);
    return stream;
}

inline std::ostream& operator<<(std::ostream& stream,
                                const std::unordered_set<SymbolView>& symbols) {
    kit::print(stream, symbols);
    return stream;
}
/// @}

namespace flow {

/// @{
/// Writes what `kit::print` writes; a `BitSet` prints as an unordered set does.
inline std::ostream& operator<<(std::ostream& stream, const OrderedSet<SymbolView>& symbols) {
    kit::print(stream, symbols);
    return stream;
}

inline std::ostream& operator<<(std::ostream& stream, const BitSet<SymbolView>& symbols) {
    kit::print(stream, symbols.toElementSet());
    return stream;
}
/// @}

} // namespace flow

} // namespace zt::orvex
