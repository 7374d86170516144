#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

namespace zt::orvex::testing {

/// Calls `work(number)` on `count` threads, numbered from 0, at the same time, and returns what
/// each of them returned.
///
/// The threads wait for one another on a relaxed counter, which orders no memory accesses:
/// ThreadSanitizer sees no synchronisation between the threads but what `work` does by itself.
template <typename Work>
std::vector<std::string> runTogether(std::size_t count, const Work& work) {
    std::vector<std::string> results(count);
    std::atomic<std::size_t> arrived{0};
    std::vector<std::thread> threads;
    for (std::size_t number = 0; number < count; ++number) {
        threads.emplace_back([&, number] {
            arrived.fetch_add(1, std::memory_order_relaxed);
            while (arrived.load(std::memory_order_relaxed) < count)
                std::this_thread::yield();
            results[number] = work(number);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    return results;
}

} // namespace zt::orvex::testing
