// Input: commands for a string pool and the keys that they name. The pool is compared with a map of
// keys without the zero bytes at their end; the keys are compared as SmallStrings, too.
#include "Require.h"
#include "support/StringPoolProbe.h"
#include "testing/Random.h"

#include <zt_orvex/support/SmallString.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>

using namespace zt::orvex;
using namespace zt::orvex::internal;
using fuzz::require;
using testing::Random;

namespace {

std::string keyFrom(Random& random) {
    std::string key;
    for (std::size_t left = random.below(20); left > 0; --left) {
        const std::size_t byte = random.below(256);
        key.push_back(byte < 128 ? "ab\0z"[byte % 4] : static_cast<char>(byte));
    }
    return key;
}

std::string withoutZerosAtEnd(std::string key) {
    while (!key.empty() && key.back() == '\0')
        key.pop_back();
    return key;
}

std::uint64_t plainHash(std::string key) {
    key.resize(16);
    std::uint64_t words[2] = {};
    for (std::size_t i = 0; i < 16; ++i)
        words[i / 8] |= std::uint64_t{static_cast<unsigned char>(key[i])} << 8 * (i % 8);
    return words[1] * 29 + words[0];
}

void checkSmallStrings(const std::string& a, const std::string& b) {
    if (a.size() > SmallString::MAX_LENGTH || b.size() > SmallString::MAX_LENGTH) return;
    const SmallString first(a);
    SmallString second(b);
    require(first.hashCode() == plainHash(a), "the hash of the two words");
    require(first.str() == a.substr(0, a.find('\0')), "the text up to the first zero");
    require((first == second) == (withoutZerosAtEnd(a) == withoutZerosAtEnd(b)), "equal");
    require((first != second) != (first == second), "or unequal");
    second = first;
    SmallString third(std::move(second));
    require(third == first, "a copy is equal");
    third = SmallString(b);
    const SmallString fourth(third);
    require(fourth == SmallString(b), "and so is what is assigned");
}

class Game {
public:
    explicit Game(Random& from) : random(from) {}

    void step() {
        const std::string key = keyFrom(random);
        const bool isShort = key.size() <= SmallString::MAX_LENGTH;
        if (random.oneIn(2)) {
            values.emplace_back(1 + random.below(3), static_cast<char16_t>(random.below(0x10000)));
            pool.poolIfShort(key, values.back());
            if (isShort) {
                plain[withoutZerosAtEnd(key)] = values.back();
                pooled += 16;
            }
        } else {
            look(key, isShort);
        }
        check();
        checkSmallStrings(key, last);
        last = key;
    }

private:
    void look(const std::string& key, bool isShort) {
        const auto found = pool.lookup(key);
        const auto expected = isShort ? plain.find(withoutZerosAtEnd(key)) : plain.end();
        require(found.has_value() == (expected != plain.end()), "a key that was stored");
        if (isShort) ++lookups;
        if (!found) return;
        require(std::u16string_view(*found) == expected->second, "the value stored last");
        ++hits;
        saved += 2 * (key.size() + 1);
    }

    void check() const {
        const StringPoolProbe probe(pool);
        require(probe.entries() == plain.size() && probe.lookups() == lookups &&
                    probe.hits() == hits && probe.pooled() == pooled && probe.saved() == saved,
                "the counters");
    }

    Random& random;
    StringPool pool;
    std::deque<std::u16string> values; // the pool has views of them
    std::map<std::string, std::u16string> plain;
    std::string last;
    std::uint64_t lookups = 0;
    std::uint64_t hits = 0;
    std::uint64_t pooled = 0;
    std::uint64_t saved = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Random random(data, size);
    Game game(random);
    while (!random.isUsedUp())
        game.step();
    return 0;
}
