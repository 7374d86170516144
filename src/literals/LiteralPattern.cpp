#include "literals/LiteralPattern.h"

#include <locale>

namespace zt::orvex::internal {

LiteralPattern::LiteralPattern(std::string_view narrowPattern, std::string_view widePattern)
    : wide(widePattern) {
    // The grammar must not depend on the current global locale.
    narrow.imbue(std::locale::classic());
    narrow.assign(narrowPattern.data(), narrowPattern.data() + narrowPattern.size(),
                  boost::regex::perl | boost::regex::nosubs);
}

// The engine throws when it exceeds a number of steps that is quadratic in the length of the text.
// These patterns take linearly many, so it never does.
bool LiteralPattern::matches(std::string_view text) const {
    return boost::regex_match(text.data(), text.data() + text.size(), narrow);
}

} // namespace zt::orvex::internal
