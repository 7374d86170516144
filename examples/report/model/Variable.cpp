#include "report/model/Variable.h"

#include <array>
#include <cstddef>

namespace ostrel::report {

std::string_view identifierOf(Role role) {
    // In the order of `Role`.
    constexpr std::array<std::string_view, 10> IDENTIFIERS{
        "loopVariable", "readFromOutside", "notUsed",   "temporary", "output",
        "sliced",       "shared",          "reduction", "carried",   "updated"};
    return IDENTIFIERS[static_cast<std::size_t>(role)];
}

} // namespace ostrel::report
