#pragma once

#include <ctime>

namespace zt::orvex::benchmarks {

/// The processor time of this thread in seconds. Other load on the machine disturbs it less than
/// wall-clock time.
inline double threadSeconds() {
    std::timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

} // namespace zt::orvex::benchmarks
