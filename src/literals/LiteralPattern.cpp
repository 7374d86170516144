#include "literals/LiteralPattern.h"

#include <atomic>
#include <locale>
#include <string>

namespace zt::orvex::internal {

namespace {

// Has no destructor, so it can be read to the very end of the process.
std::atomic<bool> engineIsGone{false};

/// Lives no longer than the static objects of the engine: the constructor makes the engine create
/// them first, by compiling and matching.
class EngineLifetime {
public:
    EngineLifetime() { boost::regex_match("a", boost::regex("a")); }
    ~EngineLifetime() { engineIsGone = true; }
    EngineLifetime(const EngineLifetime&) = delete;
    EngineLifetime& operator=(const EngineLifetime&) = delete;
};

std::u16string widen(std::string_view text) {
    std::u16string wide;
    wide.reserve(text.size());
    for (const char c : text)
        wide.push_back(static_cast<unsigned char>(c));
    return wide;
}

} // namespace

LiteralPattern::LiteralPattern(std::string_view narrowPattern, std::string_view widePattern)
    : wide(widePattern) {
    if (engineIsGone) return;
    static const EngineLifetime lifetime;
    // The grammar must not depend on the current global locale.
    narrow.imbue(std::locale::classic());
    narrow.assign(narrowPattern.data(), narrowPattern.data() + narrowPattern.size(),
                  boost::regex::perl | boost::regex::nosubs);
}

// The engine throws when it exceeds a number of steps that is quadratic in the length of the text.
// These patterns take linearly many, so it never does.
bool LiteralPattern::matches(std::string_view text) const {
    if (engineIsGone) return wide.matches(widen(text));
    return boost::regex_match(text.data(), text.data() + text.size(), narrow);
}

} // namespace zt::orvex::internal
