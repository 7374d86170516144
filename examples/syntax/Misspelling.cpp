#include "syntax/Misspelling.h"

#include "syntax/Characters.h"
#include "syntax/Lexer.h"

#include <algorithm>
#include <array>
#include <string>

namespace ostrel {

namespace {

/// What follows a keyword that begins a block.
enum class Follower {
    Loop,       ///< `k =`, perhaps after a parenthesis.
    Expression, ///< Anything, on the same line.
    Signature,  ///< A name, or outputs in brackets.
    Options,    ///< Nothing, or a parenthesis.
    Nothing,
};

struct KeywordRow {
    std::string_view keyword;
    Follower follower;
};

constexpr KeywordRow BLOCK_KEYWORDS[] = {
    {"for", Follower::Loop},    {"function", Follower::Signature}, {"if", Follower::Expression},
    {"parfor", Follower::Loop}, {"spmd", Follower::Options},       {"switch", Follower::Expression},
    {"try", Follower::Nothing}, {"while", Follower::Expression},
};

constexpr std::size_t LONGEST_KEYWORD = 8;
constexpr std::size_t LONGEST_WORD = LONGEST_KEYWORD + 2;

std::size_t allowedDistance(std::size_t length) { return length >= 6 ? 2 : 1; }

std::string lowerCase(const SourceText& source, Extent word) {
    std::string result;
    for (std::size_t at = word.begin; at < word.end; ++at) {
        const auto letter = static_cast<char>(source.at(at));
        const bool isUpper = letter >= 'A' && letter <= 'Z';
        result += isUpper ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return result;
}

/// How many letters must be left out, added, replaced or swapped with a neighbour to make `b` of
/// `a`, no letter being touched twice. Both have at most LONGEST_WORD letters.
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::array<std::array<std::size_t, LONGEST_WORD + 1>, LONGEST_WORD + 1> cost{};
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                cost[i][j] = i + j;
                continue;
            }
            const std::size_t replaced = cost[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            cost[i][j] = std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, replaced});
            const bool isSwap = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (isSwap) cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
        }
    }
    return cost[a.size()][b.size()];
}

bool isStatementEnd(const SourceText& source, std::size_t at) {
    const char16_t unit = source.at(at);
    return isEndOfLine(source, at) || unit == u';' || unit == u',' || unit == u'%';
}

std::size_t skipBlanksOfLine(const SourceText& source, std::size_t at) {
    while (isBlank(source.at(at)))
        ++at;
    return at;
}

bool looksLikeLoop(const SourceText& source, std::size_t at) {
    if (source.at(at) == u'(') at = skipBlanksOfLine(source, at + 1);
    if (!isLetter(source.at(at))) return false;
    while (isNamePart(source.at(at)))
        ++at;
    at = skipBlanksOfLine(source, at);
    return source.at(at) == u'=' && source.at(at + 1) != u'=';
}

bool fits(Follower follower, const SourceText& source, std::size_t at) {
    switch (follower) {
    case Follower::Loop:
        return looksLikeLoop(source, at);
    case Follower::Expression:
        return !isStatementEnd(source, at);
    case Follower::Signature:
        return isLetter(source.at(at)) || source.at(at) == u'[';
    case Follower::Options:
        return isStatementEnd(source, at) || source.at(at) == u'(';
    case Follower::Nothing:
        break;
    }
    return isStatementEnd(source, at);
}

} // namespace

std::optional<Misspelling> misspellingAt(const SourceText& source, Extent word) {
    const std::size_t length = word.end - word.begin;
    if (length < 2 || length > LONGEST_WORD) return {};
    const std::string spelled = lowerCase(source, word);
    const std::size_t after = skipBlanksOfLine(source, word.end);
    std::optional<Misspelling> best;
    std::size_t least = allowedDistance(length) + 1;
    for (const KeywordRow& row : BLOCK_KEYWORDS) {
        const std::size_t distance = editDistance(spelled, row.keyword);
        if (distance >= least || !fits(row.follower, source, after)) continue;
        least = distance;
        best = Misspelling{word, row.keyword};
    }
    return best;
}

std::string didYouMean(const Misspelling& misspelling) {
    return "did you mean '" + std::string(misspelling.keyword) + "'?";
}

std::optional<Misspelling> SuspectWords::takeLast(const SourceText& source) {
    std::optional<Misspelling> found;
    while (!found && !words.empty()) {
        found = misspellingAt(source, words.back());
        words.pop_back();
    }
    return found;
}

} // namespace ostrel
