#include "terminal/ColorChoice.h"

#include <gtest/gtest.h>

namespace ostrel::testing {

namespace {

/// What is true of a plain terminal.
ColorSurroundings atTerminal() {
    ColorSurroundings surroundings;
    surroundings.term = "xterm";
    surroundings.isTerminal = true;
    return surroundings;
}

bool isColored(const ColorSurroundings& surroundings) {
    return wantsColor(ColorChoice::Auto, surroundings);
}

TEST(ColorChoice, TerminalGetsColourAndNothingElseDoes) {
    EXPECT_TRUE(isColored(atTerminal()));
    EXPECT_FALSE(isColored({}));
}

TEST(ColorChoice, DumbTerminalGetsNone) {
    ColorSurroundings dumb = atTerminal();
    dumb.term = "dumb";
    EXPECT_FALSE(isColored(dumb));
    dumb.forceColor = "1";
    EXPECT_TRUE(isColored(dumb));
}

TEST(ColorChoice, VariablesThatForceColourWorkWithoutATerminal) {
    for (const auto variable :
         {&ColorSurroundings::forceColor, &ColorSurroundings::cliColorForce}) {
        ColorSurroundings surroundings;
        surroundings.*variable = "1";
        EXPECT_TRUE(isColored(surroundings));
        surroundings.*variable = "0";
        EXPECT_FALSE(isColored(surroundings));
        surroundings.*variable = "";
        EXPECT_FALSE(isColored(surroundings));
        ColorSurroundings terminal = atTerminal();
        terminal.*variable = "0";
        EXPECT_TRUE(isColored(terminal)); // it doesn't force, and that is all
    }
}

TEST(ColorChoice, NoColorBeatsTheVariablesThatForceIt) {
    ColorSurroundings surroundings = atTerminal();
    surroundings.forceColor = "1";
    surroundings.cliColorForce = "1";
    surroundings.noColor = "0"; // any value will do
    EXPECT_FALSE(isColored(surroundings));
    surroundings.noColor = "";
    EXPECT_TRUE(isColored(surroundings));
}

TEST(ColorChoice, NamedFileGetsColourOnlyIfTheOptionSaysSo) {
    ColorSurroundings file;
    file.isFile = true;
    file.forceColor = "1";
    file.cliColorForce = "1";
    EXPECT_FALSE(isColored(file));
    EXPECT_TRUE(wantsColor(ColorChoice::Always, file));
}

TEST(ColorChoice, OptionBeatsEverything) {
    ColorSurroundings against = atTerminal();
    against.noColor = "1";
    against.term = "dumb";
    against.isFile = true;
    EXPECT_TRUE(wantsColor(ColorChoice::Always, against));
    ColorSurroundings inFavour = atTerminal();
    inFavour.forceColor = "1";
    inFavour.cliColorForce = "1";
    EXPECT_FALSE(wantsColor(ColorChoice::Never, inFavour));
}

} // namespace

} // namespace ostrel::testing
