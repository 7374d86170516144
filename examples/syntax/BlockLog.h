#pragma once

#include "source/SourceText.h"
#include "syntax/SyntaxError.h"
#include "tree/TreeBuilder.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace ostrel {

using BlockId = std::size_t;

/// A block whose `end` is missing.
struct MissingEnd {
    Extent place;          ///< Of the block's keyword.
    std::string_view name; ///< The keyword.
    bool isElseIf;         ///< Whether the block is the `if` of an `else if`.

    /// What the indentation shows: an `end` that lines up with another keyword. NONE if nothing.
    static constexpr std::size_t NONE = static_cast<std::size_t>(-1);
    std::size_t end = NONE;
    std::size_t owner = NONE;
    std::string_view ownerName{};
};

/// The error that tells it.
SyntaxError errorOf(const MissingEnd& missing, const SourceText& source);

/// The blocks of an outermost block and their `end`s, as the parser matches them, and which blocks
/// lack their `end`.
///
/// The parser gives an `end` to the innermost open block, so where one is missing, it is an
/// enclosing block that goes without. Indentation tells which block it really is:
///
///     for k = 1:3
///         if a(k)
///             b = k;
///     end          % the parser closes the 'if' here, and the 'for' has no 'end'
///
/// So the `end`s are matched a second time. An `end` that stands further left than the innermost
/// block, and under an enclosing one, closes that one; the blocks between lack theirs. If the
/// second matching leaves fewer `end`s that aren't under their keyword than the parser's does, it
/// is the one that was meant; otherwise the indentation says nothing, and the parser's holds. The
/// tree is the parser's in either case.
///
/// Cost: linear in the number of blocks, and in the blanks before their keywords if one lacks its
/// `end`.
class BlockLog {
public:
    /// Sizes to go back to when a part of the text is parsed again.
    struct Mark {
        std::size_t blocks;
        std::size_t events;
    };

    explicit BlockLog(const SourceText& text) : source(text) {}

    /// Begins a block. `name`, such as "for", must outlive the log.
    BlockId open(Extent keyword, std::string_view name);
    /// Begins the `if` of an `else if`; `place` is that of both words.
    BlockId openElseIf(Extent place);

    /// Ends the innermost block, with the `end` at `offset`.
    void close(BlockId block, std::size_t offset);
    /// Ends the innermost block, which has no `end`. If that `isExcused`, it isn't an error.
    void closeWithoutEnd(BlockId block, bool isExcused);

    /// After an outermost block has been closed: the blocks in it that lack their `end`. Forgets
    /// all blocks. Inside a block: nothing.
    std::vector<MissingEnd> takeMissing();

    Mark mark() const { return {blocks.size(), events.size()}; }
    void goBack(const Mark& mark);

private:
    enum class EventKind { Open, End, NoEnd, Excused };
    struct Event {
        EventKind kind;
        BlockId block;          ///< For an End, as the parser matches it.
        std::size_t offset;     ///< Of an End.
        std::size_t indent = 0; ///< Of an End; set by `findIndents`.
    };
    struct Block {
        Extent place;
        std::string_view name;
        bool isElseIf;
        std::size_t indent = 0; ///< Set by `findIndents`.
    };
    class Realignment;

    std::vector<MissingEnd> findMissing();
    void findIndents();
    std::size_t indentAt(std::size_t offset) const;
    static bool isAskew(const Block& block, const Event& end);
    MissingEnd missing(const Block& block) const;

    const SourceText& source;
    std::vector<Block> blocks;
    std::vector<Event> events;
    std::size_t depth = 0;
    bool mayBeMissing = false; ///< Whether a block may have no `end`.
};

} // namespace ostrel
