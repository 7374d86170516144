#pragma once

#include "syntax/ParserState.h"
#include "syntax/Token.h"

#include <cstddef>

namespace ostrel {

/// What a function belongs to.
enum class Owner { File, Class };

/// Whether the word begins a block of a class: `properties`, `methods`, `events` or `enumeration`.
bool isClassBlockWord(const ParserState& state, const Token& token);

/// Finds the `end`s that close nothing, by reading ahead.
///
/// An `end` too many would end its function or class early and cut off the rest of it: if a later
/// `end` has nothing else to close, the current one is the mistake.
class ExtraEnds {
public:
    explicit ExtraEnds(const ParserState& shared)
        : state(shared), budget(8 * shared.source.size() + 65536) {}

    /// Whether more `end`s follow, up to the next function, than there are blocks left to close
    /// after the current `end`.
    ///
    /// A run of extra `end`s takes one scan. In a text with words that may begin a block of a
    /// class, each `end` takes one, until the budget is used up; from then on, `end` closes the
    /// function.
    bool isExtra(Owner owner);

    /// Whether a later `end` would close nothing if the current one closed the class.
    bool isExtraInClass();

private:
    bool mayLookAhead(const Token& token, const Token& before);

    const ParserState& state;

    /// Between these offsets, each `end` that would close a function closes nothing.
    struct {
        std::size_t begin = 0;
        std::size_t end = 0;
    } known;

    /// How much text may still be read ahead. Linear in the text, and so is all reading.
    std::size_t budget;
};

} // namespace ostrel
