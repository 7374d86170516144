#include "PageOf.h"

#include "report/html/Cards.h"

#include <gmock/gmock.h>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string cardOf(const File& file, std::size_t construct = 0) {
    std::ostringstream out;
    Cards(out, file, 0).write(construct);
    return out.str();
}

/// A remark on a variable of the first construct, with a path of one step at each piece.
Remark remarkOn(const File& file, const std::string& variable,
                const std::vector<std::u16string_view>& pieces) {
    Remark remark;
    remark.message = "it is <carried>";
    remark.help = "don't";
    remark.construct = 0;
    remark.variable = variable;
    for (const std::u16string_view piece : pieces)
        remark.paths.push_back({{placeOf(file, piece), "a & b"}});
    if (!pieces.empty()) remark.place = placeOf(file, pieces.front());
    return remark;
}

const char* const SUM = "parfor k = 1:3\n  s = sum + k;\n  sum = k;\nend\n";

} // namespace

TEST(Cards, HeadingNamesTheStatementItsPlaceAndTheOneAroundIt) {
    const File file = reportOf("function f\nspmd\n  parfor k = 1:2, x = k; end\nend\nend\n");
    EXPECT_THAT(cardOf(file, 1),
                HasSubstr("<code>parfor k</code>, <a href=\"#f0L3\" "
                          "data-at=\"3:3-3:9\">3:3</a>, in <code>f</code>, inside "
                          "the <a href=\"#f0L2\" data-at=\"2:1-2:5\">spmd on line 2</a></h3>"));
}

TEST(Cards, ReadAndWrittenColumnsLinkToThePlaces) {
    EXPECT_THAT(
        cardOf(reportOf(SUM)),
        HasSubstr("<td><a href=\"#f0L2\" data-at=\"2:7-2:10\" tabindex=\"-1\">2:7</a></td>"
                  "<td><a href=\"#f0L3\" data-at=\"3:3-3:6\" tabindex=\"-1\">3:3</a></td></tr>"));
}

TEST(Cards, ReadThatIsAPartialWriteIsCalledSo) {
    EXPECT_THAT(cardOf(reportOf("parfor k = 1:3\n  x(k) = 1;\nend\n")),
                HasSubstr(">2:3</a> written in part</td>"));
}

TEST(Cards, OnlyTheFirstRowIsATabStop) {
    const std::string card = cardOf(reportOf(SUM));
    EXPECT_EQ(count(card, "<tr tabindex=\"0\""), 1u);
    EXPECT_EQ(count(card, "<tr tabindex=\"-1\""), 2u);
    EXPECT_EQ(count(card, "class=\"reason\" tabindex=\"-1\""), count(card, "class=\"reason\""));
}

TEST(Cards, RemarkIsListedWithItsCodeHelpAndNumberedSteps) {
    File file = reportOf(SUM);
    file.remarks = {remarkOn(file, "sum", {u"sum =", u"sum +"})};
    const std::string card = cardOf(file);
    EXPECT_THAT(card, HasSubstr("<b>remark:</b> it is &lt;carried&gt; <code>[carried]</code>"));
    EXPECT_THAT(card, HasSubstr("<p class=\"help\"><b>help:</b> don&#39;t</p>"));
    EXPECT_THAT(card, HasSubstr("<div class=\"path\" hidden><p>how the value leaves its iteration:"
                                "</p><ol start=\"1\"><li><a href=\"#f0L3\" "
                                "data-at=\"3:3-3:8\">a &amp; b</a></li></ol></div>"
                                "<div class=\"path\" hidden><p>how another iteration reads it:</p>"
                                "<ol start=\"2\">"));
}

TEST(Cards, ReasonOfAVariableLeadsToTheRemarkThatProvesIt) {
    File file = reportOf(SUM);
    file.remarks = {remarkOn(file, "sum", {})};
    EXPECT_THAT(cardOf(file), Not(HasSubstr("class=\"reason\" tabindex=\"-1\" "
                                            "aria-pressed=\"false\" data-remark")));
    file.remarks.push_back(remarkOn(file, "sum", {u"sum ="}));
    EXPECT_EQ(count(cardOf(file), "class=\"reason\" tabindex=\"-1\" aria-pressed=\"false\" "
                                  "data-remark=\"f0r1\""),
              1u);
}

TEST(Cards, RemarkOfAnotherConstructIsNotListed) {
    File file = reportOf(std::string(SUM) + "spmd\nend\n");
    file.remarks.push_back(remarkOn(file, "sum", {u"sum ="}));
    EXPECT_THAT(cardOf(file, 1), Not(HasSubstr("remark")));
    EXPECT_THAT(cardOf(file, 1), HasSubstr("<p>It names no variable.</p>"));
}

} // namespace ostrel::report::testing
