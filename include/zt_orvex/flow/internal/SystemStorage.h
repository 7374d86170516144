#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <memory_resource>

namespace zt::orvex::flow::internal {

template <typename V>
class Factory;

/// The memory of a system's values, freed all at once with the system. Only a `Factory` makes one,
/// so only a factory constructs variables and constants.
class SystemStorage {
public:
    std::pmr::memory_resource& memory() const { return *resource; }

private:
    template <typename V>
    friend class Factory;

    explicit SystemStorage(std::pmr::memory_resource& of) : resource(&of) {}

    std::pmr::memory_resource* resource;
};

} // namespace zt::orvex::flow::internal
