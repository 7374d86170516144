#include "report/program/Threads.h"

#include <oneapi/tbb/info.h>

#include <algorithm>
#include <mutex>
#include <optional>
#include <pthread.h>
#include <vector>
#if !defined(_WIN32)
#include <sys/resource.h>
#endif

namespace ostrel::report {

namespace {

#if defined(_WIN32)

// A job may limit the memory of its processes, but not their address space.
std::optional<std::size_t> limitOfAddressSpace() { return {}; }

// What the programs are linked with.
std::optional<std::size_t> limitOfStack() { return {}; }

#else

std::optional<std::size_t> limitOf(decltype(RLIMIT_AS) resource) {
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return {};
    return static_cast<std::size_t>(limit.rlim_cur);
}

std::optional<std::size_t> limitOfAddressSpace() { return limitOf(RLIMIT_AS); }
std::optional<std::size_t> limitOfStack() { return limitOf(RLIMIT_STACK); }

#endif

/// The body of a thread that lives until the mutex is free.
void* waitFor(void* mutex) {
    const std::lock_guard<std::mutex> lock(*static_cast<std::mutex*>(mutex));
    return nullptr;
}

} // namespace

std::size_t processorCount() {
    return static_cast<std::size_t>(std::max(oneapi::tbb::info::default_concurrency(), 1));
}

std::size_t threadStackSize() {
    constexpr std::size_t USUAL = std::size_t{8} << 20;
    constexpr std::size_t LARGEST = std::size_t{64} << 20; // for the address space of many threads
    return std::clamp(limitOfStack().value_or(USUAL), USUAL, LARGEST);
}

std::size_t countPossibleThreads(std::size_t wanted) {
    if (limitOfAddressSpace()) return 0;
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0) return 0;
    pthread_attr_setstacksize(&attributes, threadStackSize());
    std::vector<pthread_t> threads(wanted);
    std::size_t started = 0;
    std::mutex mutex;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        while (started < wanted &&
               pthread_create(&threads[started], &attributes, waitFor, &mutex) == 0)
            ++started;
    }
    for (std::size_t i = 0; i < started; ++i)
        pthread_join(threads[i], nullptr);
    pthread_attr_destroy(&attributes);
    return started;
}

} // namespace ostrel::report
