#pragma once

#include "report/model/Report.h"

#include <cstddef>
#include <vector>

namespace ostrel::report {

/// A piece of the source that has errors or remarks: an error if one of them is one.
struct MarkedPiece {
    std::size_t offset;
    std::size_t end; ///< Equal to `offset` at a place without length, such as the end of the file.
    bool isError;
};

/// The places of all errors and remarks of a file, in source order, cut so that no two overlap.
std::vector<MarkedPiece> findMarkedPieces(const File& file);

} // namespace ostrel::report
