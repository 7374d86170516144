#include "report/PlaceFinder.h"

namespace ostrel::report {

namespace {

constexpr std::size_t NEAR = 4096;

bool isLineEnd(char16_t unit) { return unit == u'\n' || unit == u'\r'; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

} // namespace

Place PlaceFinder::at(std::size_t offset, std::size_t length) {
    if (!advanceTo(offset)) position = source.position(offset);
    last = offset;
    return {offset, length, position.line, position.column};
}

Place PlaceFinder::of(zt::orvex::NodeView node) {
    const std::size_t begin = tree.beginOffset(node);
    return at(begin, tree.endOffset(node) - begin);
}

bool PlaceFinder::advanceTo(std::size_t offset) {
    if (offset < last || offset - last > NEAR) return false;
    std::size_t column = position.column;
    for (std::size_t i = last; i < offset; ++i) {
        if (isLineEnd(source.at(i))) return false;
        if (!isLowSurrogate(source.at(i))) ++column;
    }
    position.column = column;
    return true;
}

} // namespace ostrel::report
