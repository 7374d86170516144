#pragma once

#include "source/SourceText.h"

#include <cstddef>
#include <vector>

namespace ostrel {

/// Whether a statement whose leading name ends at `nameEnd` has the shape of a command: a blank,
/// then text that begins neither with `(`, nor with `=` other than `==`, nor with an operator that
/// a blank follows. It is a command if the name isn't a variable.
bool hasCommandShape(const SourceText& source, std::size_t nameEnd);

struct CommandWord {
    std::size_t begin;
    std::size_t end;
};

/// The words of a command. `end` is the `;`, `,`, `%` or line end that follows them; `openQuote` is
/// the quote that its line doesn't close, or npos.
struct CommandWords {
    std::vector<CommandWord> words;
    std::size_t end;
    std::size_t openQuote;
};
CommandWords readCommandWords(const SourceText& source, std::size_t at);

} // namespace ostrel
