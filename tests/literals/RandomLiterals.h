#pragma once

#include "testing/Random.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace zt::orvex::testing {

enum class LiteralKind { Binary, Hexadecimal, Double };

inline std::string randomDigits(Random& random, std::size_t count, std::string_view digits) {
    std::string text;
    for (; count > 0; --count)
        text += random.pick(digits);
    return text;
}

inline std::string randomInteger(Random& random, bool isHex) {
    constexpr std::array<std::string_view, 4> WIDTHS = {"8", "16", "32", "64"};
    std::string text = "0";
    text += random.pick(std::string_view(isHex ? "xX" : "bB"));
    if (random.oneIn(12)) text += std::string(random.below(70), '0');
    const std::size_t most = isHex ? 18 : random.oneIn(4) ? 68 : 20;
    text += randomDigits(random, random.below(most), isHex ? "0123456789ABCDEFabcdef" : "01");
    if (random.oneIn(3)) return text;
    text += random.pick(std::string_view("uUsS"));
    text += random.pick(WIDTHS);
    return text;
}

inline std::string randomDouble(Random& random) {
    constexpr std::string_view DIGITS = "0123456789";
    std::string text = randomDigits(random, random.below(12), DIGITS);
    if (random.oneIn(2)) text += "." + randomDigits(random, random.below(12), DIGITS);
    if (random.oneIn(2)) {
        text += random.pick(std::string_view("dDeE"));
        if (random.oneIn(2)) text += random.pick(std::string_view("+-"));
        text += randomDigits(random, random.below(4), DIGITS);
    }
    return text;
}

/// Inserts, removes or replaces up to three characters.
inline void mutate(Random& random, std::string& text) {
    using std::string_view_literals::operator""sv;
    constexpr std::string_view CHARACTERS = "01289afAFgxXbBuUsSdDeE.+- 346\0\x7F\x80\xFF"sv;
    for (std::size_t i = random.between(1, 3); i > 0; --i) {
        const std::size_t at = random.below(text.size() + 1);
        switch (random.below(3)) {
        case 0:
            text.insert(at, 1, random.pick(CHARACTERS));
            break;
        case 1:
            text.erase(at, 1);
            break;
        default:
            if (at < text.size()) text[at] = random.pick(CHARACTERS);
        }
    }
}

/// Something like a literal of the kind: well-formed about half of the time.
inline std::string randomLiteral(Random& random, LiteralKind kind) {
    std::string text = kind == LiteralKind::Double
                           ? randomDouble(random)
                           : randomInteger(random, kind == LiteralKind::Hexadecimal);
    if (random.oneIn(3)) mutate(random, text);
    return text;
}

} // namespace zt::orvex::testing
