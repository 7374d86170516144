#pragma once

#include "peers/IdealLiveness.h"
#include "support/GeneratedProgram.h"

#include <memory>

namespace zt::orvex::benchmarks {

/// A generated program as Clang sees it: parsed once, analysed any number of times.
class ClangProgram {
public:
    explicit ClangProgram(const GeneratedProgram& program);
    ~ClangProgram();

    /// Builds the control-flow graph, computes the live variables and frees everything. Returns the
    /// seconds that this took, without the copy of the answer to `liveAtEntry`.
    ///
    /// Every expression is an element of the graph, as in Clang's static analyzer. With fewer, the
    /// answers are the same, but live expressions accumulate and slow the analysis down.
    double analyse(LiveWords& liveAtEntry) const;

private:
    struct Parsed;
    std::unique_ptr<Parsed> parsed;
};

} // namespace zt::orvex::benchmarks
