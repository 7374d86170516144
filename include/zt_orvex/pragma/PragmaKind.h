#pragma once

#include <zt_orvex/support/Export.h>

#include <cstdint>
#include <string>

namespace zt::orvex {

/// What a pragma directs. One byte.
///
/// Deliberate: 2 and 3 are skipped. Nothing yields them, and they have no word.
enum class PragmaKind : std::uint8_t {
    codegen = 0,
    zel = 1,
    function = 4,
    internal = 5,
    vun = 6,
    obfuscate = 7,
    ok = 8,
    TestStandard = 9,
    UNRECOGNIZED = 10 ///< Any word that is none of the others.
};

/// The kind of a directive's word, upper and lower case as written: `codegen`, `zel`, `function`,
/// `internal`, `vun`, `obfuscate`, `ok`, `UNRECOGNIZED`, and every word that begins with
/// `TestStandard`. `UNRECOGNIZED` for all other words.
ZT_ORVEX_EXPORT PragmaKind pragmaKindFromString(std::u16string word);

/// The word of a kind, which need not be the one that was written: see `Pragma::getPragmaName`.
///
/// Throws std::out_of_range("invalid map<K, T> key") for a value without a word: 2, 3, and all
/// above 10.
ZT_ORVEX_EXPORT std::u16string pragmaKindToString(const PragmaKind& kind);

} // namespace zt::orvex
