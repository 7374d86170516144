#pragma once

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace zt::orvex::testing {

/// The types of integer literals, for typed tests.
using IntegerTypes = ::testing::Types<unsigned char, unsigned short, unsigned int,
                                      unsigned long long, signed char, short, int, long long>;

/// Names the tests by suffix.
struct SuffixOf {
    template <class Integer>
    static std::string GetName(int) {
        return (std::is_signed_v<Integer> ? "s" : "u") + std::to_string(8 * sizeof(Integer));
    }
};

} // namespace zt::orvex::testing
