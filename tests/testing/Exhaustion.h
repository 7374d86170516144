#pragma once

#include "testing/AllocationCounter.h"

#include <gtest/gtest.h>

#if !defined(_WIN32)
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <cstddef>
#include <exception>
#include <ios>
#include <new>
#include <optional>
#include <string>

// What happens when memory runs out, tried at every allocation of an operation in turn: that one
// alone fails, or it and all later ones. Include it where AllocationCounter.cpp is linked.

namespace zt::orvex::testing {

/// Whether an exception is the one by which an operation says that memory ran out. A string stream
/// of libc++ catches std::bad_alloc and fails, which then is an exception of its own.
inline bool saysThatMemoryRanOut(const std::exception& exception) {
#if defined(_LIBCPP_VERSION)
    if (dynamic_cast<const std::ios_base::failure*>(&exception) != nullptr) return true;
#endif
    return dynamic_cast<const std::bad_alloc*>(&exception) != nullptr;
}

/// Calls `trial(allowed, failing)` for 0, 1, 2, ... allowed allocations, until the trial says that
/// no allocation was left to fail.
template <typename Trial>
void failEachAllocation(Trial trial) {
    constexpr std::size_t TOO_MANY = 200'000;
    for (const Failing failing : {Failing::TheNext, Failing::AllFromThere}) {
        std::size_t allowed = 0;
        while (trial(allowed, failing)) {
            ++allowed;
            ASSERT_LT(allowed, TOO_MANY);
            ASSERT_FALSE(::testing::Test::HasFailure())
                << "with " << allowed - 1 << " allocations and then "
                << (failing == Failing::TheNext ? "one failure" : "none");
        }
    }
}

/// Requires of `call`, which returns something comparable, at each failure: it says that memory ran
/// out, or its result is right; it leaks nothing; and the same call afterwards is right.
template <typename Call>
void expectRightOrThrow(Call call) {
    const auto expected = call(); // also makes what is made on first use
    failEachAllocation([&](std::size_t allowed, Failing failing) {
        const std::size_t living = allocationCounts().living();
        bool isRightOrThrew = true;
        bool wasReached = false;
        {
            const AllocationLimit limit(allowed, failing);
            try {
                const auto result = call();
                isRightOrThrew = result == expected;
            } catch (const std::exception& exception) {
                isRightOrThrew = limit.wasReached() && saysThatMemoryRanOut(exception);
            }
            wasReached = limit.wasReached();
        }
        EXPECT_TRUE(isRightOrThrew);
        EXPECT_EQ(allocationCounts().living(), living);
        EXPECT_TRUE(call() == expected) << "afterwards";
        return wasReached;
    });
}

/// As `expectRightOrThrow`, but each trial runs in a process of its own, where nothing that is made
/// on first use has been made. So this process must not have used what `call` uses.
template <typename Call>
void expectRightOrThrowAtFirstUse([[maybe_unused]] Call call) {
#if defined(_WIN32)
    GTEST_SKIP() << "no fork, which makes a use the first one";
#else
    enum Outcome { NOT_REACHED, REACHED, WRONG, WRONG_AFTERWARDS, WRONG_EXCEPTION };
    const auto tryHere = [&](std::size_t allowed, Failing failing) {
        std::optional<decltype(call())> result;
        bool wasReached = false;
        {
            const AllocationLimit limit(allowed, failing);
            try {
                result.emplace(call());
            } catch (const std::exception& exception) {
                if (!saysThatMemoryRanOut(exception)) return WRONG_EXCEPTION;
            }
            wasReached = limit.wasReached();
        }
        if (!result && !wasReached) return WRONG_EXCEPTION;
        const auto expected = call();
        if (result && !(*result == expected)) return WRONG;
        if (!(call() == expected)) return WRONG_AFTERWARDS;
        return wasReached ? REACHED : NOT_REACHED;
    };
    failEachAllocation([&](std::size_t allowed, Failing failing) {
        const pid_t child = fork();
        if (child == 0) _exit(tryHere(allowed, failing));
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status);
        if (!WIFEXITED(status)) return false;
        EXPECT_LE(WEXITSTATUS(status), REACHED);
        return WEXITSTATUS(status) == REACHED;
    });
#endif
}

/// Requires of `operate(state)`, at each failure: it says that memory ran out or succeeds; and if it
/// threw, the same call succeeds afterwards, and `show(state)` then is what it always is after
/// success. `make` makes a state, by pointer; `isUntouched(state)` judges a state after a failure.
template <typename Make, typename Operate, typename Show, typename IsUntouched>
void expectRetryToWork(Make make, Operate operate, Show show, IsUntouched isUntouched) {
    const auto done = make();
    operate(*done);
    const auto expected = show(*done);
    failEachAllocation([&](std::size_t allowed, Failing failing) {
        const std::size_t living = allocationCounts().living();
        bool hasThrown = false;
        bool wasReached = false;
        {
            const auto state = make();
            {
                const AllocationLimit limit(allowed, failing);
                try {
                    operate(*state);
                } catch (const std::exception& exception) {
                    EXPECT_TRUE(saysThatMemoryRanOut(exception)) << exception.what();
                    hasThrown = true;
                }
                wasReached = limit.wasReached();
            }
            EXPECT_TRUE(!hasThrown || wasReached);
            if (hasThrown) {
                EXPECT_TRUE(isUntouched(*state));
                operate(*state);
            }
            EXPECT_TRUE(show(*state) == expected);
        }
        EXPECT_EQ(allocationCounts().living(), living);
        return wasReached;
    });
}

/// For a `show` that changes the state: a trace of the failed call must show after the retry.
template <typename Make, typename Operate, typename Show>
void expectNoTraceInTheEnd(Make make, Operate operate, Show show) {
    expectRetryToWork(make, operate, show, [](auto&) { return true; });
}

/// Requires in addition that `show(state)` is the same before the call and after its failure.
template <typename Make, typename Operate, typename Show>
void expectAllOrNothing(Make make, Operate operate, Show show) {
    const auto untouched = make();
    const auto before = show(*untouched);
    expectRetryToWork(make, operate, show, [&](auto& state) { return show(state) == before; });
}

} // namespace zt::orvex::testing
