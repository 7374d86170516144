#pragma once

#include <zt_orvex/support/StringPool.h>

#include <deque>
#include <string>
#include <string_view>

namespace ostrel {

/// Converts short ASCII texts, such as the spellings of operators, to UTF-16, each only once.
///
/// The views live as long as this object.
class WideNames {
public:
    std::u16string_view of(const std::string& ascii) {
        const auto known = pool.lookup(ascii);
        if (known) return *known;
        widened.emplace_back(ascii.begin(), ascii.end());
        pool.poolIfShort(ascii, widened.back());
        return widened.back();
    }

private:
    zt::orvex::internal::StringPool pool;
    std::deque<std::u16string> widened; // a deque, because its elements never move
};

} // namespace ostrel
