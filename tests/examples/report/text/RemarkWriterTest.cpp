#include "report/text/RemarkWriter.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char16_t* PROGRAM = u"parfor i = 1:9\n"
                                    u"    t = s;\n"
                                    u"    for j = 1:i\n"
                                    u"        s = j;\n"
                                    u"    end\n"
                                    u"end\n";

Step step(std::size_t line, std::size_t column, std::string note) {
    return {Place{0, 1, line, column, line, column + 1}, std::move(note)};
}

std::string textOf(RemarkCode code, std::vector<Path> paths, const TextStyle& style = {}) {
    File file;
    file.path = "a.ost";
    file.source = SourceText(PROGRAM);
    Remark remark;
    remark.code = code;
    remark.place = file.source.place(23, 1);
    remark.message = "an iteration may read 's' from another one";
    remark.help = "assign 's' before line 2";
    remark.paths = std::move(paths);
    std::ostringstream out;
    RemarkWriter(out, style).write(file, remark);
    return out.str();
}

TEST(RemarkWriter, PathIsNumberedNotes) {
    EXPECT_EQ(textOf(RemarkCode::UsedAfter,
                     {{step(4, 9, "'s' is written"), step(3, 5, "the loop at 3:5 ends")}}),
              "a.ost:2:9: remark: an iteration may read 's' from another one [used-after]\n"
              "    2 |     t = s;\n"
              "      |         ^\n"
              "      1: 's' is written (4:9)\n"
              "      2: the loop at 3:5 ends\n"
              "      help: assign 's' before line 2\n");
}

TEST(RemarkWriter, CarriedValueHasTwoPathsEachNumberedFromOne) {
    EXPECT_EQ(textOf(RemarkCode::Carried,
                     {{step(4, 9, "'s' is written"), step(6, 1, "the iteration ends")},
                      {step(1, 1, "an iteration begins"), step(2, 9, "'s' is read")}}),
              "a.ost:2:9: remark: an iteration may read 's' from another one [carried]\n"
              "    2 |     t = s;\n"
              "      |         ^\n"
              "      how the value leaves its iteration:\n"
              "        1: 's' is written (4:9)\n"
              "        2: the iteration ends (6:1)\n"
              "      how another iteration reads it:\n"
              "        1: an iteration begins (1:1)\n"
              "        2: 's' is read (2:9)\n"
              "      help: assign 's' before line 2\n");
}

TEST(RemarkWriter, PathOfOneStepIsLeftOut) {
    EXPECT_EQ(textOf(RemarkCode::Carried, {{step(4, 9, "'s' is written")}, {}}),
              "a.ost:2:9: remark: an iteration may read 's' from another one [carried]\n"
              "    2 |     t = s;\n"
              "      |         ^\n"
              "      help: assign 's' before line 2\n");
    const std::string text =
        textOf(RemarkCode::Carried, {{step(4, 9, "'s' is written")},
                                     {step(1, 1, "an iteration begins"), step(2, 9, "read")}});
    EXPECT_THAT(text, Not(HasSubstr("how the value")));
    EXPECT_THAT(text, HasSubstr("how another iteration reads it:\n        1: "));
}

TEST(RemarkWriter, LongNoteIsWrappedToTheRightOfItsNumber) {
    EXPECT_THAT(
        textOf(RemarkCode::UsedAfter,
               {{step(3, 5, "the loop at 3:5 may run no iteration"), step(2, 9, "'s' is read")}},
               {false, 40}),
        HasSubstr("      1: the loop at 3:5 may run no\n"
                  "         iteration\n"));
}

TEST(RemarkWriter, NothingOfANoteIsAControl) {
    EXPECT_THAT(textOf(RemarkCode::UsedAfter, {{step(1, 1, "\x1b[2J"), step(2, 1, "\n")}}),
                HasSubstr("      1: \xEF\xBF\xBD[2J (1:1)\n      2: \xEF\xBF\xBD (2:1)\n"));
}

} // namespace

} // namespace ostrel::report::testing
