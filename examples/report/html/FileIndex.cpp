#include "report/html/FileIndex.h"

#include "report/html/Escape.h"
#include "report/html/Links.h"
#include "report/html/RoleMarks.h"
#include "report/text/RoleText.h"

#include <bitset>
#include <ostream>
#include <string_view>

namespace ostrel::report {

namespace {

/// The codes and roles that occur in a file.
struct Occurring {
    std::bitset<8> codes;
    std::bitset<10> roles;
};

Occurring occurringIn(const File& file) {
    Occurring occurring;
    for (const Remark& remark : file.remarks)
        occurring.codes.set(static_cast<std::size_t>(remark.code));
    for (const Construct& construct : file.constructs) {
        for (const Variable& variable : construct.variables)
            occurring.roles.set(static_cast<std::size_t>(variable.role));
    }
    return occurring;
}

/// The words by which the filter finds a file.
std::string wordsOf(const File& file, const Occurring& occurring) {
    std::string words = !file.failure.empty() ? "failure" : "";
    if (file.hasErrors()) words += " errors";
    if (!file.remarks.empty()) words += " remarks";
    for (const RemarkRule& rule : remarkRules()) {
        if (occurring.codes[static_cast<std::size_t>(rule.code)])
            words += " code-" + std::string(rule.name);
    }
    for (const RoleMark& mark : roleMarks()) {
        if (occurring.roles[static_cast<std::size_t>(mark.role)])
            words += std::string(" ") + mark.style;
    }
    return words;
}

/// A count, in a style if there is something to count.
std::string cell(std::size_t count, const char* style) {
    const bool isStyled = count > 0 && style != nullptr;
    return (isStyled ? std::string("<td class=\"") + style + "\">" : "<td>") +
           std::to_string(count) + "</td>";
}

void writeOption(std::ostream& out, std::string_view word, std::string_view text,
                 std::size_t files) {
    if (files > 0)
        out << "<option value=\"" << word << "\">" << text << " (" << files << ")</option>\n";
}

} // namespace

std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void FileIndex::add(const File& file) {
    const Occurring occurring = occurringIn(file);
    rows += "<tr data-has=\"" + wordsOf(file, occurring) + "\"><td><a href=\"#" + fileId(files) +
            "\">" + escaped(file.path) + "</a>";
    if (file.failure.empty()) {
        rows += "</td>" + cell(file.constructs.size(), nullptr) +
                cell(file.diagnostics.size(), "has-errors") +
                cell(file.remarks.size(), "has-remarks") + "</tr>\n";
    } else {
        rows += " <span class=\"failure\">could not be read: " + escaped(file.failure) +
                "</span></td><td></td><td></td><td></td></tr>\n";
    }
    ++files;
    constructs += file.constructs.size();
    errors += file.diagnostics.size();
    remarks += file.remarks.size();
    if (file.hasErrors()) ++withErrors;
    if (!file.remarks.empty()) ++withRemarks;
    if (!file.failure.empty()) ++notRead;
    for (std::size_t i = 0; i < withCode.size(); ++i) {
        if (occurring.codes[i]) ++withCode[i];
    }
    for (std::size_t i = 0; i < withRole.size(); ++i) {
        if (occurring.roles[i]) ++withRole[i];
    }
}

void FileIndex::write(std::ostream& out) const {
    out << "<p class=\"totals\">" << counted(files, "file") << ", "
        << counted(constructs, "construct") << ", " << counted(errors, "error") << ", "
        << counted(remarks, "remark");
    if (notRead > 0) out << ", " << counted(notRead, "file") << " that could not be read";
    out << "</p>\n";
    if (files < 2) return;
    writeFilter(out);
    out << "<div class=\"rows\"><table>\n<thead><tr><th scope=\"col\">File</th>"
           "<th scope=\"col\">Constructs</th><th scope=\"col\">Errors</th>"
           "<th scope=\"col\">Remarks</th></tr></thead>\n<tbody id=\"files\">\n"
        << rows << "</tbody>\n</table></div>\n";
}

void FileIndex::writeFilter(std::ostream& out) const {
    out << "<form class=\"filter\" role=\"search\" aria-label=\"Files\">\n"
           "<label>Name <input type=\"search\" id=\"filter-name\"></label>\n"
           "<label>With <select id=\"filter-word\">\n<option value=\"\">anything</option>\n";
    writeOption(out, "errors", "errors", withErrors);
    writeOption(out, "remarks", "remarks", withRemarks);
    writeOption(out, "failure", "a failure to read", notRead);
    out << "<optgroup label=\"a remark\">\n";
    for (const RemarkRule& rule : remarkRules()) {
        writeOption(out, "code-" + std::string(rule.name), rule.name,
                    withCode[static_cast<std::size_t>(rule.code)]);
    }
    out << "</optgroup>\n<optgroup label=\"a variable\">\n";
    for (const RoleMark& mark : roleMarks())
        writeOption(out, mark.style, nameOf(mark.role),
                    withRole[static_cast<std::size_t>(mark.role)]);
    out << "</optgroup>\n</select></label>\n<output id=\"filter-count\">" << counted(files, "file")
        << "</output>\n</form>\n";
}

} // namespace ostrel::report
