#include "terminal/ColorChoice.h"

#include <cstdlib>

namespace ostrel {

namespace {

std::string_view environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string_view() : std::string_view(value);
}

/// By the conventions of the variables: empty is off for all of them, and "0" for those that force.
bool isSet(std::string_view value) { return !value.empty(); }
bool forces(std::string_view value) { return !value.empty() && value != "0"; }

} // namespace

ColorSurroundings colorSurroundings(bool isFile, bool isTerminal) {
    return {environment("NO_COLOR"),
            environment("FORCE_COLOR"),
            environment("CLICOLOR_FORCE"),
            environment("TERM"),
            isFile,
            isTerminal};
}

bool wantsColor(ColorChoice choice, const ColorSurroundings& surroundings) {
    struct Rule {
        bool applies;
        bool result;
    };
    // The first rule that applies decides.
    const Rule rules[] = {
        {choice == ColorChoice::Always, true}, // the option comes first
        {choice == ColorChoice::Never, false},
        {isSet(surroundings.noColor), false}, // for those who want none at all
        {surroundings.isFile, false},         // will be read without a terminal
        {forces(surroundings.forceColor), true},
        {forces(surroundings.cliColorForce), true},
        {surroundings.term == "dumb", false},
        {surroundings.isTerminal, true},
    };
    for (const Rule& rule : rules) {
        if (rule.applies) return rule.result;
    }
    return false;
}

} // namespace ostrel
