#include "report/html/HtmlReport.h"

#include "PageOf.h"

#include "report/html/RoleMarks.h"

#include <gmock/gmock.h>

#include <set>
#include <string>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string repeat(const std::string& piece, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text += piece;
    return text;
}

} // namespace

TEST(HtmlReport, IsSelfContained) {
    const std::string page = pageOf("parfor k = 1:3\n  x = k;\nend\n");
    EXPECT_THAT(page, Not(HasSubstr("http:")));
    EXPECT_THAT(page, Not(HasSubstr("https:")));
    EXPECT_THAT(page, Not(HasSubstr("src=")));
    EXPECT_THAT(page, Not(HasSubstr("url(")));
    EXPECT_THAT(page, Not(HasSubstr("@import")));
    EXPECT_EQ(count(page, "<link "), 1u) << "the empty icon";
}

TEST(HtmlReport, NoMarkerOfThePageIsLeft) {
    const std::string page = pageOf("");
    for (const char* const marker : {"<!--", "STYLE", "SCRIPT", "LETTERS"})
        EXPECT_THAT(page, Not(HasSubstr(marker)));
}

TEST(HtmlReport, EachRoleHasALetterOfItsOwn) {
    std::set<char> letters;
    for (const RoleMark& mark : roleMarks())
        letters.insert(mark.letter);
    EXPECT_EQ(letters.size(), roleMarks().size());
    EXPECT_THAT(pageOf(""), HasSubstr(".role-shared { --letter: \"H\"; }"));
    EXPECT_THAT(pageOf(""), HasSubstr("<li class=\"role-shared\"><b>H</b><u>shared</u></li>"));
}

TEST(HtmlReport, MarkupInPathsTextsCommentsAndErrorsIsHarmless) {
    const std::string page = pageOf("x = '<script>alert(1)</script>'; % <b> & \"c\"\ny = <script>;",
                                    "<script>a</script>.ost");
    EXPECT_EQ(count(page, "<script>"), 1u) << "the page's own";
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;"));
    EXPECT_THAT(page, HasSubstr(">&lt;script&gt;a&lt;/script&gt;.ost</h2>"));
}

TEST(HtmlReport, PathHasBoxesForWhatCannotBeShown) {
    const std::string page = pageOf("", "a\xD8\x9C\x1b\xFF.ost");
    EXPECT_THAT(page, HasSubstr(">U+061C</span>"));
    EXPECT_THAT(page, HasSubstr(">U+001B</span>"));
    EXPECT_THAT(page, HasSubstr("title=\"a byte that is not UTF-8\">"));
}

TEST(HtmlReport, FileWithoutConstructsAndEmptyFileHaveSections) {
    EXPECT_THAT(pageOf("x = 1;\n"), HasSubstr("No parfor or spmd statement, 0 errors, 0 remarks"));
    EXPECT_THAT(pageOf(""), HasSubstr("No parfor or spmd statement, 0 errors, 0 remarks"));
}

TEST(HtmlReport, FileThatCouldNotBeReadHasASectionWithItsFailure) {
    File file;
    file.path = "gone.ost";
    file.failure = "no such file";
    EXPECT_THAT(pageOf(std::move(file)),
                HasSubstr("<p class=\"failure\">Could not be read: no such file</p>"));
}

TEST(HtmlReport, ErrorIsListedWithItsHelp) {
    File file = reportOf("x = 1;\ny = (;\n");
    file.diagnostics.at(0).help = "close it";
    const std::string page = pageOf(std::move(file));
    EXPECT_THAT(page, HasSubstr("<li class=\"error\"><a href=\"#f0L2\" data-at=\"2:"));
    EXPECT_THAT(page, HasSubstr("<p class=\"help\"><b>help:</b> close it</p></li>"));
}

TEST(HtmlReport, ConstructsThatShareALineShareAGroup) {
    const std::string page = pageOf("spmd\nend; spmd\nend\nspmd\n  spmd, end\nend\n");
    EXPECT_EQ(count(page, "<div class=\"group\" "), 2u);
    EXPECT_EQ(count(page, "<section class=\"card\""), 4u);
}

TEST(HtmlReport, EachLineIsThereOnce) {
    const std::string page =
        pageOf("a = 1;\nspmd, end\nb = 2;\nspmd\nend\nparfor k = 1:2, spmd\n end, end\n% end");
    EXPECT_EQ(count(page, "<div class=\"line\""), 8u);
    for (const char* const id : {"f0L1", "f0L2", "f0L3", "f0L4", "f0L5", "f0L6", "f0L7", "f0L8"})
        EXPECT_EQ(count(page, std::string("id=\"") + id + "\""), 1u) << id;
}

TEST(HtmlReport, FilesAfterThousandsOfLinesAreKeptAsText) {
    Report report;
    report.files.push_back(reportOf(repeat("x = 1;\n", 5000)));
    report.files.push_back(reportOf("y = '</script><!-- <script>';\n"));
    report.files.push_back(reportOf("z = 1;\n"));
    const std::string page = pageOf(report);
    EXPECT_EQ(count(page, "<script type=\"text/plain\">"), 2u);
    EXPECT_EQ(count(page, "</script>"), 3u) << "two files, and the page's own script";
    EXPECT_EQ(count(page, "<!--"), 0u);
}

} // namespace ostrel::report::testing
