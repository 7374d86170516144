#include <zt_orvex/support/Quote.h>

#include "testing/Emulated.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string>

namespace zt::orvex {
namespace {

/// 2^31 opening brackets and a quoted run, terminated: 4 GiB of address space that show the same
/// 64 MiB of memory again and again.
class HugeText {
public:
    static constexpr std::size_t BRACKETS = std::size_t{1} << 31;

    HugeText() {
        const int file = memfd_create("brackets", 0);
        if (file == -1 || ftruncate(file, CHUNK_BYTES) != 0) return;
        void* const room = mmap(nullptr, BYTES, PROT_READ | PROT_WRITE,
                                MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (room == MAP_FAILED) return;
        units = static_cast<char16_t*>(room);
        for (std::size_t at = 0; at < BRACKETS; at += CHUNK_UNITS)
            mmap(units + at, CHUNK_BYTES, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0);
        std::fill_n(units, CHUNK_UNITS, u'(');
        tail().copy(units + BRACKETS, tail().size());
        close(file);
    }
    ~HugeText() {
        if (units != nullptr) munmap(units, BYTES);
    }
    HugeText(const HugeText&) = delete;
    HugeText& operator=(const HugeText&) = delete;

    static std::u16string tail() { return u"'x'"; }

    char16_t* units = nullptr;

private:
    static constexpr std::size_t CHUNK_BYTES = std::size_t{64} << 20;
    static constexpr std::size_t CHUNK_UNITS = CHUNK_BYTES / sizeof(char16_t);
    static constexpr std::size_t BYTES = BRACKETS * sizeof(char16_t) + 4096;
};

TEST(UnquoteHuge, MoreBracketsThanFitIn31BitsProtectAQuote) {
    if (ZT_ORVEX_TEST_SANITIZED != 0) GTEST_SKIP() << "reads 4 GiB, which sanitizers make slow";
    if (testing::IS_EMULATED) GTEST_SKIP() << "reads 4 GiB, which takes an emulator minutes";
    HugeText text;
    ASSERT_NE(text.units, nullptr);
    const std::size_t length = HugeText::BRACKETS + HugeText::tail().size();
    EXPECT_EQ(unquote(text.units, length, u'\''), length);
    EXPECT_EQ(std::u16string(text.units + HugeText::BRACKETS), HugeText::tail());
}

} // namespace
} // namespace zt::orvex
