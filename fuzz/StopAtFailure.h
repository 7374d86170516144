#pragma once

#include <gtest/gtest.h>

namespace zt::orvex::fuzz {

/// Makes a failed expectation of GoogleTest end the program, so that a fuzzer can use what tests are
/// made of. Call it first for each input.
inline void stopAtFailure() {
    static const bool isSet = (GTEST_FLAG_SET(break_on_failure, true), true);
    static_cast<void>(isSet);
}

} // namespace zt::orvex::fuzz
