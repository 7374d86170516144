#pragma once

#include <ctime>

namespace zt::orvex::benchmarks {

/// Seconds of processor time that this thread has taken: other work on the machine disturbs it
/// less than it does the time on the wall.
inline double threadSeconds() {
    std::timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

} // namespace zt::orvex::benchmarks
