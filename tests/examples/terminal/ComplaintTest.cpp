#include "terminal/Complaint.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace ostrel::testing {

namespace {

/// What a `main` with that body returns and writes to standard error.
std::pair<int, std::string> guarded(int (*body)(int, char**)) {
    ::testing::internal::CaptureStderr();
    const int status = guardMain("tool", 2, body, 0, nullptr);
    return {status, ::testing::internal::GetCapturedStderr()};
}

TEST(Complaint, IsOneLineWithoutControls) {
    EXPECT_EQ(complaint("tool", "a\x1b[31m\nb"), "tool: a\xEF\xBF\xBD[31m\xEF\xBF\xBD"
                                                 "b\n");
}

TEST(Complaint, AboutUsageTellsWhereToReadMore) {
    EXPECT_EQ(usageComplaint("tool", "no such option"),
              "tool: no such option\nRun tool --help for more information.\n");
}

TEST(GuardMain, ReturnsTheStatusOfItsBody) {
    EXPECT_EQ(guarded([](int, char**) { return 1; }), std::make_pair(1, std::string()));
}

TEST(GuardMain, ComplainsOfExceptions) {
    const auto thrower = [](int, char**) -> int { throw std::runtime_error("\x1b"); };
    EXPECT_EQ(guarded(thrower), std::make_pair(2, std::string("tool: \xEF\xBF\xBD\n")));
}

TEST(GuardMain, ComplainsOfTooLittleMemory) {
    const auto thrower = [](int, char**) -> int { throw std::bad_alloc(); };
    EXPECT_EQ(guarded(thrower), std::make_pair(2, std::string("tool: not enough memory\n")));
}

} // namespace

} // namespace ostrel::testing
