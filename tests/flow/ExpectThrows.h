#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <typeinfo>

namespace zt::orvex::testing {

/// Expects `call` to throw an `Exception`, not a type derived from it, that says exactly `text`.
template <typename Exception, typename Call>
void expectThrows(Call call, const std::string& text) {
    try {
        call();
    } catch (const std::exception& failure) {
        EXPECT_EQ(std::string(failure.what()), text);
        EXPECT_STREQ(typeid(failure).name(), typeid(Exception).name());
        return;
    }
    ADD_FAILURE() << "nothing was thrown, expected: " << text;
}

} // namespace zt::orvex::testing
