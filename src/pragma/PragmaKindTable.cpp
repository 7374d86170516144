#include "pragma/PragmaKindTable.h"

#include <stdexcept>

namespace zt::orvex::internal {

boost::optional<PragmaKind> findPragmaKind(std::u16string_view word) {
    for (const PragmaKindRow& row : pragmaKindTable)
        if (row.word == word) return row.kind;
    return boost::none;
}

std::u16string_view getPragmaWord(PragmaKind kind) {
    for (const PragmaKindRow& row : pragmaKindTable)
        if (row.kind == kind) return row.word;
    throw std::out_of_range("invalid map<K, T> key");
}

} // namespace zt::orvex::internal
