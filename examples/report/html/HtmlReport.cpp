#include "report/html/HtmlReport.h"

#include "report/html/Cards.h"
#include "report/html/Escape.h"
#include "report/html/FileIndex.h"
#include "report/html/Links.h"
#include "report/html/Messages.h"
#include "report/html/PageParts.h"
#include "report/html/RoleMarks.h"
#include "report/html/SourceView.h"

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace ostrel::report {

namespace {

/// So many lines are written as elements of the page; a file that begins later is kept as text.
constexpr std::size_t LINES_AT_ONCE = 3000;

/// Consecutive constructs that share lines, with those that they contain.
struct Group {
    std::size_t firstLine;
    std::size_t lastLine;
    std::size_t begin; ///< In `File::constructs`.
    std::size_t end;   ///< Likewise, one after the last.
};

std::vector<Group> groupsOf(const File& file) {
    std::vector<Group> groups;
    for (std::size_t i = 0; i < file.constructs.size(); ++i) {
        const Construct& construct = file.constructs[i];
        const std::size_t last = construct.extent.endLine;
        if (groups.empty() || construct.keyword.line > groups.back().lastLine)
            groups.push_back({construct.keyword.line, last, i, i});
        groups.back().lastLine = std::max(groups.back().lastLine, last);
        groups.back().end = i + 1;
    }
    return groups;
}

class HtmlWriter : public ReportWriter {
public:
    explicit HtmlWriter(std::ostream& stream) : out(stream) {}

    void begin() override {
        out << PAGE_UNTIL_LETTERS << letterRules() << PAGE_UNTIL_LEGEND << legend()
            << PAGE_UNTIL_FILES;
    }

    void write(const File& file) override {
        index.add(file);
        // The heading can't name the section: browsers leave it out while it is out of view.
        out << "<section class=\"file\" id=\"" << fileId(number) << "\" aria-label=\""
            << escapedValue(file.path) << "\" style=\"--lines:" << file.source.lineCount()
            << "\">\n<h2>" << escaped(file.path) << "</h2>\n";
        if (file.failure.empty())
            writeContent(file);
        else
            out << "<p class=\"failure\">Could not be read: " << escaped(file.failure) << "</p>\n";
        out << "</section>\n";
        ++number;
    }

    void end() override {
        out << PAGE_UNTIL_INDEX;
        index.write(out);
        out << PAGE_REST;
    }

private:
    void writeContent(const File& file) {
        writeTotals(file);
        const bool isKept = lines > LINES_AT_ONCE;
        lines += file.source.lineCount();
        // Nothing in it can end the script element, since every `<` of the source is escaped.
        if (isKept) out << "<script type=\"text/plain\">";
        writeFileMessages(out, file, number);
        writeSource(file);
        if (isKept) out << "</script>\n";
    }

    void writeTotals(const File& file) {
        out << "<p class=\"totals\">";
        if (file.constructs.empty())
            out << "No parfor or spmd statement";
        else
            out << counted(file.constructs.size(), "construct");
        out << ", " << counted(file.diagnostics.size(), "error") << ", "
            << counted(file.remarks.size(), "remark") << "</p>\n";
    }

    void writeSource(const File& file) {
        SourceView source(out, file, number);
        Cards cards(out, file, number);
        out << "<div class=\"source" << (file.constructs.empty() ? "" : " has-cards") << "\">\n";
        std::size_t line = 1;
        for (const Group& group : groupsOf(file)) {
            if (line < group.firstLine) source.writeLines(line, group.firstLine - 1);
            out << "<div class=\"group\" style=\"--lines:" << group.lastLine - group.firstLine + 1
                << "\">\n";
            source.writeLines(group.firstLine, group.lastLine);
            out << "<div class=\"cards\">\n";
            for (std::size_t construct = group.begin; construct < group.end; ++construct)
                cards.write(construct);
            out << "</div>\n</div>\n";
            line = group.lastLine + 1;
        }
        if (line <= file.source.lineCount()) source.writeLines(line, file.source.lineCount());
        out << "</div>\n";
    }

    std::ostream& out;
    FileIndex index;
    std::size_t number = 0; ///< Of files so far.
    std::size_t lines = 0;  ///< Of all files so far.
};

} // namespace

std::unique_ptr<ReportWriter> makeHtmlWriter(std::ostream& out) {
    return std::make_unique<HtmlWriter>(out);
}

void writeHtmlReport(std::ostream& out, const Report& report) {
    writeAll(*makeHtmlWriter(out), report);
}

} // namespace ostrel::report
