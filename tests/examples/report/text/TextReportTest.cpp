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

std::string textOf(const Report& report, const TextStyle& style = {},
                   Detail detail = Detail::Full) {
    std::ostringstream out;
    writeTextReport(out, report, style, detail);
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

TEST(TextReport, ShowsFunctionAndEnclosingConstruct) {
    const std::string text = textOf("function f()\n spmd\n parfor k = 1:3, end\n end\nend");
    EXPECT_THAT(text, HasSubstr("test.ost:2:2: spmd, in function f\n"));
    EXPECT_THAT(text, HasSubstr("test.ost:3:2: parfor over k, in function f, inside the spmd on "
                                "line 2\n"));
}

TEST(TextReport, SeveralFilesHaveASummary) {
    Report report = singleReport("spmd, x = ans; end\n%#nonsense\n");
    EXPECT_THAT(textOf(report), Not(HasSubstr("1 file")));
    report.files.push_back(reportOf("x = ;\nspmd, end"));
    EXPECT_THAT(textOf(report), HasSubstr("\n\n2 files: 2 constructs, 1 error, 2 remarks\n"));
}

TEST(TextReport, UnreadableFileIsOnlyCounted) {
    Report report = singleReport("x = 1;");
    File unreadable;
    unreadable.path = "none.ost";
    unreadable.failure = "No such file or directory";
    report.files.push_back(unreadable);
    EXPECT_EQ(textOf(report), "test.ost: no parfor or spmd statement\n"
                              "\n"
                              "2 files, 1 unreadable: 0 constructs, 0 errors, 0 remarks\n");
    EXPECT_EQ(textOf(report, {}, Detail::Quiet), "");
}

TEST(TextReport, RemarksFollowTheirConstructAndTheOthersComeLast) {
    File file = reportOf("%#nonsense\nspmd, x = ans; end\nspmd, y = 1; end\nspmd, x = ans; end\n");
    Report report;
    report.files.push_back(file);
    const std::string text = textOf(report);
    std::size_t last = 0;
    for (const char* next :
         {"test.ost:2:1: spmd", "test.ost:2:11: remark", "test.ost:3:1: spmd", "test.ost:4:1: spmd",
          "test.ost:4:11: remark", "test.ost:1:1: remark"}) {
        const std::size_t at = text.find(next);
        ASSERT_NE(at, std::string::npos) << next;
        EXPECT_LE(last, at) << next;
        last = at;
    }
}

TEST(TextReport, QuietTextHasErrorsAndRemarksOnly) {
    EXPECT_EQ(textOf(singleReport("spmd, x = ans; end\ny = ;\n%#nonsense\n"), {}, Detail::Quiet),
              "test.ost:2:5: error: expected an expression, found ';'\n"
              "    2 | y = ;\n"
              "      |     ^\n"
              "\n"
              "test.ost:1:11: remark: 'ans' may be read here before the spmd body has set it"
              " [ans]\n"
              "    1 | spmd, x = ans; end\n"
              "      |           ^~~\n"
              "      help: assign the value to a variable, and read that instead\n"
              "\n"
              "test.ost:3:1: remark: no directive is called 'nonsense', so tools ignore this"
              " pragma [unknown-pragma]\n"
              "    3 | %#nonsense\n"
              "      | ^~~~~~~~~~\n"
              "      help: known directives: codegen, zel, function, internal, vun, obfuscate, ok,"
              " TestStandard\n");
}

TEST(TextReport, QuietTextOfCleanFilesIsEmpty) {
    Report report = singleReport("parfor k = 1:3, x(k) = k; end");
    report.files.push_back(reportOf("x = 1;"));
    EXPECT_EQ(textOf(report, {}, Detail::Quiet), "");
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

TEST(TextReport, ManyErrorsAreCounted) {
    std::string program;
    for (int i = 0; i < 150; ++i)
        program += "x = ;\n";
    EXPECT_THAT(textOf(program), HasSubstr("\n\ntest.ost: 50 more errors\n"));
    EXPECT_THAT(textOf(singleReport(program), {}, Detail::Quiet), HasSubstr("50 more errors\n"));
}

TEST(TextReport, ErrorShowsItsHelp) {
    Report report = singleReport("if x = 3\nend\n");
    report.files[0].diagnostics = {{report.files[0].source.place(5, 1), Severity::Error,
                                    "expected a condition", "write '=='"}};
    EXPECT_THAT(textOf(report), HasSubstr("test.ost:1:6: error: expected a condition\n"
                                          "    1 | if x = 3\n"
                                          "      |      ^\n"
                                          "      help: write '=='\n"));
}

} // namespace

} // namespace ostrel::report::testing
