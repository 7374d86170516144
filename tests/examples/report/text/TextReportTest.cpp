#include "ReportOf.h"

#include "report/text/TextReport.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <string_view>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string textOf(const Report& report, const TextStyle& style = {}) {
    std::ostringstream out;
    writeTextReport(out, report, style);
    return out.str();
}

std::string textOf(std::string_view program, const TextStyle& style = {}) {
    return textOf(singleReport(program), style);
}

std::string withoutEscapes(std::string text) {
    for (std::size_t at = text.find('\x1b'); at != std::string::npos; at = text.find('\x1b'))
        text.erase(at, text.find('m', at) - at + 1);
    return text;
}

constexpr const char* PROGRAM = "s = 0; x = 1:9; w = 1;\n"
                                "parfor k = 1:9\n"
                                "    t = x(k);\n"
                                "    s = s + t;\n"
                                "    y(k) = t;\n"
                                "    eval('t = 1');\n"
                                "    z = ans;\n"
                                "end\n"
                                "%#nonsense\n";

TEST(TextReport, ShowsTheRoleOfEachVariable) {
    EXPECT_EQ(
        textOf("s = 0; x = 1:9;\nparfor k = 1:9\n  t = x(k);\n  s = s + t;\n  y(k) = t;\nend"),
        "test.ost:2:1: parfor over k\n"
        "    s  carried            first read at 4:7, on every path; last written at 4:3, for "
        "another\n"
        "                          iteration\n"
        "    x  read from outside  first read at 3:7, on every path; each iteration reads its own"
        " elements\n"
        "    k  loop variable\n"
        "    t  temporary          written before it is read in each iteration\n"
        "    y  sliced             each iteration writes its own elements\n");
}

TEST(TextReport, RemarkShowsItsPlaceAndHelp) {
    EXPECT_EQ(textOf("spmd, x = ans; x = load(2); end\n%#nonsense\n"),
              "test.ost:1:1: spmd\n"
              "    x    output             written before it is read\n"
              "    ans  read from outside  first read at 1:11\n"
              "\n"
              "test.ost:1:11: remark: 'ans' may be read here before the spmd body has set it"
              " [ans]\n"
              "    1 | spmd, x = ans; x = load(2); end\n"
              "      |           ^~~\n"
              "      help: assign the value to a variable, and read that instead\n"
              "\n"
              "test.ost:1:20: remark: 'load' is restricted in an spmd body: it accesses"
              " variables by name, which static analysis cannot see [restricted]\n"
              "    1 | spmd, x = ans; x = load(2); end\n"
              "      |                    ^~~~\n"
              "      help: move it into a function of its own and call that\n"
              "\n"
              "test.ost:2:1: remark: no directive is called 'nonsense', so tools ignore this"
              " pragma [unknown-pragma]\n"
              "    2 | %#nonsense\n"
              "      | ^~~~~~~~~~\n"
              "      help: known directives: codegen, zel, function, internal, vun, obfuscate, ok,"
              " TestStandard\n");
}

TEST(TextReport, ErrorsComeFirstWithTheirLineAndACaret) {
    const std::string text = textOf("parfor k = 1:3, end\n\tx = (1;\n");
    EXPECT_THAT(text, HasSubstr("test.ost:2:8: error: "));
    EXPECT_THAT(text, HasSubstr("\n    2 |     x = (1;\n      |           ^\n"));
    EXPECT_LT(text.find("error"), text.find("parfor over k"));
}

TEST(TextReport, SaysThatAFileHasNoConstruct) {
    EXPECT_EQ(textOf("x = 1;"), "test.ost: no parfor or spmd statement\n");
    EXPECT_EQ(textOf(""), "test.ost: no parfor or spmd statement\n");
    EXPECT_THAT(textOf(")"), HasSubstr("no parfor or spmd statement in what could be parsed\n"));
}

TEST(TextReport, SaysThatABodyNamesNoVariable) {
    EXPECT_EQ(textOf("spmd, end"), "test.ost:1:1: spmd\n    The body names no variable.\n");
    EXPECT_THAT(textOf("parfor k = 1:3, end"),
                HasSubstr("    k  loop variable  not used in the body\n"));
}

TEST(TextReport, ShowsFunctionAndEnclosingConstruct) {
    const std::string text = textOf("function f()\n spmd\n parfor k = 1:3, end\n end\nend");
    EXPECT_THAT(text, HasSubstr("test.ost:2:2: spmd, in function f\n"));
    EXPECT_THAT(text, HasSubstr("test.ost:3:2: parfor over k, in function f, inside the spmd on "
                                "line 2\n"));
}

TEST(TextReport, VariablesOnlyInTheHeadAreNotInTheTable) {
    EXPECT_THAT(textOf("n = 1;\nparfor k = 1:n, x = k; end"), Not(HasSubstr("    n ")));
}

TEST(TextReport, SeveralFilesHaveASummary) {
    Report report = singleReport(PROGRAM);
    EXPECT_THAT(textOf(report), Not(HasSubstr("1 file")));
    report.files.push_back(reportOf("x = ;\nspmd, end"));
    EXPECT_THAT(textOf(report), HasSubstr("\n2 files: 2 constructs, 1 error, 2 remarks\n"));
}

TEST(TextReport, ColourDoesNotChangeTheText) {
    const std::string plain = textOf(PROGRAM);
    const std::string coloured = textOf(PROGRAM, {true, 100});
    EXPECT_THAT(plain, Not(HasSubstr("\x1b")));
    EXPECT_THAT(coloured, HasSubstr("\x1b[32mtemporary\x1b[0m"));
    EXPECT_THAT(coloured, HasSubstr("\x1b[1;33mremark:\x1b[0m"));
    EXPECT_EQ(withoutEscapes(coloured), plain);
}

TEST(TextReport, FitsTheWidth) {
    for (std::size_t width = 60; width < 130; ++width) {
        std::istringstream lines(textOf(PROGRAM, {false, width}));
        for (std::string line; std::getline(lines, line);) {
            const bool isMessage = line.find("test.ost:") == 0;
            EXPECT_TRUE(isMessage || line.size() <= width) << width << ": " << line;
        }
    }
}

TEST(TextReport, NotesMoveBelowIfThereIsLittleRoom) {
    EXPECT_THAT(textOf("s = 0;\nparfor k = 1:9, s = s + k; end", {false, 40}),
                HasSubstr("    s  carried\n"
                          "        first read at 2:21, on every\n"
                          "        path; last written at 2:17, for\n"
                          "        another iteration\n"));
}

TEST(TextReport, ManyErrorsAreCounted) {
    std::string program;
    for (int i = 0; i < 150; ++i)
        program += "x = ;\n";
    EXPECT_THAT(textOf(program), HasSubstr("\ntest.ost: 50 more errors\n"));
}

} // namespace

} // namespace ostrel::report::testing
