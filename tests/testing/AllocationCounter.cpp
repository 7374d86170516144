#include "testing/AllocationCounter.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t UNLIMITED = std::numeric_limits<std::size_t>::max();

thread_local zt::orvex::testing::AllocationCounts counts{};
thread_local std::size_t allowedAllocations = UNLIMITED;
thread_local bool onlyOneFails = false;
thread_local bool limitWasReached = false;
thread_local bool noThrowFails = false;

constexpr std::size_t USUAL_ALIGNMENT = alignof(std::max_align_t);

#if defined(_WIN32)

void* allocateAligned(std::size_t size, std::size_t alignment) {
    return _aligned_malloc(size, alignment);
}
void freeAligned(void* memory) { _aligned_free(memory); }

#else

// std::aligned_alloc takes whole multiples of the alignment.
void* allocateAligned(std::size_t size, std::size_t alignment) {
    return std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
}
void freeAligned(void* memory) { std::free(memory); }

#endif

/// Null if the limit is reached or memory is.
void* allocate(std::size_t size, std::size_t alignment = USUAL_ALIGNMENT) noexcept {
    if (allowedAllocations == 0) {
        limitWasReached = true;
        if (onlyOneFails) allowedAllocations = UNLIMITED;
        return nullptr;
    }
    void* const memory = alignment > USUAL_ALIGNMENT ? allocateAligned(size, alignment)
                                                     : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) return nullptr;
    if (allowedAllocations != UNLIMITED) --allowedAllocations;
    ++counts.allocations;
    counts.bytes += size;
    return memory;
}

void* orThrow(void* memory) {
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void release(void* memory, std::size_t alignment = USUAL_ALIGNMENT) noexcept {
    if (memory == nullptr) return;
    ++counts.releases;
    alignment > USUAL_ALIGNMENT ? freeAligned(memory) : std::free(memory);
}

constexpr std::size_t bytesOf(std::align_val_t alignment) {
    return static_cast<std::size_t>(alignment);
}

} // namespace

// All replaceable forms, and in a file of their own. The forms that the runtime or a sanitizer
// would supply needn't forward to these; and a compiler that could inline them would see `new`
// paired with `free`, and warn.

void* operator new(std::size_t size) { return orThrow(allocate(size)); }
void* operator new[](std::size_t size) { return orThrow(allocate(size)); }
void* operator new(std::size_t size, std::align_val_t alignment) {
    return orThrow(allocate(size, bytesOf(alignment)));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return orThrow(allocate(size, bytesOf(alignment)));
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return noThrowFails ? nullptr : allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return noThrowFails ? nullptr : allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return noThrowFails ? nullptr : allocate(size, bytesOf(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return noThrowFails ? nullptr : allocate(size, bytesOf(alignment));
}

void operator delete(void* memory) noexcept { release(memory); }
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }
void operator delete(void* memory, std::align_val_t alignment) noexcept {
    release(memory, bytesOf(alignment));
}
void operator delete[](void* memory, std::align_val_t alignment) noexcept {
    release(memory, bytesOf(alignment));
}
void operator delete(void* memory, std::size_t, std::align_val_t alignment) noexcept {
    release(memory, bytesOf(alignment));
}
void operator delete[](void* memory, std::size_t, std::align_val_t alignment) noexcept {
    release(memory, bytesOf(alignment));
}
void operator delete(void* memory, const std::nothrow_t&) noexcept { release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { release(memory); }
void operator delete(void* memory, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    release(memory, bytesOf(alignment));
}
void operator delete[](void* memory, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    release(memory, bytesOf(alignment));
}

namespace zt::orvex::testing {

AllocationCounts allocationCounts() { return counts; }

AllocationLimit::AllocationLimit(std::size_t allowed, Failing failing) {
    limitWasReached = false;
    onlyOneFails = failing == Failing::TheNext;
    allowedAllocations = allowed;
}
AllocationLimit::~AllocationLimit() { allowedAllocations = UNLIMITED; }

bool AllocationLimit::wasReached() const { return limitWasReached; }

NoThrowAllocationFailure::NoThrowAllocationFailure() { noThrowFails = true; }
NoThrowAllocationFailure::~NoThrowAllocationFailure() { noThrowFails = false; }

} // namespace zt::orvex::testing
