#pragma once

#include "ReportOf.h"
#include "report/html/HtmlReport.h"

#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

namespace ostrel::report::testing {

inline std::string pageOf(const Report& report) {
    std::ostringstream out;
    writeHtmlReport(out, report);
    return out.str();
}

inline std::string pageOf(File file) {
    Report report;
    report.files.push_back(std::move(file));
    return pageOf(report);
}

inline std::string pageOf(std::string_view source, const std::string& path = "test.ost") {
    File file = reportOf(source);
    file.path = path;
    return pageOf(std::move(file));
}

inline std::size_t count(const std::string& page, std::string_view what) {
    std::size_t found = 0;
    for (std::size_t at = page.find(what); at != std::string::npos; at = page.find(what, at + 1))
        ++found;
    return found;
}

/// The place of the only appearance of `piece` in a file.
inline Place placeOf(const File& file, std::u16string_view piece) {
    const std::size_t at = file.source.text().find(piece);
    EXPECT_NE(at, std::u16string::npos);
    EXPECT_EQ(file.source.text().find(piece, at + 1), std::u16string::npos);
    return file.source.place(at, piece.size());
}

} // namespace ostrel::report::testing
