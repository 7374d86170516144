#include "terminal/MessageWriter.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>

namespace ostrel::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// A message about `length` units of a text from `offset` on.
std::string message(std::u16string text, std::size_t offset, std::size_t length,
                    const TextStyle& style = {}, const std::string& path = "a.ost",
                    const std::string& help = "") {
    const SourceText source(std::move(text));
    std::ostringstream out;
    MessageWriter(out, style)
        .write(path, source, source.place(offset, length),
               {Tone::Error, "error", "no such thing", help});
    return out.str();
}

TEST(MessageWriter, MarksAllOfThePlace) {
    EXPECT_EQ(message(u"a = 1;\nx = yy;\n", 11, 2, {}, "a.ost", "write y"),
              "a.ost:2:5: error: no such thing\n"
              "    2 | x = yy;\n"
              "      |     ^~\n"
              "      help: write y\n");
}

TEST(MessageWriter, PlaceOfSeveralLinesIsMarkedToTheEndOfTheFirst) {
    EXPECT_EQ(message(u"if a\n  b\nend\n", 0, 12), "a.ost:1:1: error: no such thing\n"
                                                   "    1 | if a\n"
                                                   "      | ^~~~ (continues to line 3)\n");
}

TEST(MessageWriter, LineBreakAtTheEndOfAPlaceDoesNotCount) {
    EXPECT_THAT(message(u"if a\n  b\n", 0, 5), HasSubstr("| ^~~~\n"));
    EXPECT_THAT(message(u"if a\n  b\n", 0, 9), HasSubstr("| ^~~~ (continues to line 2)\n"));
}

TEST(MessageWriter, ExtentGoesBelowAMarkThatFillsTheLine) {
    EXPECT_EQ(message(std::u16string(40, u'a') + u"\nb", 0, 42, {false, 48}),
              "a.ost:1:1: error: no such thing\n"
              "    1 | " +
                  std::string(40, 'a') + "\n      | ^" + std::string(39, '~') +
                  "\n      | (continues to line 2)\n");
}

TEST(MessageWriter, PlaceAtTheEndOfTheTextHasACaret) {
    EXPECT_EQ(message(u"x = ", 4, 0), "a.ost:1:5: error: no such thing\n"
                                      "    1 | x = \n"
                                      "      |     ^\n");
    EXPECT_THAT(message(u"", 0, 0), HasSubstr("\n    1 | \n      | ^\n"));
}

TEST(MessageWriter, HelpIsWrappedToTheRightOfItsLabel) {
    EXPECT_THAT(message(u"x", 0, 1, {false, 50}, "a.ost",
                        "move the statement into a function of its own and call that"),
                HasSubstr("      help: move the statement into a function of\n"
                          "            its own and call that\n"));
}

TEST(MessageWriter, GutterGrowsWithTheNumberOfTheLine) {
    EXPECT_THAT(message(std::u16string(123'455, u'\n') + u"xy", 123'455, 2, {}, "a.ost", "none"),
                HasSubstr("\n123456 | xy\n       | ^~\n       help: none\n"));
}

TEST(MessageWriter, ColoursAddNothingButEscapes) {
    const std::string text = message(u"if a\n  b\nend\n", 0, 12, {true, 100}, "a.ost", "none");
    EXPECT_EQ(text, "\x1b[1ma.ost:1:1:\x1b[0m \x1b[1;31merror:\x1b[0m no such thing\n"
                    "\x1b[2m    1 |\x1b[0m if a\n"
                    "\x1b[2m      |\x1b[0m \x1b[1;31m^~~~\x1b[0m \x1b[2m(continues to line "
                    "3)\x1b[0m\n"
                    "      \x1b[36mhelp:\x1b[0m none\n");
}

TEST(MessageWriter, NothingOfPathSourceMessageOrHelpIsAControl) {
    const SourceText source(u"x = '\x1b[2J\u202E';");
    std::ostringstream out;
    MessageWriter writer(out, {});
    writer.write("\x1b[31m\n\xFF.ost", source, source.place(0, 14),
                 {Tone::Error, "err\aor", "a\x1b]0;b\a", "c\r\nd\xE2\x80\xAE"});
    writer.writeNote(source.place(0, 1), Tone::Plain, "1:", "e\x9B\xC2\x9B\t");
    const std::string text = out.str();
    for (const char* control : {"\x1b", "\a", "\r", "\t", "\xFF", "\xE2\x80\xAE", "\xC2\x9B"})
        EXPECT_THAT(text, Not(HasSubstr(control)));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5);
}

TEST(MessageWriter, SnippetCanHaveAHeadWithoutSeverity) {
    std::ostringstream out;
    MessageWriter(out, {}).writeHead("a.ost", Place{0, 1, 7, 9, 7, 10}, Tone::Plain, "",
                                     "only here");
    EXPECT_EQ(out.str(), "a.ost:7:9: only here\n");
}

} // namespace

} // namespace ostrel::testing
