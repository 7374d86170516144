#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>

// Sanitizers slow random tests down by an order of magnitude, so their builds run fewer rounds.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ZT_ORVEX_TEST_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) ||                         \
    __has_feature(undefined_behavior_sanitizer)
#define ZT_ORVEX_TEST_SANITIZED 1
#endif
#endif
#if !defined(ZT_ORVEX_TEST_SANITIZED)
#define ZT_ORVEX_TEST_SANITIZED 0
#endif

namespace zt::orvex::testing {

/// `full` in an ordinary build, a tenth of it (at least one) under a sanitizer.
constexpr std::size_t rounds(std::size_t full) {
    return ZT_ORVEX_TEST_SANITIZED == 0 ? full : full / 10 + 1;
}

/// The number of rounds that ZT_ORVEX_TEST_ROUNDS in the environment asks for, else `rounds(usual)`.
inline std::size_t roundsToRun(std::size_t usual) {
    const char* text = std::getenv("ZT_ORVEX_TEST_ROUNDS");
    return text != nullptr ? std::strtoull(text, nullptr, 0) : rounds(usual);
}

/// The seed of this run: ZT_ORVEX_TEST_SEED from the environment, or a fixed number.
inline std::uint64_t getSeed() {
    const char* text = std::getenv("ZT_ORVEX_TEST_SEED");
    return text != nullptr ? std::strtoull(text, nullptr, 0) : 20240229;
}

/// Random numbers that are the same on every platform, unlike the distributions of the standard
/// library.
///
/// Print the seed with a failure, so that the run can be repeated:
///
///   Random random;
///   SCOPED_TRACE(random.describe());
///   const std::size_t size = random.below(100);
class Random {
public:
    explicit Random(std::uint64_t seedToUse = getSeed()) : seed(seedToUse), engine(seedToUse) {}

    /// Draws the numbers from the bytes, which must outlive it, so that the input of a fuzzer decides
    /// what is random. A number takes as few bytes as its limit needs. After the last byte all
    /// numbers are 0.
    Random(const std::uint8_t* bytes, std::size_t size)
        : seed(0), drawsFromBytes(true), nextByte(bytes), endOfBytes(bytes + size) {}

    std::uint64_t next() { return drawsFromBytes ? take(8) : engine(); }

    /// Below `limit`, which must not be 0. The bias is at most `limit` / 2^64, except from bytes.
    std::size_t below(std::size_t limit) {
        if (!drawsFromBytes) return static_cast<std::size_t>(engine() % limit);
        return static_cast<std::size_t>(take(limit <= 0x100     ? 1
                                             : limit <= 0x10000 ? 2
                                                                : 8) %
                                        limit);
    }

    /// Whether numbers come from bytes and all bytes have been drawn.
    bool isUsedUp() const { return drawsFromBytes && nextByte == endOfBytes; }

    /// From `first` to `last`, inclusive.
    std::size_t between(std::size_t first, std::size_t last) {
        return first + below(last - first + 1);
    }

    /// True with probability 1 / `n`.
    bool oneIn(std::size_t n) { return below(n) == 0; }

    /// An element of a container or array, which must not be empty.
    template <typename Range>
    decltype(auto) pick(const Range& range) {
        const auto size = static_cast<std::size_t>(std::size(range));
        return *std::next(std::begin(range), static_cast<std::ptrdiff_t>(below(size)));
    }

    /// The text to print with a failure.
    std::string describe() const { return "ZT_ORVEX_TEST_SEED=" + std::to_string(seed); }

private:
    std::uint64_t take(int count) {
        std::uint64_t number = 0;
        for (; count > 0 && nextByte != endOfBytes; --count)
            number = number << 8 | *nextByte++;
        return number;
    }

    std::uint64_t seed;
    std::mt19937_64 engine;
    bool drawsFromBytes = false;
    const std::uint8_t* nextByte = nullptr;
    const std::uint8_t* endOfBytes = nullptr;
};

} // namespace zt::orvex::testing
