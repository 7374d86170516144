#pragma once

#include "support/Random.h"
#include "testing/Widen.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace zt::orvex::benchmarks {

enum class LiteralKind { Hexadecimal, Binary, Double };

constexpr LiteralKind ALL_LITERAL_KINDS[] = {LiteralKind::Hexadecimal, LiteralKind::Binary,
                                             LiteralKind::Double};

inline const char* nameOf(LiteralKind kind) {
    switch (kind) {
    case LiteralKind::Hexadecimal:
        return "hexadecimal";
    case LiteralKind::Binary:
        return "binary";
    case LiteralKind::Double:
        return "double";
    }
    return "";
}

/// 256 literals of a kind. One in eight has an extra character, which usually makes it malformed.
inline std::vector<std::string> generateLiterals(LiteralKind kind) {
    Random random(21 + static_cast<std::uint64_t>(kind));
    const auto digits = [&](std::uint32_t count, std::string_view set) {
        std::string text;
        for (std::uint32_t i = 0; i < count; ++i)
            text += set[random.below(static_cast<std::uint32_t>(set.size()))];
        return text;
    };
    const auto makeDouble = [&] {
        switch (random.below(4)) {
        case 0:
            return digits(1 + random.below(6), "123456789");
        case 1: {
            const std::string whole = digits(1 + random.below(3), "123456789");
            return whole + "." + digits(random.below(6), "0123456789");
        }
        case 2: {
            const std::string whole = digits(1, "123456789");
            const std::string fraction = digits(1 + random.below(16), "0123456789");
            const char* const sign = random.below(2) != 0 ? "-" : "+";
            return whole + "." + fraction + "e" + sign + digits(1 + random.below(2), "123456789");
        }
        default: {
            const std::string fraction = digits(1 + random.below(5), "0123456789");
            const char* const sign = random.below(2) != 0 ? "+" : "";
            return "." + fraction + "d" + sign + digits(1, "123456789");
        }
        }
    };
    const auto makeInteger = [&] {
        static constexpr std::uint32_t WIDTHS[] = {8, 16, 32, 64};
        const bool isHex = kind == LiteralKind::Hexadecimal;
        const std::uint32_t width = WIDTHS[random.below(4)];
        const std::uint32_t count = 1 + random.below(isHex ? width / 4 : width);
        std::string text =
            (isHex ? "0x" : "0b") + digits(count, isHex ? "0123456789ABCDEFabcdef" : "01");
        if (random.below(3) != 0) text += digits(1, "uUsS") + std::to_string(width);
        return text;
    };
    std::vector<std::string> literals;
    for (int i = 0; i < 256; ++i) {
        std::string text = kind == LiteralKind::Double ? makeDouble() : makeInteger();
        if (random.below(8) == 0) {
            const std::uint32_t place = 1 + random.below(static_cast<std::uint32_t>(text.size()));
            text.insert(place, digits(1, "g:+."));
        }
        literals.push_back(text);
    }
    return literals;
}

/// The texts in units of 8 or 16 bits.
template <typename Character>
std::vector<std::basic_string<Character>> inUnitsOf(const std::vector<std::string>& texts) {
    if constexpr (std::is_same_v<Character, char>) {
        return texts;
    } else {
        std::vector<std::u16string> wide;
        for (const std::string& text : texts)
            wide.push_back(testing::widen(text));
        return wide;
    }
}

} // namespace zt::orvex::benchmarks
