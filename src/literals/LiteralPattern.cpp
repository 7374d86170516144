#include "literals/LiteralPattern.h"

#include <locale>

namespace zt::orvex::internal {

LiteralPattern::LiteralPattern(std::string_view narrowPattern, std::string_view widePattern)
    : wide(widePattern) {
    // The grammar must not depend on the global locale of the moment.
    narrow.imbue(std::locale::classic());
    narrow.assign(narrowPattern.data(), narrowPattern.data() + narrowPattern.size(),
                  boost::regex::perl | boost::regex::nosubs);
}

// The engine's limit on its own steps grows with the square of the text's length, and these
// patterns take steps in proportion to it: it doesn't throw for want of them.
bool LiteralPattern::matches(std::string_view text) const {
    return boost::regex_match(text.data(), text.data() + text.size(), narrow);
}

} // namespace zt::orvex::internal
