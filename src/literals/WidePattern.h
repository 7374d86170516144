#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace zt::orvex::internal {

/// A regular expression that is matched against whole UTF-16 texts, unit by unit.
///
/// It is compiled to a deterministic automaton, because matching must take linear time: with the
/// greedy pattern of a floating-point literal, a backtracking engine tries every split of a long
/// run of digits. It is written here because no library at hand matches 16-bit text in linear time
/// without narrowing it.
///
/// The syntax is what the patterns of literals need:
///   - ASCII characters, and `\` before a punctuation character;
///   - classes of characters and ranges: [0-9A-Fa-f], [+-];
///   - groups and alternatives, any of which may be empty: (8|16), |u8;
///   - one of the greedy ? * + after any of these.
/// Anything else is rejected: `.`, anchors, counts, negated classes, possessive and lazy
/// quantifiers, groups that begin with `?`.
///
/// Copies share nothing. Matching changes nothing, so threads may share a pattern.
///
///   const WidePattern pattern("0[bB][01]+");
///   pattern.matches(u"0b101");  // true
class WidePattern {
public:
    /// Throws std::invalid_argument("Pattern '<pattern>' is not supported at offset <n>: <reason>")
    /// for other syntax, and for a pattern that needs more than 64 places or 10 states.
    explicit WidePattern(std::string_view pattern);

    /// Whether the whole `text` matches. Reads each unit exactly once; a unit above 0x7F matches
    /// nothing.
    bool matches(std::u16string_view text) const noexcept;

private:
    // A state is the offset of a six-bit field. A unit's row holds, in the field of each state, the
    // state that the unit leads to. A step is thus one shift, and loading the row needn't wait for
    // the previous step.
    std::vector<std::uint64_t> rows; // one for each unit up to 0x7F, and one for all others
    std::uint64_t accepting = 0;     // a bit at the offset of each accepting state
};

} // namespace zt::orvex::internal
