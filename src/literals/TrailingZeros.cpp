#include "literals/TrailingZeros.h"

#include <regex>

namespace zt::orvex::internal {

std::string dropTrailingZeros(const std::string& text) {
    // Never destroyed, so that destructors of static objects may print numbers.
    static const auto& fractionAndZeros = *new std::regex("(-?[0-9]+\\.[0-9][1-9]*)(0+)");
    std::smatch match;
    return std::regex_match(text, match, fractionAndZeros) ? match[1].str() : text;
}

} // namespace zt::orvex::internal
