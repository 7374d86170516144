// Looking up short names as a lexer does, from views into one text: ours against the obvious hash
// map, which constructs a string for each look-up.

#include "support/PerItem.h"
#include "support/Random.h"
#include "support/Register.h"
#include "testing/Widen.h"

#include <zt_orvex/support/StringPool.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zt::orvex::benchmarks {
namespace {

/// Distinct names of at most 16 bytes.
std::vector<std::string> makeNames(std::size_t count) {
    static constexpr const char* PARTS[] = {"x",   "y",    "idx", "count", "tmp", "node",
                                            "row", "col",  "num", "value", "out", "in",
                                            "k",   "data", "sum", "max"};
    std::vector<std::string> names;
    Random random(31);
    for (std::size_t i = 0; names.size() < count; ++i) {
        std::string name = PARTS[random.below(16)];
        if (random.below(2) != 0) name += PARTS[random.below(16)];
        name += std::to_string(i);
        if (name.size() <= 16) names.push_back(name);
    }
    return names;
}

/// Names of the list in random order, concatenated in one text.
class Queries {
public:
    explicit Queries(const std::vector<std::string>& names) {
        const std::size_t count = std::min<std::size_t>(names.size() * 4, 1u << 15);
        std::vector<std::size_t> starts;
        std::vector<std::size_t> sizes;
        Random random(17);
        for (std::size_t i = 0; i < count; ++i) {
            const std::string& name = names[random.below(static_cast<std::uint32_t>(names.size()))];
            starts.push_back(text.size());
            sizes.push_back(name.size());
            text += name;
        }
        for (std::size_t i = 0; i < count; ++i)
            views.push_back(std::string_view(text).substr(starts[i], sizes[i]));
    }
    Queries(const Queries&) = delete;
    Queries& operator=(const Queries&) = delete;

    std::string text;
    std::vector<std::string_view> views;
};

/// `find` returns the size of the value under a name; each value is the name in UTF-16.
template <typename Find>
void measure(benchmark::State& state, const Queries& queries, Find find) {
    std::size_t size = 0;
    for (auto _ : state) {
        size = 0;
        for (const std::string_view name : queries.views)
            size += find(name);
        benchmark::DoNotOptimize(size);
    }
    if (size != queries.text.size()) state.SkipWithError("wrong answer");
    reportPerItem(state, static_cast<double>(queries.views.size()));
}

std::vector<std::u16string> widenAll(const std::vector<std::string>& names) {
    std::vector<std::u16string> wide;
    for (const std::string& name : names)
        wide.push_back(testing::widen(name));
    return wide;
}

void lookUpOurs(benchmark::State& state, std::size_t count) {
    const std::vector<std::string> names = makeNames(count);
    const std::vector<std::u16string> values = widenAll(names);
    const Queries queries(names);
    zt::orvex::internal::StringPool pool;
    for (std::size_t i = 0; i < names.size(); ++i)
        pool.poolIfShort(names[i], values[i]);
    measure(state, queries, [&](std::string_view name) -> std::size_t {
        const auto found = pool.lookup(name);
        return found ? found->size() : 0;
    });
}

void lookUpStrings(benchmark::State& state, std::size_t count) {
    const std::vector<std::string> names = makeNames(count);
    const std::vector<std::u16string> values = widenAll(names);
    const Queries queries(names);
    std::unordered_map<std::string, std::u16string_view> map;
    map.reserve(count);
    for (std::size_t i = 0; i < names.size(); ++i)
        map.emplace(names[i], values[i]);
    measure(state, queries, [&](std::string_view name) -> std::size_t {
        const auto found = map.find(std::string(name));
        return found == map.end() ? 0 : found->second.size();
    });
}

[[maybe_unused]] const bool registered = [] {
    for (const std::size_t count : {std::size_t{100}, std::size_t{10000}}) {
        const std::string end = "/n:" + std::to_string(count);
        registerRow("string_pool/ours" + end,
                    [=](benchmark::State& state) { lookUpOurs(state, count); });
        registerRow("string_pool/std_unordered_map_string" + end,
                    [=](benchmark::State& state) { lookUpStrings(state, count); });
    }
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
