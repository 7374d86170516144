#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <cstdint>

namespace zt::orvex::internal {

/// The 64-bit FNV-1a hash of the eight bytes of `value`, least significant byte first.
///
/// The library hashes every handle and pointer with it. It gives the same on every machine.
constexpr std::uint64_t fnv1a(std::uint64_t value) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (int byte = 0; byte < 8; ++byte) {
        hash ^= (value >> (8 * byte)) & 0xff;
        hash *= 0x100000001b3;
    }
    return hash;
}

} // namespace zt::orvex::internal
