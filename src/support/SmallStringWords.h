#pragma once

#include <zt_orvex/support/SmallString.h>

#include <boost/endian/conversion.hpp>

namespace zt::orvex::internal {

/// The words of a text of at most `SmallString::MAX_LENGTH` bytes. Reads no byte outside the text.
///
/// A text is read in pieces that may overlap in the middle and are put together in registers.
/// Copying the bytes to a buffer first would be simpler, but reading the buffer back as words has
/// to wait for the copy, which takes longer than the rest of a lookup in a `StringPool`.
inline SmallStringWords packShortText(ConvertibleBasicStringView<char> text) noexcept {
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
    const std::size_t size = text.size();
    if (size > 8) {
        const std::uint64_t last = boost::endian::load_little_u64(bytes + size - 8);
        return {boost::endian::load_little_u64(bytes), last >> (8 * (16 - size))};
    }
    if (size >= 4) {
        const std::uint64_t last = boost::endian::load_little_u32(bytes + size - 4);
        return {boost::endian::load_little_u32(bytes) | last << (8 * (size - 4)), 0};
    }
    if (size > 0) {
        const std::uint64_t first = bytes[0];
        const std::uint64_t middle = bytes[size / 2];
        const std::uint64_t last = bytes[size - 1];
        return {first | middle << (8 * (size / 2)) | last << (8 * (size - 1)), 0};
    }
    return {0, 0};
}

} // namespace zt::orvex::internal
