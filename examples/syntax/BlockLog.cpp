#include "syntax/BlockLog.h"

#include "syntax/Characters.h"

#include <limits>
#include <string>
#include <unordered_map>
#include <utility>

namespace ostrel {

namespace {

/// The width of a tab in every editor that hasn't been told otherwise.
constexpr std::size_t TAB = 8;

/// Of a word that isn't the first of its line: its column means nothing.
constexpr std::size_t UNKNOWN = std::numeric_limits<std::size_t>::max();

/// Of the `if` of an `else if`. It needs an `end` of its own, and hardly anyone who writes it on one
/// line means that; so no `end` lines up with it.
constexpr std::size_t ELSE_IF = UNKNOWN - 1;

} // namespace

SyntaxError errorOf(const MissingEnd& missing, const SourceText& source) {
    const auto named = [&](std::string_view keyword) { return "'" + std::string(keyword) + "'"; };
    const auto at = [&](std::size_t offset) {
        const Position position = source.position(offset);
        return " at " + std::to_string(position.line) + ":" + std::to_string(position.column);
    };
    SyntaxError error{missing.place, named(missing.name) + " has no 'end'"};
    if (missing.end != MissingEnd::NONE) {
        error.message += ": the 'end'" + at(missing.end) + " lines up with the " +
                         named(missing.ownerName) + at(missing.owner);
    }
    if (missing.isElseIf) error.help = "did you mean 'elseif'?";
    return error;
}

// What the parser tells

BlockId BlockLog::open(Extent keyword, std::string_view name) {
    blocks.push_back({keyword, name, false});
    events.push_back({EventKind::Open, blocks.size() - 1, 0});
    ++depth;
    return blocks.size() - 1;
}

BlockId BlockLog::openElseIf(Extent place) {
    const BlockId block = open(place, "if");
    blocks[block].isElseIf = true;
    return block;
}

void BlockLog::close(BlockId block, std::size_t offset) {
    events.push_back({EventKind::End, block, offset});
    --depth;
}

void BlockLog::closeWithoutEnd(BlockId block, bool isExcused) {
    events.push_back({isExcused ? EventKind::Excused : EventKind::NoEnd, block, 0});
    mayBeMissing = true;
    --depth;
}

void BlockLog::goBack(const Mark& mark) {
    blocks.resize(mark.blocks);
    events.resize(mark.events);
}

// What follows from it

void BlockLog::findIndents() {
    for (Block& block : blocks)
        block.indent = block.isElseIf ? ELSE_IF : indentAt(block.place.begin);
    for (Event& event : events) {
        if (event.kind == EventKind::End) event.indent = indentAt(event.offset);
    }
}

/// The column of a word, counted from 0, or UNKNOWN if it isn't the first of its line.
std::size_t BlockLog::indentAt(std::size_t offset) const {
    std::size_t begin = offset;
    while (begin > 0 && isBlank(source.at(begin - 1)))
        --begin;
    if (begin > 0 && !isLineEnd(source.at(begin - 1))) return UNKNOWN;
    std::size_t column = 0;
    for (; begin < offset; ++begin)
        column += source.at(begin) == u'\t' ? TAB - column % TAB : 1;
    return column;
}

/// Whether both stand at the beginning of a line, but the `end` isn't under the block's keyword.
bool BlockLog::isAskew(const Block& block, const Event& end) {
    return end.indent != UNKNOWN && block.indent != UNKNOWN && block.indent != end.indent;
}

MissingEnd BlockLog::missing(const Block& block) const {
    return {block.place, block.name, block.isElseIf};
}

/// Matches the `end`s by indentation.
class BlockLog::Realignment {
public:
    explicit Realignment(const BlockLog& of) : log(of), isOpen(of.blocks.size()) {}

    /// Returns whether there was a block for each `end`.
    bool run() {
        for (const Event& event : log.events) {
            if (event.kind == EventKind::Excused) return false;
            if (event.kind == EventKind::Open) push(event.block);
            if (event.kind == EventKind::NoEnd && isOpen[event.block]) popTo(event.block);
            if (event.kind != EventKind::End) continue;
            if (stack.empty()) return false;
            match(event);
        }
        return true;
    }

    std::vector<MissingEnd> missing;
    std::size_t askew = 0; ///< How many `end`s aren't under their keyword.

private:
    const Block& innermost() const { return log.blocks[stack.back()]; }

    void push(BlockId block) {
        stack.push_back(block);
        isOpen[block] = true;
        ++openAt[log.blocks[block].indent];
    }

    void pop() {
        --openAt[innermost().indent];
        isOpen[stack.back()] = false;
        stack.pop_back();
    }

    /// Leaves `block` and those in it, all without an `end`.
    void popTo(BlockId block) {
        while (isOpen[block]) {
            missing.push_back(log.missing(innermost()));
            pop();
        }
    }

    void match(const Event& end) {
        const bool isFurtherLeft = end.indent < innermost().indent && innermost().indent != UNKNOWN;
        if (isFurtherLeft && openAt[end.indent] > 0) leaveWhatIsIndentedMore(end);
        if (isAskew(innermost(), end)) ++askew;
        pop();
    }

    void leaveWhatIsIndentedMore(const Event& end) {
        const std::size_t first = missing.size();
        while (innermost().indent != end.indent) {
            missing.push_back(log.missing(innermost()));
            pop();
        }
        for (std::size_t i = first; i < missing.size(); ++i) {
            missing[i].end = end.offset;
            missing[i].owner = innermost().place.begin;
            missing[i].ownerName = innermost().name;
        }
    }

    const BlockLog& log;
    std::vector<BlockId> stack;
    std::vector<bool> isOpen;
    std::unordered_map<std::size_t, std::size_t> openAt; ///< How many open blocks by indentation.
};

std::vector<MissingEnd> BlockLog::takeMissing() {
    std::vector<MissingEnd> result;
    if (depth > 0) return result;
    if (std::exchange(mayBeMissing, false)) result = findMissing();
    blocks.clear();
    events.clear();
    return result;
}

std::vector<MissingEnd> BlockLog::findMissing() {
    findIndents();
    std::vector<MissingEnd> result;
    std::size_t askew = 0;
    for (const Event& event : events) {
        const Block& block = blocks[event.block];
        if (event.kind == EventKind::NoEnd) result.push_back(missing(block));
        if (event.kind == EventKind::End && isAskew(block, event)) ++askew;
    }
    if (result.empty()) return result;
    Realignment realigned(*this);
    if (realigned.run() && realigned.askew < askew) return std::move(realigned.missing);
    return result;
}

} // namespace ostrel
