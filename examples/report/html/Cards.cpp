#include "report/html/Cards.h"

#include "report/html/Escape.h"
#include "report/html/Links.h"
#include "report/html/Messages.h"
#include "report/html/RoleMarks.h"
#include "report/text/RoleText.h"

#include <ostream>

namespace ostrel::report {

Cards::Cards(std::ostream& stream, const File& shown, std::size_t fileNumber)
    : out(stream), file(shown), number(fileNumber), remarksOf(shown.constructs.size()) {
    for (std::size_t i = 0; i < file.remarks.size(); ++i) {
        const Remark& remark = file.remarks[i];
        if (!remark.construct) continue;
        remarksOf[*remark.construct].push_back(i);
        if (!remark.paths.empty()) proofs.emplace(std::pair(*remark.construct, remark.variable), i);
    }
}

void Cards::write(std::size_t construct) {
    const Construct& shown = file.constructs[construct];
    const std::string id = cardId(number, construct);
    out << "<section class=\"card\" id=\"" << id << "\" aria-labelledby=\"" << id
        << "h\" data-kind=\"" << keywordOf(shown.kind) << "\" data-first=\"" << shown.keyword.line
        << "\" data-last=\"" << shown.extent.endLine << "\">\n";
    writeHeading(construct);
    writeRemarks(construct);
    writeTable(construct);
    out << "</section>\n";
}

void Cards::writeHeading(std::size_t construct) {
    const Construct& shown = file.constructs[construct];
    out << "<h3 id=\"" << cardId(number, construct) << "h\"><code>" << keywordOf(shown.kind);
    if (!shown.loopVariable.empty()) out << ' ' << escaped(shown.loopVariable);
    out << "</code>, " << linkTo(number, shown.keyword);
    const std::string& scope = file.scopes[shown.scope].name;
    if (!scope.empty()) out << ", in <code>" << escaped(scope) << "</code>";
    if (shown.enclosing) {
        const Construct& outer = file.constructs[*shown.enclosing];
        const std::string text =
            std::string(keywordOf(outer.kind)) + " on line " + std::to_string(outer.keyword.line);
        out << ", inside the " << linkTo(number, outer.keyword, text);
    }
    out << "</h3>\n";
}

void Cards::writeTable(std::size_t construct) {
    const std::vector<Variable>& variables = file.constructs[construct].variables;
    if (variables.empty()) {
        out << "<p>It names no variable.</p>\n";
        return;
    }
    out << "<table role=\"grid\" aria-labelledby=\"" << cardId(number, construct) << "h\">\n"
        << "<thead><tr><th scope=\"col\">Variable</th><th scope=\"col\">What it is</th>"
           "<th scope=\"col\">First read</th><th scope=\"col\">Last written</th></tr></thead>\n"
           "<tbody>\n";
    for (std::size_t variable = 0; variable < variables.size(); ++variable)
        writeRow(construct, variable);
    out << "</tbody>\n</table>\n";
}

/// One row of the grid can be reached by the tabulator key; the arrow keys lead to the others.
void Cards::writeRow(std::size_t construct, std::size_t index) {
    const Variable& variable = file.constructs[construct].variables[index];
    const RoleMark& mark = markOf(variable.role);
    out << "<tr tabindex=\"" << (index == 0 ? 0 : -1) << "\" aria-selected=\"false\" data-keys=\""
        << variableKey(construct, index) << "\"><td><code>" << escaped(variable.name)
        << "</code></td><td class=\"" << mark.style << "\">" << roleLabel(mark, roleText(variable));
    writeReason(variable, construct);
    out << "</td><td>";
    writeRead(variable);
    out << "</td><td>";
    if (variable.lastWrite) out << linkInGrid(number, *variable.lastWrite);
    out << "</td></tr>\n";
}

void Cards::writeReason(const Variable& variable, std::size_t construct) {
    const std::string note = noteOf(variable);
    if (note.empty()) return;
    const auto proof = proofs.find({construct, variable.name});
    out << "<button class=\"reason\" tabindex=\"-1\" aria-pressed=\"false\"";
    if (proof != proofs.end()) out << " data-remark=\"" << remarkId(number, proof->second) << '"';
    out << '>' << escaped(note) << "</button>";
}

void Cards::writeRead(const Variable& variable) {
    if (!variable.firstRead) return;
    out << linkInGrid(number, *variable.firstRead);
    if (variable.isFirstReadPartialWrite) out << " written in part";
}

void Cards::writeRemarks(std::size_t construct) {
    if (remarksOf[construct].empty()) return;
    out << "<ul class=\"messages\">\n";
    for (const std::size_t remark : remarksOf[construct])
        writeItem(out, file.remarks[remark], number, remark);
    out << "</ul>\n";
}

} // namespace ostrel::report
