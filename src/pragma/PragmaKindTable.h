#pragma once

#include <zt_orvex/pragma/PragmaKind.h>

#include <boost/optional.hpp>

#include <array>
#include <string_view>

namespace zt::orvex::internal {

struct PragmaKindRow {
    PragmaKind kind;
    std::u16string_view word;
};

/// Every kind and its word. A constant, and thus available before any initialiser runs.
inline constexpr std::array<PragmaKindRow, 9> pragmaKindTable = {{
    {PragmaKind::codegen, u"codegen"},
    {PragmaKind::zel, u"zel"},
    {PragmaKind::function, u"function"},
    {PragmaKind::internal, u"internal"},
    {PragmaKind::vun, u"vun"},
    {PragmaKind::obfuscate, u"obfuscate"},
    {PragmaKind::ok, u"ok"},
    {PragmaKind::TestStandard, u"TestStandard"},
    {PragmaKind::UNRECOGNIZED, u"UNRECOGNIZED"},
}};

/// The kind whose word is `word`, exactly.
boost::optional<PragmaKind> findPragmaKind(std::u16string_view word);

/// Throws std::out_of_range("invalid map<K, T> key") for a kind without a word.
std::u16string_view getPragmaWord(PragmaKind kind);

} // namespace zt::orvex::internal
