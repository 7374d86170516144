#pragma once

#include <cstdio>
#include <cstdlib>

namespace zt::orvex::fuzz {

/// Ends the program unless `condition` holds: what an engine takes for a finding. Not `assert`, since
/// fuzzers are built optimised.
inline void require(bool condition, const char* claim = "") {
    if (condition) return;
    std::fprintf(stderr, "doesn't hold: %s\n", claim);
    std::abort();
}

} // namespace zt::orvex::fuzz
