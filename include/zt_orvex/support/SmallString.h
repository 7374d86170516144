#pragma once

#include <zt_orvex/support/ConvertibleBasicStringView.h>
#include <zt_orvex/support/Export.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace zt::orvex::internal {

/// The bytes of a `SmallString` as two little-endian numbers: the first eight and the last eight.
struct SmallStringWords {
    std::uint64_t low;  ///< The first eight bytes.
    std::uint64_t high; ///< The last eight bytes.
};

/// Up to 16 bytes of text, stored inline and compared and hashed as two machine words.
///
/// The text is padded on the right with zero bytes. No length is stored, so a text equals the same
/// text followed by zero bytes. Only `str` allocates.
///
///     const SmallString name("idx");
///     name == SmallString("idx");  // true
///     name.str();                  // "idx"
class ZT_ORVEX_EXPORT SmallString {
public:
    /// The longest text that fits, in bytes.
    static constexpr std::size_t MAX_LENGTH = 16;

    /// Copies the bytes. `text` must not be longer than `MAX_LENGTH`; that isn't checked.
    SmallString(ConvertibleBasicStringView<char> text);
    /// @{
    /// Copies the 16 bytes. So does moving: `other` keeps its text.
    SmallString(const SmallString& other);
    SmallString(SmallString&& other) noexcept;
    SmallString& operator=(const SmallString& other);
    SmallString& operator=(SmallString&& other) noexcept;
    /// @}

    /// @{
    /// Compares all 16 bytes, those after a zero included.
    bool operator==(const SmallString& other) const;
    bool operator!=(const SmallString& other) const;
    /// @}

    /// The high word times 29, plus the low word: the same on every machine.
    std::size_t hashCode() const;

    /// The bytes before the first zero byte: a zero inside the text cuts it short.
    std::string str() const;

private:
    // Inline, for lookups in the pool: calling the exported functions would cost as much as the
    // lookup itself.
    friend class StringPool;
    explicit SmallString(SmallStringWords text) noexcept : words(text) {}
    bool hasWordsOf(const SmallString& other) const noexcept {
        return words.low == other.words.low && words.high == other.words.high;
    }
    std::size_t hashWords() const noexcept {
        return static_cast<std::size_t>(words.high * 29 + words.low);
    }

    SmallStringWords words;
};

static_assert(sizeof(SmallString) == SmallString::MAX_LENGTH);

} // namespace zt::orvex::internal
