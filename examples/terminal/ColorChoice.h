#pragma once

#include <string_view>

namespace ostrel {

/// The values of the option `--color`.
enum class ColorChoice { Auto, Always, Never };

/// What `ColorChoice::Auto` depends on. A variable that isn't set counts as empty.
struct ColorSurroundings {
    std::string_view noColor;       ///< NO_COLOR.
    std::string_view forceColor;    ///< FORCE_COLOR.
    std::string_view cliColorForce; ///< CLICOLOR_FORCE.
    std::string_view term;          ///< TERM.
    bool isFile = false;            ///< Whether the text goes to a file that the user has named.
    bool isTerminal = false;        ///< Whether it goes to a terminal.
};

/// Those of this process.
ColorSurroundings colorSurroundings(bool isFile, bool isTerminal);

/// Whether to colour the text.
bool wantsColor(ColorChoice choice, const ColorSurroundings& surroundings);

} // namespace ostrel
