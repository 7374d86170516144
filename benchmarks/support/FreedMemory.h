#pragma once

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace zt::orvex::benchmarks {

/// Has the allocator keep what is freed.
///
/// glibc gives the end of the heap back to the system when much of it is free, and fetches it anew,
/// page by page, when it is needed again. Whether it does depends on the largest piece that the
/// process has ever freed, and on what else lies at the end: so a row would depend on the rows that
/// ran before it. The rows named "in_fresh_memory" show what fetching costs.
inline void keepFreedMemory() {
#ifdef __GLIBC__
    constexpr int MIB = 1 << 20;
    mallopt(M_TRIM_THRESHOLD, 1024 * MIB);
    mallopt(M_MMAP_THRESHOLD, 32 * MIB); // the most that it allows
#endif
}

/// Gives all that is free back to the system.
inline void giveFreedMemoryBack() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace zt::orvex::benchmarks
