#include "terminal/TextStyle.h"

#include "terminal/Terminal.h"

namespace ostrel {

TextStyle styleFor(std::FILE* stream, ColorChoice choice) {
    const bool toTerminal = isTerminal(stream);
    TextStyle style;
    style.isColored = wantsColor(choice, colorSurroundings(false, toTerminal));
    if (toTerminal) style.width = terminalWidth(stream, style.width);
    return style;
}

TextStyle styleForFile(ColorChoice choice) {
    TextStyle style;
    style.isColored = wantsColor(choice, colorSurroundings(true, false));
    return style;
}

} // namespace ostrel
