#pragma once

#include "report/ReportModel.h"
#include "source/SourceText.h"
#include "tree/Tree.h"

#include <zt_orvex/ast/NodeView.h>

#include <cstddef>

namespace ostrel::report {

/// Converts offsets to lines and columns.
///
/// `SourceText::position` counts from the beginning of the line, which would be quadratic on a long
/// line with many names. This class counts on from the previous place if that is near, so ask in
/// source order where possible.
class PlaceFinder {
public:
    PlaceFinder(const SourceText& text, const Tree& program) : source(text), tree(program) {}

    Place at(std::size_t offset, std::size_t length);
    Place of(zt::orvex::NodeView node);

private:
    bool advanceTo(std::size_t offset);

    const SourceText& source;
    const Tree& tree;
    std::size_t last = 0;
    Position position{1, 1};
};

} // namespace ostrel::report
