#pragma once

#include <zt_orvex/support/StringPool.h>

#include <deque>
#include <string>
#include <string_view>

namespace ostrel {

/// Short ASCII texts in UTF-16, such as the spellings of operators, each widened once.
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
    std::deque<std::u16string> widened; // a deque: texts never move
};

} // namespace ostrel
