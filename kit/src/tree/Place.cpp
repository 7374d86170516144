#include <zt_orvex_kit/tree/Place.h>

#include <zt_orvex_kit/tree/KindName.h>
#include <zt_orvex_kit/tree/Traversal.h>

#include <cstddef>
#include <sstream>

namespace zt::orvex::kit {

namespace {

constexpr std::size_t MOST_STEPS = 64;
constexpr std::size_t FIRST_STEPS = 32;
constexpr std::size_t LAST_STEPS = MOST_STEPS - FIRST_STEPS - 1;

} // namespace

std::string toText(const Place& place) {
    if (place.empty()) return "root";
    std::ostringstream text;
    for (std::size_t i = 0; i < place.size(); ++i) {
        if (i != 0) text << " > ";
        if (place.size() > MOST_STEPS && i == FIRST_STEPS) {
            const std::size_t next = place.size() - LAST_STEPS;
            text << '(' << next - i << " more) > ";
            i = next;
        }
        text << kindName(place[i].kind) << '.' << place[i].role;
    }
    return text.str();
}

std::optional<Place> findPlace(const NodeView& root, const NodeView& node) {
    std::optional<Place> found;
    traverse(root, {[&](const Visit& visit) {
                        if (visit.node() != node) return Next::Descend;
                        found = visit.place();
                        return Next::Stop;
                    },
                    {}});
    return found;
}

} // namespace zt::orvex::kit
