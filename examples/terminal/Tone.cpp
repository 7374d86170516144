#include "terminal/Tone.h"

namespace ostrel {

namespace {

constexpr std::string_view RESET = "\x1b[0m";

/// The sequences take the terminal's own sixteen colours, which its user has chosen to be readable.
std::string_view sequenceOf(Tone tone) {
    switch (tone) {
    case Tone::Plain:
        return "";
    case Tone::Heading:
        return "\x1b[1m";
    case Tone::Faint:
        return "\x1b[2m";
    case Tone::Error:
        return "\x1b[1;31m";
    case Tone::Warning:
        return "\x1b[1;33m";
    case Tone::Help:
    case Tone::Loop:
        return "\x1b[36m";
    case Tone::Private:
        return "\x1b[32m";
    case Tone::Shared:
        return "\x1b[33m";
    case Tone::Result:
        return "\x1b[35m";
    }
    return "";
}

} // namespace

std::string painted(const TextStyle& style, Tone tone, std::string_view text) {
    const std::string_view sequence = sequenceOf(tone);
    if (!style.isColored || sequence.empty() || text.empty()) return std::string(text);
    return std::string(sequence).append(text).append(RESET);
}

} // namespace ostrel
