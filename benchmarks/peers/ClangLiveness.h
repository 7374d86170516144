#pragma once

#include "peers/IdealLiveness.h"
#include "support/GeneratedProgram.h"

#include <memory>

namespace zt::orvex::benchmarks {

/// A generated program as Clang sees it: parsed once, analysed as often as one likes.
class ClangProgram {
public:
    explicit ClangProgram(const GeneratedProgram& program);
    ~ClangProgram();

    /// Builds the control-flow graph, computes what is live and frees all of it. Gives the seconds
    /// that this took; reading the answer into `liveAtEntry` is not among them.
    ///
    /// Every expression is an element of the graph, as in Clang's static analyzer: with fewer the
    /// answers stay right, but live expressions pile up and it takes many times as long.
    double analyse(LiveWords& liveAtEntry) const;

private:
    struct Parsed;
    std::unique_ptr<Parsed> parsed;
};

} // namespace zt::orvex::benchmarks
