#pragma once

#include "source/SourceText.h"

#include <cstddef>
#include <vector>

namespace ostrel {

/// Whether a statement that begins with a name, which ends at `nameEnd`, has the shape of a
/// command: a blank, then text that begins neither with `(`, nor with `=` other than `==`, nor with
/// an operator that a blank follows. It is one if the name is no variable.
bool hasCommandShape(const SourceText& source, std::size_t nameEnd);

struct CommandWord {
    std::size_t begin;
    std::size_t end;
};

/// The words of a command. `end` is where they end, at `;`, `,`, `%` or a line end; `openQuote` is
/// where a word opens a quote that its line does not close, and npos otherwise.
struct CommandWords {
    std::vector<CommandWord> words;
    std::size_t end;
    std::size_t openQuote;
};
CommandWords readCommandWords(const SourceText& source, std::size_t at);

} // namespace ostrel
