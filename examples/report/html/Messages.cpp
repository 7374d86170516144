#include "report/html/Messages.h"

#include "report/html/Escape.h"
#include "report/html/Links.h"

#include <algorithm>
#include <ostream>

namespace ostrel::report {

namespace {

const char* wordOf(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

/// `remark: message [code]`.
std::string sentenceOf(const Remark& remark) {
    return "<b>remark:</b> " + escaped(remark.message) + " <code>[" + escaped(nameOf(remark.code)) +
           "]</code>";
}

std::string sentenceOf(const Diagnostic& diagnostic) {
    return std::string("<b>") + wordOf(diagnostic.severity) + ":</b> " +
           escaped(diagnostic.message);
}

std::string helpOf(const std::string& help) {
    return help.empty() ? "" : "<p class=\"help\"><b>help:</b> " + escaped(help) + "</p>";
}

void writeItem(std::ostream& out, const Diagnostic& diagnostic, std::size_t file) {
    out << "<li class=\"error\">" << linkTo(file, diagnostic.place) << " <span>"
        << sentenceOf(diagnostic) << "</span>" << helpOf(diagnostic.help) << "</li>\n";
}

/// The steps of all paths of a remark are numbered together, since they are shown together.
void writePaths(std::ostream& out, const Remark& remark, std::size_t file) {
    std::size_t steps = 0;
    for (std::size_t i = 0; i < remark.paths.size(); ++i) {
        out << "<div class=\"path\" hidden>";
        if (remark.paths.size() > 1)
            out << "<p>" << escaped(introductionOf(remark.code, i)) << "</p>";
        out << "<ol start=\"" << steps + 1 << "\">";
        for (const Step& step : remark.paths[i])
            out << "<li>" << linkTo(file, step.place, escaped(step.note)) << "</li>";
        out << "</ol></div>";
        steps += remark.paths[i].size();
    }
}

} // namespace

void writeBelowLine(std::ostream& out, const Diagnostic& diagnostic) {
    out << "<div class=\"below error\">" << sentenceOf(diagnostic) << "</div>";
}

void writeBelowLine(std::ostream& out, const Remark& remark, const std::string& id) {
    out << "<button class=\"below remark\" aria-pressed=\"false\" data-remark=\"" << id << "\">"
        << sentenceOf(remark) << "</button>";
}

void writeFileMessages(std::ostream& out, const File& file, std::size_t number) {
    const bool hasOwnRemarks = std::any_of(file.remarks.begin(), file.remarks.end(),
                                           [](const Remark& remark) { return !remark.construct; });
    if (file.diagnostics.empty() && !hasOwnRemarks) return;
    out << "<ul class=\"messages\">\n";
    for (const Diagnostic& diagnostic : file.diagnostics)
        writeItem(out, diagnostic, number);
    for (std::size_t i = 0; i < file.remarks.size(); ++i) {
        if (!file.remarks[i].construct) writeItem(out, file.remarks[i], number, i);
    }
    out << "</ul>\n";
}

void writeItem(std::ostream& out, const Remark& remark, std::size_t file, std::size_t index) {
    const std::string id = remarkId(file, index);
    out << "<li class=\"remark\" id=\"" << id << "\">" << linkTo(file, remark.place)
        << " <button class=\"show\" aria-pressed=\"false\" data-remark=\"" << id << "\">"
        << sentenceOf(remark) << "</button>" << helpOf(remark.help);
    writePaths(out, remark, file);
    out << "</li>\n";
}

} // namespace ostrel::report
