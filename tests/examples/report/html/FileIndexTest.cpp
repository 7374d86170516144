#include "PageOf.h"

#include "report/html/FileIndex.h"

#include <gmock/gmock.h>

namespace ostrel::report::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string indexOf(const std::vector<File>& files) {
    FileIndex index;
    for (const File& file : files)
        index.add(file);
    std::ostringstream out;
    index.write(out);
    return out.str();
}

File unreadable(const std::string& failure) {
    File file;
    file.path = "gone.ost";
    file.failure = failure;
    return file;
}

} // namespace

TEST(FileIndex, OneFileHasTotalsAlone) {
    EXPECT_EQ(indexOf({reportOf("parfor k = 1:3\n  x = ;\nend\n")}),
              "<p class=\"totals\">1 file, 1 construct, 1 error, 0 remarks</p>\n");
}

TEST(FileIndex, RowTellsWhatTheFilterLooksFor) {
    const std::string index =
        indexOf({reportOf("spmd\n  eval('x');\nend\n"), reportOf("parfor k = 1:2\n x = ;\nend\n")});
    EXPECT_THAT(index, HasSubstr("2 files, 2 constructs, 1 error, 1 remark<"));
    EXPECT_THAT(index,
                HasSubstr("<tr data-has=\" remarks code-restricted\"><td><a href=\"#f0\">test.ost"
                          "</a></td><td>1</td><td>0</td><td class=\"has-remarks\">1</td></tr>"));
    EXPECT_THAT(index, HasSubstr("<tr data-has=\" errors role-loop\"><td><a href=\"#f1\">"));
}

TEST(FileIndex, FilterOffersOnlyWhatOccurs) {
    const std::string index = indexOf({reportOf("spmd\n  eval('x');\nend\n"), reportOf("")});
    EXPECT_THAT(index, HasSubstr("<option value=\"code-restricted\">restricted (1)</option>"));
    EXPECT_THAT(index, Not(HasSubstr("code-shared")));
    EXPECT_THAT(index, Not(HasSubstr("value=\"errors\"")));
}

TEST(FileIndex, FileThatCouldNotBeReadIsThereWithItsFailure) {
    const std::string index = indexOf({reportOf(""), unreadable("no such <file>")});
    EXPECT_THAT(index, HasSubstr(", 1 file that could not be read</p>"));
    EXPECT_THAT(index, HasSubstr("<tr data-has=\"failure\"><td><a href=\"#f1\">gone.ost</a> <span "
                                 "class=\"failure\">could not be read: no such &lt;file&gt;"));
}

} // namespace ostrel::report::testing
