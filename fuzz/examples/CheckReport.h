#pragma once

#include "Require.h"
#include "report/analysis/Analyze.h"
#include "report/html/HtmlReport.h"
#include "report/json/JsonReport.h"
#include "report/sarif/SarifReport.h"
#include "report/text/TextReport.h"
#include "terminal/DisplayText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string>
#include <utility>

namespace zt::orvex::fuzz {

/// Whether the text is UTF-8 and without characters that no terminal should get.
inline bool isCleanText(std::string text, bool isColored) {
    if (isColored) text.erase(std::remove(text.begin(), text.end(), '\x1b'), text.end());
    if (ostrel::hasUnsafeCharacter(text)) return false;
    return ostrel::SourceText::validUtf8Prefix(text) == text.size();
}

inline void checkTextReport(const ostrel::report::Report& report, bool isColored,
                            std::size_t width) {
    using ostrel::report::Detail;
    for (const Detail detail : {Detail::Full, Detail::Quiet}) {
        std::ostringstream text;
        writeTextReport(text, report, {isColored, width}, detail);
        require(isCleanText(text.str(), isColored), "the text report is clean");
    }
}

inline void checkJsonReport(const ostrel::report::Report& report) {
    std::ostringstream text;
    writeJsonReport(text, report);
    const nlohmann::json parsed = nlohmann::json::parse(text.str(), nullptr, false);
    require(!parsed.is_discarded(), "the JSON report is JSON");
    const nlohmann::json& files = parsed["files"];
    require(files.size() == report.files.size(), "it has each file");
    for (std::size_t i = 0; i < report.files.size(); ++i) {
        require(files[i]["constructs"].size() == report.files[i].constructs.size(),
                "and each construct");
    }
}

inline void checkSarifReport(const ostrel::report::Report& report) {
    std::ostringstream text;
    writeSarifReport(text, report);
    const nlohmann::json parsed = nlohmann::json::parse(text.str(), nullptr, false);
    require(!parsed.is_discarded(), "the SARIF report is JSON");
    std::size_t expected = 0;
    for (const ostrel::report::File& file : report.files)
        expected += file.diagnostics.size() + file.remarks.size();
    require(parsed["runs"][0]["results"].size() == expected, "it has each error and remark");
}

inline void checkHtmlReport(const ostrel::report::Report& report) {
    std::ostringstream text;
    writeHtmlReport(text, report);
    require(ostrel::SourceText::validUtf8Prefix(text.str()) == text.str().size(),
            "the page is UTF-8");
    require(text.str().find("</html>") != std::string::npos, "the page is complete");
}

/// Every format of the report on the file.
inline void checkReport(ostrel::ParsedFile file, bool isColored, std::size_t width) {
    ostrel::report::Report report;
    report.files.push_back(ostrel::report::analyze(std::move(file)));
    checkTextReport(report, isColored, width);
    checkJsonReport(report);
    checkSarifReport(report);
    checkHtmlReport(report);
}

} // namespace zt::orvex::fuzz
