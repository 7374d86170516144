#pragma once

#include "report/model/Report.h"
#include "source/SourceText.h"
#include "tree/Tree.h"

#include <zt_orvex/ast/NodeView.h>

#include <cstddef>

namespace ostrel::report {

/// Converts offsets and nodes to places. Cost: that of `SourceText::position`.
class PlaceFinder {
public:
    PlaceFinder(const SourceText& text, const Tree& program) : source(text), tree(program) {}

    Place at(std::size_t offset, std::size_t length) const;
    Place of(zt::orvex::NodeView node) const;

private:
    const SourceText& source;
    const Tree& tree;
};

} // namespace ostrel::report
