#pragma once

#include <zt_orvex/support/ConvertibleBasicStringView.h>
#include <zt_orvex/support/Export.h>
#include <zt_orvex/support/SmallString.h>

#include <boost/optional.hpp>

#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace zt::orvex::internal {

/// Remembers the UTF-16 form of short 8-bit texts, so that a caller need not make it again.
///
/// The pool copies the keys and stores views of the UTF-16 texts: those stay the caller's and must
/// outlive the pool's use of them. A key longer than `SmallString::MAX_LENGTH` bytes is none of its
/// affairs, and keys that differ only in zero bytes at their end are one key.
///
/// A look-up allocates nothing and costs one probe of a hash table. It counts itself, though it is
/// `const`: a pool belongs to one thread at a time, even for look-ups.
///
///   StringPool pool;
///   pool.poolIfShort("idx", u"idx");
///   pool.lookup("idx");  // a view of the text that was given
///   pool.lookup("row");  // empty
class ZT_ORVEX_EXPORT StringPool {
public:
    StringPool();
    ~StringPool();

    StringPool(const StringPool&) = delete;
    StringPool& operator=(const StringPool&) = delete;

    /// Stores `value` under `key`, in place of an earlier value. Does nothing for a longer key.
    void poolIfShort(ConvertibleBasicStringView<char> key,
                     ConvertibleBasicStringView<char16_t> value);

    /// The value last stored under `key`; empty if there is none.
    boost::optional<ConvertibleBasicStringView<char16_t>>
    lookup(ConvertibleBasicStringView<char> key) const;

private:
    friend class StringPoolProbe; // lets the tests read what nothing here reads

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
    std::uint64_t bytesPooled = 0; ///< 16 for each short key given, new or not.
    /// What fresh copies with a zero at their end would have taken.
    mutable std::uint64_t bytesSaved = 0;
};

} // namespace zt::orvex::internal
