#include "report/analysis/PlaceFinder.h"

namespace ostrel::report {

Place PlaceFinder::at(std::size_t offset, std::size_t length) const {
    return source.place(offset, length);
}

Place PlaceFinder::of(zt::orvex::NodeView node) const {
    const std::size_t begin = tree.beginOffset(node);
    return at(begin, tree.endOffset(node) - begin);
}

} // namespace ostrel::report
