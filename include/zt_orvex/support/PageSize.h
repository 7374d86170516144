#pragma once

#include <zt_orvex/support/Export.h>

#include <cstddef>

namespace zt::orvex::internal {

/// The unit, in bytes, in which the system hands out address space; a power of two.
///
/// Deliberate: where that unit is larger than the processor's page, as on Windows, this is the
/// larger one. An allocator that asks for less wastes the rest.
///
/// Returns the same value on every call, from any thread; the system is asked when the library
/// loads.
ZT_ORVEX_EXPORT std::size_t getPageSize();

} // namespace zt::orvex::internal
