#include "Cost.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <new>

namespace {

std::size_t blocks = 0;
std::size_t bytes = 0;
std::size_t inUse = 0;
std::size_t peak = 0;

} // namespace

// The compiler puts a call of this at the beginning of each basic block of the measured code.
extern "C" void __sanitizer_cov_trace_pc();
extern "C" void __sanitizer_cov_trace_pc() { ++blocks; }

void* operator new(std::size_t size) {
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    bytes += size;
    inUse += malloc_usable_size(memory);
    peak = std::max(peak, inUse);
    return memory;
}

void operator delete(void* memory) noexcept {
    inUse -= malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

// The linker (--wrap) turns the measured code's calls of `name` into calls of `__wrap_name`.
#define OSTREL_COUNTED(result, name, parameters, size, ...)                                        \
    extern "C" result __real_##name parameters;                                                    \
    extern "C" result __wrap_##name parameters;                                                    \
    extern "C" result __wrap_##name parameters {                                                   \
        bytes += size;                                                                             \
        return __real_##name(__VA_ARGS__);                                                         \
    }
OSTREL_COUNTED(void*, memcpy, (void* to, const void* from, std::size_t size), size, to, from, size)
OSTREL_COUNTED(void*, memmove, (void* to, const void* from, std::size_t size), size, to, from, size)
OSTREL_COUNTED(void*, memset, (void* to, int value, std::size_t size), size, to, value, size)
OSTREL_COUNTED(int, memcmp, (const void* a, const void* b, std::size_t size), size, a, b, size)
#undef OSTREL_COUNTED

extern "C" const void* __real_memchr(const void* in, int value, std::size_t size);
extern "C" const void* __wrap_memchr(const void* in, int value, std::size_t size);
extern "C" const void* __wrap_memchr(const void* in, int value, std::size_t size) {
    const void* const found = __real_memchr(in, value, size);
    bytes += found == nullptr ? size
                              : static_cast<std::size_t>(static_cast<const char*>(found) -
                                                         static_cast<const char*>(in));
    return found;
}

namespace ostrel::testing {

CostMeter::CostMeter() : stepsBefore(blocks), bytesBefore(bytes), inUseBefore(inUse) {
    peak = inUse;
}

Cost CostMeter::read() const {
    return {blocks - stepsBefore + (bytes - bytesBefore) / 16, peak - inUseBefore};
}

} // namespace ostrel::testing
