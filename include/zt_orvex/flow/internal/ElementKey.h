#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/support/Fnv1a.h>

#include <cstdint>
#include <functional>

namespace zt::orvex::flow::internal {

/// The word by which the containers of the framework know an element, and how they hash it.
///
/// In general that is the element's `std::hash`, and elements of one key have to be compared.
/// Multiplying spreads it: a hash is often the number itself, and the upper bits decide.
template <typename T>
struct ElementKey {
    static constexpr bool IDENTIFIES = false;
    static std::uint64_t of(const T& element) { return std::uint64_t{std::hash<T>()(element)}; }
    static std::uint64_t hashOf(std::uint64_t key) { return key * 0x9e3779b97f4a7c15; }
};

/// Handles and pointers are words that say all there is to say, so that elements of one key are
/// equal. They hash by FNV-1a, the same for equal handles on every machine.
struct WordKey {
    static constexpr bool IDENTIFIES = true;
    static std::uint64_t hashOf(std::uint64_t key) { return zt::orvex::internal::fnv1a(key); }
};

template <typename T>
struct ElementKey<T*> : WordKey {
    static std::uint64_t of(T* pointer) { return reinterpret_cast<std::uintptr_t>(pointer); }
};

template <>
struct ElementKey<SymbolView> : WordKey {
    static std::uint64_t of(const SymbolView& symbol) { return symbol.symbol; }
};

template <>
struct ElementKey<NodeView> : WordKey {
    static std::uint64_t of(const NodeView& node) { return node.node; }
};

} // namespace zt::orvex::flow::internal
