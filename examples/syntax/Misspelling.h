#pragma once

#include "source/SourceText.h"
#include "tree/TreeBuilder.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {

/// A word that begins a statement, and the keyword that it was probably meant to be.
struct Misspelling {
    Extent word;
    std::string_view keyword;
};

/// The keyword that `word` was probably meant to be. The word must differ from it by one letter
/// left out, added, replaced or swapped with its neighbour, or by two if it has six letters or
/// more, or only in case; and what follows must look like what follows that keyword.
///
/// Cost: constant, but for the blanks after the word.
std::optional<Misspelling> misspellingAt(const SourceText& source, Extent word);

/// What to ask about it, for the help of an error.
std::string didYouMean(const Misspelling& misspelling);

/// The words at the beginning of a scope's statements that aren't keywords, and might be meant as
/// one: that of a command such as `parfro i = 1:3`, which isn't an error by itself.
///
/// Adding a word costs next to nothing. Each is compared with the keywords at most once, when an
/// `end` turns up that closes nothing.
class SuspectWords {
public:
    void clear() { words.clear(); }
    void add(Extent word) { words.push_back(word); }

    /// The last of the words that is a misspelled keyword that begins a block. Forgets it and
    /// those after it.
    std::optional<Misspelling> takeLast(const SourceText& source);

private:
    std::vector<Extent> words;
};

} // namespace ostrel
