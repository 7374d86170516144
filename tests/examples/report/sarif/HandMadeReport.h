#pragma once

#include "ReportOf.h"

#include "report/model/Report.h"

#include <string>
#include <string_view>
#include <utility>

namespace ostrel::report::testing {

/// A remark on the first occurrence of `words` in the file.
inline Remark remarkOn(const File& file, RemarkCode code, std::u16string_view words,
                       std::string variable) {
    Remark remark;
    remark.code = code;
    remark.place = file.source.place(file.source.text().find(words), words.size());
    remark.message = "something is wrong with '" + variable + "'";
    remark.help = "do something about it";
    remark.variable = std::move(variable);
    return remark;
}

/// A file that nothing has analysed, with one remark for each code, of which the first has paths.
inline File fileWithEveryRemark() {
    File file;
    file.path = "every.ost";
    file.source = SourceText(u"s = 0;\nparfor k = 1:3\n    s = s + k;\nend\n");
    for (const RemarkRule& rule : remarkRules())
        file.remarks.push_back(remarkOn(file, rule.code, u"s + k", "s"));
    const Place read = file.source.place(30, 1);
    const Place write = file.source.place(26, 1);
    file.remarks.front().paths = {{{write, "'s' is written"}, {read, "the next iteration"}},
                                  {{read, "'s' is read"}}};
    return file;
}

/// Bytes that aren't UTF-8, quotes, blanks, a character that changes the direction of writing, and
/// what has a meaning in a URI.
constexpr const char* HOSTILE_PATH = "/tmp/a b\xFF\x1b\"%#?:\xE2\x80\xAE\xC3\xA9.ost";

} // namespace ostrel::report::testing
