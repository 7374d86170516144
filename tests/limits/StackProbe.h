#pragma once

#include <cstddef>
#include <functional>

namespace zt::orvex::testing {

constexpr std::size_t KIB = 1024;
constexpr std::size_t MIB = 1024 * KIB;

/// Whether `work` returns on a thread with a stack of that many bytes, in a child process: what
/// overflows the stack kills the child alone. Throws std::runtime_error if the child ends in any
/// other way, as by an exception.
bool fitsInStack(std::size_t bytes, const std::function<void()>& work);

/// The largest number for which `holds`, found by doubling and halving and at most `percent` of
/// itself too low; zero if it doesn't hold for 16. What holds for a number must hold for all smaller
/// ones. Tries nothing above `most`.
std::size_t largestThat(const std::function<bool(std::size_t)>& holds, std::size_t most,
                        std::size_t percent);

} // namespace zt::orvex::testing
