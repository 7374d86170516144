#pragma once

#include <zt_orvex/support/ConvertibleBasicStringView.h>
#include <zt_orvex/support/Export.h>
#include <zt_orvex/support/SmallString.h>

#include <boost/optional.hpp>

#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace zt::orvex::internal {

/// Maps short 8-bit texts to their UTF-16 form, so that a caller needn't convert them again.
///
/// The pool copies the keys and stores views of the UTF-16 texts: those remain the caller's and
/// must outlive the pool's use of them. Keys longer than `SmallString::MAX_LENGTH` bytes are
/// ignored, and keys that differ only in zero bytes at their end are the same key.
///
/// A lookup allocates nothing and costs one probe of a hash table. It updates counters although it
/// is `const`, so a pool belongs to one thread at a time, even for lookups.
///
///     StringPool pool;
///     pool.poolIfShort("idx", u"idx");
///     pool.lookup("idx");  // a view of the text that was given
///     pool.lookup("row");  // empty
class ZT_ORVEX_EXPORT StringPool {
public:
    /// An empty pool.
    StringPool();
    ~StringPool();

    StringPool(const StringPool&) = delete;
    StringPool& operator=(const StringPool&) = delete;

    /// Stores `value` under `key`, replacing an earlier value. Ignores a key that is too long. If it
    /// throws std::bad_alloc, the pool is unchanged.
    void poolIfShort(ConvertibleBasicStringView<char> key,
                     ConvertibleBasicStringView<char16_t> value);

    /// The value last stored under `key`, or an empty optional.
    boost::optional<ConvertibleBasicStringView<char16_t>>
    lookup(ConvertibleBasicStringView<char> key) const;

private:
    friend class StringPoolProbe; // lets the tests read the counters

    /// `SmallString::hashCode`.
    struct KeyHash {
        std::size_t operator()(const SmallString& key) const noexcept { return key.hashWords(); }
    };
    /// `operator==` of `SmallString`.
    struct KeyEquality {
        bool operator()(const SmallString& a, const SmallString& b) const noexcept {
            return a.hasWordsOf(b);
        }
    };

    std::unordered_map<SmallString, ConvertibleBasicStringView<char16_t>, KeyHash, KeyEquality>
        table;
    mutable std::uint64_t numberOfLookups = 0; ///< With a short key, found or not.
    mutable std::uint64_t numberOfHits = 0;
    std::uint64_t bytesPooled = 0; ///< 16 for each short key, new or not.
    /// What zero-terminated copies would have taken.
    mutable std::uint64_t bytesSaved = 0;
};

} // namespace zt::orvex::internal
