#include "support/HeapCounter.h"

#include <cerrno>
#include <cstddef>
#include <malloc.h>

// The names of glibc's own allocator.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}

namespace {

std::int64_t bytesInUse = 0;
std::int64_t mostBytesInUse = 0;
std::int64_t allocationsMade = 0;

constexpr std::int64_t HEADER = 8;

void* given(void* memory) {
    if (memory != nullptr) {
        bytesInUse += static_cast<std::int64_t>(malloc_usable_size(memory)) + HEADER;
        if (bytesInUse > mostBytesInUse) mostBytesInUse = bytesInUse;
        ++allocationsMade;
    }
    return memory;
}
void taken(void* memory) {
    if (memory != nullptr) {
        bytesInUse -= static_cast<std::int64_t>(malloc_usable_size(memory)) + HEADER;
    }
}

} // namespace

extern "C" {
void* malloc(std::size_t size) { return given(__libc_malloc(size)); }
void* calloc(std::size_t count, std::size_t size) { return given(__libc_calloc(count, size)); }
void* realloc(void* memory, std::size_t size) {
    taken(memory);
    return given(__libc_realloc(memory, size));
}
void* memalign(std::size_t alignment, std::size_t size) {
    return given(__libc_memalign(alignment, size));
}
void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return given(__libc_memalign(alignment, size));
}
int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    *memory = given(__libc_memalign(alignment, size));
    return *memory != nullptr ? 0 : ENOMEM;
}
void free(void* memory) {
    taken(memory);
    __libc_free(memory);
}
}

namespace zt::orvex::benchmarks {

HeapCounter::HeapCounter() : bytesAtStart(bytesInUse), allocationsAtStart(allocationsMade) {
    mostBytesInUse = bytesInUse;
}

std::int64_t HeapCounter::peakBytes() const { return mostBytesInUse - bytesAtStart; }
std::int64_t HeapCounter::allocations() const { return allocationsMade - allocationsAtStart; }

} // namespace zt::orvex::benchmarks
