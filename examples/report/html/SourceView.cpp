#include "report/html/SourceView.h"

#include "report/html/Escape.h"
#include "report/html/Links.h"
#include "report/html/Messages.h"
#include "report/html/RoleMarks.h"
#include "source/SortByOffset.h"

#include <algorithm>
#include <map>
#include <ostream>
#include <string_view>

namespace ostrel::report {

namespace {

/// A browser lays out chunks in view only.
constexpr std::size_t LINES_OF_CHUNK = 500;

const char* styleOf(SyntaxKind kind) {
    switch (kind) {
    case SyntaxKind::Keyword:
        return "keyword";
    case SyntaxKind::Number:
        return "number";
    case SyntaxKind::Text:
        return "text";
    case SyntaxKind::Comment:
        break;
    }
    return "comment";
}

/// What a variable looks like at one of its places.
struct Appearance {
    const Variable* variable = nullptr;
    std::vector<std::string> keys; ///< Innermost construct last.
};

/// The words in reverse order, separated by blanks.
std::string reversed(const std::vector<std::string>& words) {
    std::string text;
    for (auto word = words.rbegin(); word != words.rend(); ++word)
        text += (text.empty() ? "" : " ") + *word;
    return text;
}

} // namespace

SourceView::SourceView(std::ostream& stream, const File& shown, std::size_t fileNumber)
    : out(stream), file(shown), number(fileNumber), pieces(findMarkedPieces(shown)) {
    addSyntax();
    addVariables();
    sortByOffset(tokens, [](const Token& token) { return token.offset; });
}

void SourceView::addSyntax() {
    for (const SyntaxSpan& span : file.syntax) {
        tokens.push_back({span.offset, span.offset + span.length,
                          std::string("class=\"") + styleOf(span.kind) + "\""});
    }
}

/// A place in nested constructs looks as the innermost one has it, and has the keys of all.
void SourceView::addVariables() {
    std::map<std::size_t, Appearance> appearances;
    for (std::size_t c = 0; c < file.constructs.size(); ++c) {
        const std::vector<Variable>& variables = file.constructs[c].variables;
        for (std::size_t v = 0; v < variables.size(); ++v) {
            for (const Place& place : variables[v].places) {
                Appearance& entry = appearances[place.offset];
                entry.variable = &variables[v]; // an inner construct comes later
                entry.keys.push_back(variableKey(c, v));
            }
        }
    }
    for (const auto& [offset, entry] : appearances) {
        tokens.push_back({offset, offset + entry.variable->places.front().length,
                          std::string("class=\"variable ") + markOf(entry.variable->role).style +
                              "\" data-keys=\"" + reversed(entry.keys) + "\""});
    }
}

void SourceView::writeLines(std::size_t first, std::size_t last) {
    out << "<div class=\"lines\">";
    for (std::size_t line = first; line <= last; line += LINES_OF_CHUNK)
        writeChunk(line, std::min(last, line + LINES_OF_CHUNK - 1));
    out << "</div>\n";
}

/// The style sheet numbers the lines, and needs the height of a chunk before it is laid out.
void SourceView::writeChunk(std::size_t first, std::size_t last) {
    out << "<div class=\"chunk\" style=\"--before:" << first - 1 << ";--lines:" << last - first + 1
        << "\">";
    for (std::size_t line = first; line <= last; ++line) {
        writeLine(line);
        writeMessages(line);
    }
    out << "</div>";
}

std::size_t SourceView::lineBegin(std::size_t line) const {
    if (line > file.source.lineCount()) return file.source.size() + 1;
    return static_cast<std::size_t>(file.source.line(line).data() - file.source.text().data());
}

void SourceView::writeLine(std::size_t line) {
    const std::size_t next = lineBegin(line + 1);
    std::size_t at = lineBegin(line);
    const std::size_t end = at + file.source.line(line).size();
    const auto isHere = [&] {
        return nextPiece < pieces.size() && pieces[nextPiece].offset < next;
    };
    const char* const sign = !isHere()                   ? ""
                             : pieces[nextPiece].isError ? " has-error"
                                                         : " has-remark";
    out << "<div class=\"line" << sign << "\" id=\"" << lineId(number, line) << "\">";
    while (isHere()) {
        const MarkedPiece& piece = pieces[nextPiece];
        const std::size_t from = std::min(std::max(piece.offset, at), end);
        const std::size_t to = std::max(from, std::min(piece.end, end));
        writeTokens(at, from);
        writeMarked(piece, from, to);
        at = to;
        if (piece.end > next) break; // continues on the next line
        ++nextPiece;
    }
    writeTokens(at, end);
    out << "</div>";
}

void SourceView::writeMarked(const MarkedPiece& piece, std::size_t from, std::size_t to) {
    out << "<span class=\"at " << (piece.isError ? "error" : "remark") << "\">";
    writeTokens(from, to);
    out << "</span>";
}

/// Writes a part of a line.
void SourceView::writeTokens(std::size_t from, std::size_t to) {
    std::size_t at = from;
    for (; nextToken < tokens.size() && tokens[nextToken].offset < to; ++nextToken) {
        const Token& token = tokens[nextToken];
        const std::size_t begin = std::max(token.offset, at);
        const std::size_t end = std::min(token.end, to);
        writeText(at, std::max(at, begin));
        if (end > begin) {
            out << "<span " << token.attributes << '>';
            writeText(begin, end);
            out << "</span>";
        }
        at = std::max(at, std::max(begin, end));
        if (token.end > to) break; // continues in the next part
    }
    writeText(at, to);
}

void SourceView::writeText(std::size_t from, std::size_t to) {
    if (to > from) out << escaped(std::u16string_view(file.source.text()).substr(from, to - from));
}

/// Errors and remarks that begin on the line.
void SourceView::writeMessages(std::size_t line) {
    for (; nextDiagnostic < file.diagnostics.size(); ++nextDiagnostic) {
        const Diagnostic& diagnostic = file.diagnostics[nextDiagnostic];
        if (diagnostic.place.line > line) break;
        writeBelowLine(out, diagnostic);
    }
    for (; nextRemark < file.remarks.size(); ++nextRemark) {
        const Remark& remark = file.remarks[nextRemark];
        if (remark.place.line > line) break;
        writeBelowLine(out, remark, remarkId(number, nextRemark));
    }
}

} // namespace ostrel::report
