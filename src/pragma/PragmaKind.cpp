#include <zt_orvex/pragma/PragmaKind.h>

#include "pragma/PragmaKindTable.h"

#include <string_view>

namespace zt::orvex {

PragmaKind pragmaKindFromString(std::u16string word) {
    constexpr std::u16string_view TEST_STANDARD = u"TestStandard";
    if (const auto kind = internal::findPragmaKind(word)) return *kind;
    const bool isTestStandard = word.compare(0, TEST_STANDARD.size(), TEST_STANDARD) == 0;
    return isTestStandard ? PragmaKind::TestStandard : PragmaKind::UNRECOGNIZED;
}

std::u16string pragmaKindToString(const PragmaKind& kind) {
    return std::u16string(internal::getPragmaWord(kind));
}

} // namespace zt::orvex
