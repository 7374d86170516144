#pragma once

#include "frontend/ParsedFile.h"

#include <zt_orvex/ast/NodeView.h>

#include <cstddef>
#include <vector>

namespace ostrel::report {

/// A statement that leaves the body of a parallel construct.
struct Leaving {
    zt::orvex::NodeView statement; ///< A `break` or a `return`.
    std::size_t construct; ///< The innermost one that it leaves, in `ParsedFile::constructs`.
};

/// Each `break` that leaves a `parfor` body, and each `return` that leaves a `parfor` or `spmd` body,
/// in source order. Cost: linear in the file, and sorting.
std::vector<Leaving> findLeaving(const ParsedFile& file);

} // namespace ostrel::report
