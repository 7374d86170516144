#pragma once

#include "tree/Tree.h"

#include <zt_orvex/ast/SymbolView.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ostrel::report {

/// Where a file mentions each symbol, and where it returns, by offset.
class Occurrences {
public:
    /// Offsets in ascending order.
    struct Offsets {
        const std::uint32_t* first;
        const std::uint32_t* last;
        const std::uint32_t* begin() const { return first; }
        const std::uint32_t* end() const { return last; }
    };

    /// Refers to nothing of the tree. Cost: linear in its nodes, and sorting.
    explicit Occurrences(const Tree& tree);

    /// An implicit `ans` is mentioned where its statement begins.
    Offsets of(zt::orvex::SymbolView symbol) const {
        return {all.data() + begins[symbol.symbol], all.data() + begins[symbol.symbol + 1]};
    }

    /// Whether the file mentions the symbol at an offset or later.
    bool isMentionedFrom(std::size_t offset, zt::orvex::SymbolView symbol) const {
        const Offsets offsets = of(symbol);
        return offsets.first != offsets.last && *(offsets.last - 1) >= offset;
    }

    /// The `return` statements.
    Offsets returns() const { return {jumps.data(), jumps.data() + jumps.size()}; }

private:
    std::vector<std::uint32_t> all;    ///< Of one symbol after the other.
    std::vector<std::uint32_t> begins; ///< Of each symbol in `all`, and the end.
    std::vector<std::uint32_t> jumps;
};

} // namespace ostrel::report
