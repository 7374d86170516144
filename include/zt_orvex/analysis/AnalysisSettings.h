#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <cstdint>

namespace zt::orvex::flow {

/// How an analysis merges paths, and how certain a read or a write must be to count.
enum class AnalysisTypeView : std::uint32_t {
    /// What holds on some path. Successors are joined. A partial write counts as a read, and so
    /// does a read in an operand that is evaluated conditionally.
    May = 0,
    /// What holds on every path. Successors are met. A partial write counts as a write, and a read
    /// in an operand that is evaluated conditionally doesn't count.
    Must = 1,
};

/// What counts as a write of the whole variable.
enum class AnalysisModeView : std::uint32_t {
    /// Every indexed write is partial.
    Plain = 0,
    /// A write through exactly one level of indexing or field access is whole, unless a subscript
    /// is one of the subscript variables.
    Sliced = 1,
    /// As `Plain`, and expression and command statements count as writes of `ans`.
    Ans = 2,
};

} // namespace zt::orvex::flow
