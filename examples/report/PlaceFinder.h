#pragma once

#include "report/ReportModel.h"
#include "source/SourceText.h"
#include "tree/Tree.h"

#include <zt_orvex/ast/NodeView.h>

#include <cstddef>

namespace ostrel::report {

/// Turns offsets into lines and columns.
///
/// `SourceText::position` counts from the begin of the line, which makes a long line with many
/// names quadratic. This counts on from the place before where that is near, so ask in source order
/// where there is a choice.
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
