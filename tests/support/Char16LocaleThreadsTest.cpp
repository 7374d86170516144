// A program of its own: nothing else may have used the locale in this process. Built with
// ThreadSanitizer, it fails if using the locale for the first time changes it.
#include <zt_orvex/support/Char16Locale.h>

#include <gtest/gtest.h>

#include <atomic>
#include <sstream>
#include <string>
#include <thread>

namespace zt::orvex {
namespace {

std::u16string print(double value) {
    std::basic_ostringstream<char16_t> stream;
    stream.imbue(getChar16Locale());
    stream << value << u' ' << 42 << u' ' << true;
    return stream.str();
}

/// Two threads print one after the other without synchronisation: the relaxed flag fixes the order,
/// but doesn't make the first thread's writes visible to the second.
TEST(Char16LocaleThreads, FirstNumbersOfTwoThreadsDontRace) {
    std::atomic<bool> isFirstDone{false};
    std::u16string first;
    std::u16string second;
    std::thread firstThread([&] {
        first = print(2.5);
        isFirstDone.store(true, std::memory_order_relaxed);
    });
    std::thread secondThread([&] {
        while (!isFirstDone.load(std::memory_order_relaxed))
            std::this_thread::yield();
        second = print(-0.125);
    });
    firstThread.join();
    secondThread.join();
    EXPECT_EQ(first, u"2.5 42 1");
    EXPECT_EQ(second, u"-0.125 42 1");
}

} // namespace
} // namespace zt::orvex
