#pragma once

#include <zt_orvex/support/StringPool.h>

#include <cstddef>
#include <cstdint>

namespace zt::orvex::internal {

/// Reads the counters of a pool, which nothing in the library does.
class StringPoolProbe {
public:
    explicit StringPoolProbe(const StringPool& poolToRead) : pool(poolToRead) {}

    std::uint64_t lookups() const { return pool.numberOfLookups; }
    std::uint64_t hits() const { return pool.numberOfHits; }
    std::uint64_t pooled() const { return pool.bytesPooled; }
    std::uint64_t saved() const { return pool.bytesSaved; }
    std::size_t entries() const { return pool.table.size(); }

    /// Whether the fields have the required order.
    bool isInOrder() const {
        const auto at = [](const auto& field) { return reinterpret_cast<std::uintptr_t>(&field); };
        return at(pool) == at(pool.table) && at(pool.table) < at(pool.numberOfLookups) &&
               at(pool.numberOfLookups) + 8 == at(pool.numberOfHits) &&
               at(pool.numberOfHits) + 8 == at(pool.bytesPooled) &&
               at(pool.bytesPooled) + 8 == at(pool.bytesSaved);
    }

private:
    const StringPool& pool;
};

} // namespace zt::orvex::internal
