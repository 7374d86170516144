#pragma once

#include "report/program/Threads.h"

#include <oneapi/tbb/global_control.h>
#include <oneapi/tbb/parallel_pipeline.h>
#include <oneapi/tbb/task_arena.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <mutex>
#include <utility>

namespace ostrel::report {

/// The first exception of several threads.
class FirstException {
public:
    /// Calls a function, and keeps what it throws. Returns whether it threw nothing.
    template <typename Function>
    bool guard(const Function& function) {
        try {
            function();
            return true;
        } catch (...) {
            const std::lock_guard<std::mutex> lock(mutex);
            if (!first) first = std::current_exception();
            return false;
        }
    }

    void rethrow() const {
        if (first) std::rethrow_exception(first);
    }

private:
    std::mutex mutex;
    std::exception_ptr first;
};

/// Calls `produce(i)` for each `i` below `count`, up to `jobs` at the same time, and `consume` with
/// the results, one at a time and in the order of `i`, until it returns false. A result needs a
/// default constructor.
///
/// The number of results that wait is bounded, so a slow one doesn't fill the memory with those that
/// follow it. With one job, or where no thread can be started, everything happens in the calling
/// thread. An exception of either function ends the run and reaches the caller.
template <typename Produce, typename Consume>
void inOrder(std::size_t count, std::size_t jobs, const Produce& produce, const Consume& consume) {
    namespace tbb = oneapi::tbb;
    using Result = decltype(produce(std::size_t{}));
    jobs = std::min(jobs, count);
    if (jobs > 1) jobs = 1 + countPossibleThreads(jobs - 1);
    if (jobs <= 1) {
        for (std::size_t i = 0; i < count && consume(produce(i)); ++i) {
        }
        return;
    }

    // Of the threads that produce, one may be far ahead of another.
    const std::size_t maxWaiting = 4 * jobs;
    const tbb::global_control threads(tbb::global_control::max_allowed_parallelism, jobs);
    const tbb::global_control stacks(tbb::global_control::thread_stack_size, threadStackSize());
    std::size_t next = 0;
    std::atomic<bool> isWanted = true;
    FirstException exception;
    const auto number = [&](tbb::flow_control& flow) {
        if (next == count || !isWanted) flow.stop();
        return next++;
    };
    const auto produceGuarded = [&](std::size_t i) {
        Result result{};
        if (!exception.guard([&] { result = produce(i); })) isWanted = false;
        return result;
    };
    const auto consumeGuarded = [&](Result result) {
        if (!isWanted) return;
        const bool isFine = exception.guard([&] {
            if (!consume(std::move(result))) isWanted = false;
        });
        if (!isFine) isWanted = false;
    };
    tbb::task_arena arena(static_cast<int>(jobs));
    arena.execute([&] {
        tbb::parallel_pipeline(
            maxWaiting,
            tbb::make_filter<void, std::size_t>(tbb::filter_mode::serial_in_order, number) &
                tbb::make_filter<std::size_t, Result>(tbb::filter_mode::parallel, produceGuarded) &
                tbb::make_filter<Result, void>(tbb::filter_mode::serial_in_order, consumeGuarded));
    });
    exception.rethrow();
}

} // namespace ostrel::report
