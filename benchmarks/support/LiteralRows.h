#pragma once

#include "literals/LiteralGrammar.h"
#include "support/GeneratedLiterals.h"
#include "support/PerItem.h"
#include "support/Register.h"

#include <zt_orvex/literals/LiteralValidation.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zt::orvex::benchmarks {

/// The library's 8-bit pattern for a kind; for doubles, the 16-bit one if `isWide`.
inline std::string_view patternOf(LiteralKind kind, bool isWide) {
    switch (kind) {
    case LiteralKind::Hexadecimal:
        return zt::orvex::internal::Hexadecimal::PATTERN;
    case LiteralKind::Binary:
        return zt::orvex::internal::Binary::PATTERN;
    case LiteralKind::Double:
        return isWide ? zt::orvex::internal::WIDE_DOUBLE_PATTERN
                      : zt::orvex::internal::NARROW_DOUBLE_PATTERN;
    }
    return "";
}

template <typename Character>
bool isWellFormed(std::basic_string_view<Character> text, LiteralKind kind) {
    using zt::orvex::internal::LiteralValidationResult;
    switch (kind) {
    case LiteralKind::Hexadecimal:
        return zt::orvex::internal::validateHexLiteral(text) != LiteralValidationResult::Malformed;
    case LiteralKind::Binary:
        return zt::orvex::internal::validateBinaryLiteral(text) !=
               LiteralValidationResult::Malformed;
    case LiteralKind::Double:
        return zt::orvex::internal::validateDoubleLiteral(text) !=
               LiteralValidationResult::Malformed;
    }
    return false;
}

/// How many of the 256 are well-formed, according to the 8-bit functions.
inline std::size_t countWellFormed(LiteralKind kind) {
    std::size_t count = 0;
    for (const std::string& text : generateLiterals(kind))
        count += isWellFormed<char>(text, kind) ? 1u : 0u;
    return count;
}

template <typename Character, typename Matches>
void measureValidation(benchmark::State& state, LiteralKind kind, Matches matches) {
    const auto literals = inUnitsOf<Character>(generateLiterals(kind));
    const std::size_t expected = countWellFormed(kind);
    std::size_t count = 0;
    for (auto _ : state) {
        count = 0;
        for (const auto& literal : literals)
            count += matches(literal) ? 1u : 0u;
        benchmark::DoNotOptimize(count);
    }
    if (count != expected) state.SkipWithError("wrong answer");
    reportPerItem(state, static_cast<double>(literals.size()));
}

} // namespace zt::orvex::benchmarks
