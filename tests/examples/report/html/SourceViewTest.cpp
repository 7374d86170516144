#include "PageOf.h"

#include "report/html/SourceView.h"

#include <gmock/gmock.h>

#include <regex>
#include <string>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string viewOf(const File& file) {
    std::ostringstream out;
    SourceView(out, file, 0).writeLines(1, file.source.lineCount());
    return out.str();
}

std::string viewOf(std::string_view source) { return viewOf(reportOf(source)); }

/// A file with a text alone.
File fileOf(std::u16string text) {
    File file;
    file.source = SourceText(std::move(text));
    return file;
}

/// The lines and their messages alone.
std::string withoutWrappers(const std::string& view) {
    static const std::regex wrappers(
        "<div class=\"lines\">|<div class=\"chunk\"[^>]*>|</div></div>\n");
    return std::regex_replace(view, wrappers, "");
}

void addError(File& file, std::size_t offset, std::size_t length, const std::string& message) {
    file.diagnostics.push_back({file.source.place(offset, length), Severity::Error, message, ""});
}

} // namespace

TEST(SourceView, KeywordsTextsAndCommentsAreMarked) {
    const std::string view = viewOf("if x, show('a'); end % why\n");
    EXPECT_THAT(view, HasSubstr("<span class=\"keyword\">if</span>"));
    EXPECT_THAT(view, HasSubstr("<span class=\"text\">&#39;a&#39;</span>"));
    EXPECT_THAT(view, HasSubstr("<span class=\"comment\">% why</span>"));
}

TEST(SourceView, BlockCommentIsMarkedOnEachOfItsLines) {
    EXPECT_EQ(count(viewOf("%{\n one\n two\n%}\nx = 1;\n"), "<span class=\"comment\">"), 4u);
}

TEST(SourceView, EveryPlaceOfAVariableHasItsKeyAndItsRole) {
    const std::string view = viewOf("parfor k = 1:3\n  x = k;\n  y(k) = x + x;\nend\n");
    EXPECT_EQ(count(view, "class=\"variable role-temporary\" data-keys=\"0-1\""), 3u);
    EXPECT_EQ(count(view, "class=\"variable role-loop\" data-keys=\"0-0\""), 3u);
    EXPECT_EQ(count(view, "class=\"variable role-sliced\" data-keys=\"0-2\""), 1u);
}

TEST(SourceView, PlaceInNestedConstructsHasBothKeysAndTheInnerLook) {
    const std::string view =
        viewOf("parfor i = 1:3\n  a = i;\n  parfor j = 1:2\n    b = a;\n  end\nend\n");
    EXPECT_THAT(view, HasSubstr("class=\"variable role-outside\" data-keys=\"1-2 0-1\">a<"));
}

TEST(SourceView, ErrorIsMarkedInItsLineAndSaidBelowIt) {
    File file = fileOf(u"x = 1;\ny = 2;\n");
    addError(file, 11, 1, "no <2>");
    EXPECT_EQ(viewOf(file),
              "<div class=\"lines\"><div class=\"chunk\" style=\"--before:0;--lines:3\">"
              "<div class=\"line\" id=\"f0L1\">x = 1;</div>"
              "<div class=\"line has-error\" id=\"f0L2\">y = <span class=\"at error\">2</span>;"
              "</div><div class=\"below error\"><b>error:</b> no &lt;2&gt;</div>"
              "<div class=\"line\" id=\"f0L3\"></div></div></div>\n");
}

TEST(SourceView, RemarkIsAButtonBelowItsLine) {
    File file = reportOf("x = 1;\n");
    Remark remark;
    remark.code = RemarkCode::UsedAfter;
    remark.place = placeOf(file, u"x");
    remark.message = "x goes away";
    file.remarks.push_back(remark);
    const std::string view = viewOf(file);
    EXPECT_THAT(view, HasSubstr("<div class=\"line has-remark\" id=\"f0L1\">"
                                "<span class=\"at remark\">x</span>"));
    EXPECT_THAT(view, HasSubstr("data-remark=\"f0r0\"><b>remark:</b> x goes away "
                                "<code>[used-after]</code></button>"));
}

