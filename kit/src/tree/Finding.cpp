#include <zt_orvex_kit/tree/Finding.h>

#include "tree/HandleText.h"

#include <cstddef>
#include <ostream>

namespace zt::orvex::kit {

namespace {

constexpr std::string_view TEXTS[] = {
#define ZT_ORVEX_KIT_FINDING(Code, text, meaning) text,
#include <zt_orvex_kit/tree/FindingCodes.def>
};

constexpr std::string_view MEANINGS[] = {
#define ZT_ORVEX_KIT_FINDING(Code, text, meaning) meaning,
#include <zt_orvex_kit/tree/FindingCodes.def>
};

} // namespace

std::string_view codeText(FindingCode code) { return TEXTS[static_cast<std::size_t>(code)]; }

std::string_view codeMeaning(FindingCode code) { return MEANINGS[static_cast<std::size_t>(code)]; }

std::ostream& operator<<(std::ostream& stream, const Finding& finding) {
    stream << codeText(finding.code) << " at " << finding.place;
    if (finding.node) stream << " (" << internal::handleText("node", finding.node->node) << ')';
    if (finding.symbol)
        stream << " (" << internal::handleText("symbol", finding.symbol->symbol) << ')';
    return stream << ": " << finding.advice;
}

} // namespace zt::orvex::kit
