#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <array>
#include <string>
#include <unordered_set>

namespace zt::orvex::flow::internal {

/// Keeps one copy of each text that it is given.
///
/// Nearly all variables of a system share one name, and nearly all constants another. A string for
/// each of them would make the allocator the largest part of an analysis.
class SharedNames {
public:
    SharedNames() = default;
    SharedNames(const SharedNames&) = delete;
    SharedNames& operator=(const SharedNames&) = delete;

    /// A copy of `name` that lasts as long as this object, the same one for equal texts. Cost: a
    /// comparison or two for the two texts used last, else a hash lookup.
    const std::string& keep(const std::string& name) {
        for (const std::string* known : recent) {
            if (known != nullptr && *known == name) return *known;
        }
        recent = {&*names.insert(name).first, recent.front()};
        return *recent.front();
    }

private:
    std::unordered_set<std::string> names;
    std::array<const std::string*, 2> recent = {};
};

} // namespace zt::orvex::flow::internal
