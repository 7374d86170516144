#pragma once

#include <zt_orvex/support/Export.h>

#include <cstdint>
#include <string>

namespace zt::orvex {

/// What a pragma directs. One byte.
///
/// Deliberate: 2 and 3 are skipped. Nothing produces them, and they have no word.
enum class PragmaKind : std::uint8_t {
    codegen = 0,      ///< `%#codegen`
    zel = 1,          ///< `%#zel`
    function = 4,     ///< `%#function`
    internal = 5,     ///< `%#internal`
    vun = 6,          ///< `%#vun`
    obfuscate = 7,    ///< `%#obfuscate`
    ok = 8,           ///< `%#ok`
    TestStandard = 9, ///< `%#TestStandard`, and every word that begins so.
    UNRECOGNIZED = 10 ///< Any other word.
};

/// The kind of a directive's word; case matters. The words are `codegen`, `zel`, `function`,
/// `internal`, `vun`, `obfuscate`, `ok`, `UNRECOGNIZED`, and every word that begins with
/// `TestStandard`. Any other word gives `UNRECOGNIZED`.
ZT_ORVEX_EXPORT PragmaKind pragmaKindFromString(std::u16string word);

/// The word of a kind, which may differ from the word in the source: see `Pragma::getPragmaName`.
///
/// Throws std::out_of_range("invalid map<K, T> key") for a value without a word: 2, 3, and any
/// above 10.
ZT_ORVEX_EXPORT std::u16string pragmaKindToString(const PragmaKind& kind);

} // namespace zt::orvex
