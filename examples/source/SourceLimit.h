#pragma once

#include <cstdint>

namespace ostrel {

/// The largest source text, in bytes of UTF-8: 1 GiB. A tree stores offsets and indices in 32 bits.
/// No text yields more than two nodes for each byte, so for a text of this size all of them fit.
constexpr std::uintmax_t MAX_SOURCE_SIZE = std::uintmax_t{1} << 30;

constexpr const char* SOURCE_TOO_LARGE = "the file is larger than 1 GiB";

constexpr bool isSourceTooLarge(std::uintmax_t bytes) { return bytes > MAX_SOURCE_SIZE; }

} // namespace ostrel
