#include "literals/WidePattern.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <stdexcept>
#include <string>

namespace zt::orvex::internal {

namespace {

constexpr unsigned FIELD_BITS = 6;
constexpr std::uint64_t FIELD_MASK = (1U << FIELD_BITS) - 1;
constexpr std::size_t MAX_STATES = 64 / FIELD_BITS;
constexpr std::size_t MAX_PLACES = 64;
constexpr std::size_t ASCII_UNITS = 128;

// A place is a position in a pattern that names characters: "a[bc]+" has two, and one more for its
// end.
using Places = std::bitset<MAX_PLACES>;
using AsciiSet = std::bitset<ASCII_UNITS>;

bool isPunctuation(char c) {
    return std::string_view("!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~").find(c) != std::string_view::npos;
}

/// Parses a pattern into places: which characters each one takes, which may come first, and which
/// may follow each. The automaton follows from these: a state is the set of places that may come
/// next.
class PatternParser {
public:
    explicit PatternParser(std::string_view patternToParse) : pattern(patternToParse) {}

    void parse() {
        const Part whole = parseAlternatives();
        if (!atEnd()) refuse("')' without '('");
        end = addPlace({});
        first = whole.first;
        if (whole.isNullable) first.set(end);
        for (std::size_t p = 0; p < end; ++p)
            if (whole.last.test(p)) following[p].set(end);
    }

    [[noreturn]] void refuse(const std::string& reason) const {
        throw std::invalid_argument("Pattern '" + std::string(pattern) +
                                    "' is not supported at offset " + std::to_string(offset) +
                                    ": " + reason);
    }

    std::vector<AsciiSet> characters; // at each place
    std::vector<Places> following;    // each place
    Places first;
    std::size_t end = 0;

private:
    struct Part {
        bool isNullable = true;
        Places first;
        Places last;
    };

    bool atEnd() const { return offset == pattern.size(); }
    bool sees(char c) const { return !atEnd() && pattern[offset] == c; }
    bool seesOneOf(std::string_view set) const {
        return !atEnd() && set.find(pattern[offset]) != std::string_view::npos;
    }
    bool skip(char c) {
        if (!sees(c)) return false;
        ++offset;
        return true;
    }

    Part parseAlternatives() {
        Part all = parseSequence();
        while (skip('|')) {
            const Part next = parseSequence();
            all.isNullable = all.isNullable || next.isNullable;
            all.first |= next.first;
            all.last |= next.last;
        }
        return all;
    }

    Part parseSequence() {
        Part all;
        while (!atEnd() && !seesOneOf("|)"))
            append(all, parseRepeated());
        return all;
    }

    void append(Part& all, const Part& next) {
        connect(all.last, next.first);
        if (all.isNullable) all.first |= next.first;
        all.last = next.isNullable ? all.last | next.last : next.last;
        all.isNullable = all.isNullable && next.isNullable;
    }

    Part parseRepeated() {
        Part part = parseOne();
        if (!seesOneOf("?*+")) return part;
        if (!sees('?')) connect(part.last, part.first);
        if (!sees('+')) part.isNullable = true;
        ++offset;
        if (seesOneOf("?*+")) refuse("a quantifier after a quantifier");
        return part;
    }

    Part parseOne() {
        if (skip('(')) {
            const Part group = parseAlternatives();
            if (!skip(')')) refuse("'(' without ')'");
            return group;
        }
        const std::size_t place = addPlace(sees('[') ? parseClass() : parseCharacter());
        Part part;
        part.isNullable = false;
        part.first.set(place);
        part.last.set(place);
        return part;
    }

    AsciiSet parseCharacter() {
        if (seesOneOf("?*+")) refuse("nothing to repeat");
        if (seesOneOf(".^$[]{}")) refuse("a character with another meaning elsewhere");
        return AsciiSet().set(takeCharacter());
    }

    AsciiSet parseClass() {
        ++offset;
        if (sees('^')) refuse("a negated class");
        AsciiSet set;
        while (!skip(']')) {
            const std::size_t low = takeClassCharacter();
            std::size_t high = low;
            // A '-' at the end of a class stands for itself.
            if (sees('-') && offset + 1 < pattern.size() && pattern[offset + 1] != ']') {
                ++offset;
                high = takeClassCharacter();
            }
            if (high < low) refuse("a range that ends before it begins");
            for (std::size_t c = low; c <= high; ++c)
                set.set(c);
        }
        if (set.none()) refuse("an empty class");
        return set;
    }

    std::size_t takeClassCharacter() {
        if (atEnd()) refuse("'[' without ']'");
        if (sees('[')) refuse("a class in a class");
        return takeCharacter();
    }

    std::size_t takeCharacter() {
        if (skip('\\') && (atEnd() || !isPunctuation(pattern[offset]))) refuse("an unknown escape");
        const auto code = static_cast<unsigned char>(pattern[offset]);
        if (code >= ASCII_UNITS) refuse("a character outside ASCII");
        ++offset;
        return code;
    }

    std::size_t addPlace(const AsciiSet& set) {
        if (characters.size() == MAX_PLACES) refuse("more than 64 places");
        characters.push_back(set);
        following.emplace_back();
        return characters.size() - 1;
    }

    void connect(const Places& from, const Places& to) {
        for (std::size_t p = 0; p < following.size(); ++p)
            if (from.test(p)) following[p] |= to;
    }

    std::string_view pattern;
    std::size_t offset = 0;
};

Places step(const PatternParser& parsed, const Places& state, std::size_t unit) {
    Places next;
    for (std::size_t p = 0; p < parsed.end; ++p)
        if (state.test(p) && parsed.characters[p].test(unit)) next |= parsed.following[p];
    return next;
}

std::size_t indexOf(const PatternParser& parsed, std::vector<Places>& states, const Places& state) {
    const auto found = std::find(states.begin(), states.end(), state);
    const auto index = static_cast<std::size_t>(found - states.begin());
    if (found == states.end()) {
        if (states.size() == MAX_STATES) parsed.refuse("more than 10 states");
        states.push_back(state);
    }
    return index;
}

} // namespace

// State 0 is the empty set of places, which no unit leads out of: the text can't match any more.
// State 1 is the initial state.
WidePattern::WidePattern(std::string_view pattern) : rows(ASCII_UNITS + 1) {
    PatternParser parsed(pattern);
    parsed.parse();
    std::vector<Places> states{Places(), parsed.first};
    for (std::size_t s = 0; s < states.size(); ++s) {
        const Places state = states[s];
        if (state.test(parsed.end)) accepting |= std::uint64_t{1} << (s * FIELD_BITS);
        for (std::size_t unit = 0; unit < ASCII_UNITS; ++unit) {
            const std::uint64_t next = indexOf(parsed, states, step(parsed, state, unit));
            rows[unit] |= (next * FIELD_BITS) << (s * FIELD_BITS);
        }
    }
}

bool WidePattern::matches(std::u16string_view text) const noexcept {
    const std::uint64_t* row = rows.data();
    std::uint64_t state = FIELD_BITS;
    for (const char16_t unit : text)
        state = row[std::min<std::size_t>(unit, ASCII_UNITS)] >> (state & FIELD_MASK);
    return ((accepting >> (state & FIELD_MASK)) & 1) != 0;
}

} // namespace zt::orvex::internal
