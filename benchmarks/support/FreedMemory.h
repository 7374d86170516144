#pragma once

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace zt::orvex::benchmarks {

/// Makes the allocator keep freed memory.
///
/// By default, glibc returns the end of the heap to the system if much of it is free, and then
/// faults it in again page by page. Whether it does depends on the largest block that the process
/// has ever freed and on what else is at the end, so a row would depend on the rows that ran before
/// it. The rows named "in_fresh_memory" show what the page faults cost.
inline void keepFreedMemory() {
#ifdef __GLIBC__
    constexpr int MIB = 1 << 20;
    mallopt(M_TRIM_THRESHOLD, 1024 * MIB);
    mallopt(M_MMAP_THRESHOLD, 32 * MIB); // the maximum
#endif
}

/// Returns all free memory to the system.
inline void giveFreedMemoryBack() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace zt::orvex::benchmarks