TEST(SourceView, MarkMayBeginInsideATokenAndEndInsideAnother) {
    File file = fileOf(u"abcdef");
    file.syntax = {{SyntaxKind::Number, 0, 3}, {SyntaxKind::Text, 3, 3}};
    addError(file, 1, 4, "");
    EXPECT_THAT(viewOf(file),
                HasSubstr("<span class=\"number\">a</span><span class=\"at error\">"
                          "<span class=\"number\">bc</span><span class=\"text\">de</span></span>"
                          "<span class=\"text\">f</span></div>"));
}

TEST(SourceView, MarkOfSeveralLinesContinuesOnEach) {
    File file = fileOf(u"ab\r\n\r\ncd\nef");
    addError(file, 1, 6, "long");
    EXPECT_THAT(viewOf(file), HasSubstr("a<span class=\"at error\">b</span></div>"));
    EXPECT_THAT(viewOf(file), HasSubstr("id=\"f0L2\"><span class=\"at error\"></span></div>"));
    EXPECT_THAT(viewOf(file), HasSubstr("id=\"f0L3\"><span class=\"at error\">c</span>d</div>"));
    EXPECT_THAT(viewOf(file), HasSubstr("<div class=\"line\" id=\"f0L4\">ef</div>"));
    EXPECT_EQ(count(viewOf(file), "long"), 1u);
}

TEST(SourceView, MarkOfTheLineEndStaysOnItsLine) {
    File file = fileOf(u"ab\r\ncd");
    addError(file, 2, 2, "");
    EXPECT_THAT(viewOf(file), HasSubstr("ab<span class=\"at error\"></span></div>"));
    EXPECT_THAT(viewOf(file), HasSubstr("<div class=\"line\" id=\"f0L2\">cd</div>"));
}

TEST(SourceView, PlaceWithoutLengthAtTheEndIsMarked) {
    File file = fileOf(u"ab\n");
    addError(file, 3, 0, "an end is missing");
    EXPECT_THAT(viewOf(file), HasSubstr("<div class=\"line has-error\" id=\"f0L2\">"
                                        "<span class=\"at error\"></span></div>"));
}

TEST(SourceView, LinesMayBeWrittenInParts) {
    const File file = reportOf("x = 1;\nparfor k = 1:3\n  y = ;\nend\n% last\n");
    std::ostringstream out;
    SourceView view(out, file, 0);
    view.writeLines(1, 1);
    view.writeLines(2, 4);
    view.writeLines(5, 6);
    EXPECT_EQ(count(out.str(), "<div class=\"lines\">"), 3u);
    EXPECT_EQ(withoutWrappers(out.str()), withoutWrappers(viewOf(file)));
}

TEST(SourceView, ManyLinesAreInChunksThatCountOn) {
    const std::string view = viewOf(fileOf(std::u16string(1200, u'\n')));
    EXPECT_EQ(count(view, "class=\"chunk\""), 3u);
    EXPECT_THAT(view,
                HasSubstr("</div></div><div class=\"chunk\" style=\"--before:500;--lines:500\">"
                          "<div class=\"line\" id=\"f0L501\">"));
    EXPECT_THAT(view, HasSubstr("style=\"--before:1000;--lines:201\">"));
}

TEST(SourceView, MarkupAndDirectionsOfTheSourceAreHarmless) {
    const std::string view = viewOf("x = '</script>'; % <!-- \xE2\x80\xAE\n");
    EXPECT_THAT(view, Not(HasSubstr("</script")));
    EXPECT_THAT(view, Not(HasSubstr("<!--")));
    EXPECT_THAT(view, Not(HasSubstr("\xE2\x80\xAE")));
    EXPECT_THAT(view, HasSubstr(">U+202E</span>"));
}

} // namespace ostrel::report::testing
