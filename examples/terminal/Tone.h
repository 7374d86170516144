#pragma once

#include "terminal/TextStyle.h"

#include <string>
#include <string_view>

namespace ostrel {

/// What a piece of text is, for which it gets its colour.
enum class Tone { Plain, Heading, Faint, Error, Warning, Help, Loop, Private, Shared, Result };

/// The text in the colour of its tone; unchanged if the style is without colours, or for Plain. The
/// text must be safe for a terminal already.
std::string painted(const TextStyle& style, Tone tone, std::string_view text);

} // namespace ostrel
