#include "literals/TrailingZeros.h"

#include <regex>

namespace zt::orvex::internal {

std::string dropTrailingZeros(const std::string& text) {
    static const std::regex fractionAndZeros("(-?[0-9]+\\.[0-9][1-9]*)(0+)");
    std::smatch match;
    return std::regex_match(text, match, fractionAndZeros) ? match[1].str() : text;
}

} // namespace zt::orvex::internal
