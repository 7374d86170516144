#include "report/html/HtmlReport.h"

#include "ReportOf.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <string_view>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string pageOf(std::string_view source, const std::string& path = "test.ost") {
    Report report;
    report.files.push_back(reportOf(source));
    report.files.back().path = path;
    std::ostringstream out;
    writeHtmlReport(out, report);
    return out.str();
}

std::size_t count(const std::string& page, std::string_view what) {
    std::size_t found = 0;
    for (std::size_t at = page.find(what); at != std::string::npos; at = page.find(what, at + 1))
        ++found;
    return found;
}

} // namespace

TEST(HtmlReport, IsSelfContained) {
    const std::string page = pageOf("parfor k = 1:3\n  x = k;\nend\n");
    EXPECT_THAT(page, Not(HasSubstr("http:")));
    EXPECT_THAT(page, Not(HasSubstr("https:")));
    EXPECT_THAT(page, Not(HasSubstr("src=")));
    EXPECT_THAT(page, Not(HasSubstr("@import")));
}

TEST(HtmlReport, MarkupInPathsTextsAndCommentsIsHarmless) {
    const std::string page =
        pageOf("x = '<script>alert(1)</script>'; % <b> & \"c\"\n", "<script>a</script>.ost");
    EXPECT_EQ(count(page, "<script>"), 1u) << "the page's own";
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;"));
    EXPECT_THAT(page, HasSubstr("<h2>&lt;script&gt;a&lt;/script&gt;.ost</h2>"));
    EXPECT_THAT(page, HasSubstr("% &lt;b&gt; &amp; &quot;c&quot;"));
}

TEST(HtmlReport, MarkupInAnErrorIsHarmless) {
    EXPECT_EQ(count(pageOf("x = <script>;\n"), "<script>"), 1u);
}

TEST(HtmlReport, EveryPlaceOfAVariableHasItsKey) {
    const std::string page = pageOf("parfor k = 1:3\n  x = k;\n  y(k) = x + x;\nend\n");
    // The row and the places: k three times, x three times, y once.
    EXPECT_EQ(count(page, "data-keys=\"v0-0-0\"") + count(page, "data-keys=\"v0-0-1\"") +
                  count(page, "data-keys=\"v0-0-2\""),
              3u + 3u + 3u + 1u);
    EXPECT_EQ(count(page, "class=\"variable role-temporary\""), 3u);
    EXPECT_EQ(count(page, "class=\"variable role-loop\""), 3u);
    EXPECT_EQ(count(page, "class=\"variable role-sliced\""), 1u);
}

TEST(HtmlReport, PlaceInNestedConstructsHasBothKeysAndTheInnerLook) {
    const std::string page =
        pageOf("parfor i = 1:3\n  a = i;\n  parfor j = 1:2\n    b = a;\n  end\nend\n");
    EXPECT_THAT(page, HasSubstr("class=\"variable role-outside\" data-letter=\"R\" "
                                "data-keys=\"v0-1-"));
    EXPECT_EQ(count(page, "<tr tabindex"), 4u + 3u)
        << "i, a, j, b of the outer; j, b, a of the inner";
}

TEST(HtmlReport, CarriedVariableShowsItsReadAndItsWrite) {
    const std::string page = pageOf("s = 0;\nparfor k = 1:3\n  s = s / k;\nend\n");
    EXPECT_THAT(page, HasSubstr("read first <a href=\"#f0L3\">3:7</a><br>carried by "
                                "<a href=\"#f0L3\">3:3</a>"));
}

TEST(HtmlReport, KeywordsTextsAndCommentsAreMarked) {
    const std::string page = pageOf("if x, show('a'); end % why\nturn don't 1\n");
    EXPECT_THAT(page, HasSubstr("<span class=\"keyword\">if</span>"));
    EXPECT_THAT(page, HasSubstr("<span class=\"text\">&#39;a&#39;</span>"));
    EXPECT_THAT(page, HasSubstr("<span class=\"comment\">% why</span>"));
}

TEST(HtmlReport, BlockCommentIsMarkedOnEachOfItsLines) {
    const std::string page = pageOf("%{\n one\n two\n%}\nx = 1;\n");
    EXPECT_EQ(count(page, "<span class=\"comment\">"), 4u);
}

TEST(HtmlReport, CharactersThatChangeTheDirectionAreBoxedNames) {
    const std::string page = pageOf("% \xE2\x80\xAE\nx = \xE2\x81\xA6;\n", "a\xD8\x9C.ost");
    EXPECT_THAT(page, HasSubstr("% <span class=\"letter error\" title=\"changes the direction of "
                                "writing\">U+202E</span>"));
    EXPECT_THAT(page, HasSubstr(">U+061C</span>.ost</h2>"));
    EXPECT_EQ(count(page, ">U+2066</span>"), 1u) << "in the source";
    EXPECT_THAT(page, HasSubstr("found &#39;\xEF\xBF\xBD&#39;")) << "in the error";
    EXPECT_EQ(count(page, "\xE2\x80\xAE") + count(page, "\xE2\x81\xA6"), 0u);
}

TEST(HtmlReport, ByteOfAPathThatIsNotUtf8IsABoxedReplacementCharacter) {
    EXPECT_THAT(pageOf("", "a\xFF\xC3.ost"),
                HasSubstr("<h2>a<span class=\"letter error\" title=\"a byte that is not UTF-8\">"
                          "\xEF\xBF\xBD</span><span"));
}

TEST(HtmlReport, FileWithoutConstructsAndEmptyFileHavePages) {
    EXPECT_THAT(pageOf("x = 1;\n"), HasSubstr("No parfor or spmd statement."));
    EXPECT_THAT(pageOf(""), HasSubstr("No parfor or spmd statement."));
}

TEST(HtmlReport, ErrorLinksToItsLine) {
    EXPECT_THAT(pageOf("x = 1;\ny = (;\n"), HasSubstr("<li class=\"error\"><a href=\"#f0L2\">2:"));
}

} // namespace ostrel::report::testing
