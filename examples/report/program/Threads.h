#pragma once

#include <cstddef>

namespace ostrel::report {

/// The number of processors that the program may use.
std::size_t processorCount();

/// The stack of a thread that parses and analyses, in bytes: that of the first thread, since the
/// limits on nesting are made for it.
std::size_t threadStackSize();

/// How many of `wanted` threads can run beside the calling one. The scheduler's threads start when
/// it has work for them, and one that can't ends the program, so this starts as many and lets them
/// end. Where the address space is limited there are none: by the time that a thread starts, the
/// others may have used up what it needs.
std::size_t countPossibleThreads(std::size_t wanted);

} // namespace ostrel::report
