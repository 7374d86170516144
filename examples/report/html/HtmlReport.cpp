#include "report/html/HtmlReport.h"

#include "report/html/HtmlPage.h"
#include "report/text/RoleText.h"
#include "source/UnsafeCharacters.h"
#include "source/Utf8.h"
#include "terminal/DisplayText.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ostrel::report {

namespace {

/// The look of a role: its class in the style sheet, and its letter.
struct Mark {
    const char* style;
    char letter;
};

Mark markOf(Role role) {
    switch (role) {
    case Role::LoopVariable:
        return {"role-loop", 'L'};
    case Role::Temporary:
        return {"role-temporary", 'T'};
    case Role::Sliced:
        return {"role-sliced", 'S'};
    case Role::Output:
        return {"role-output", 'O'};
    case Role::ReadFromOutside:
        return {"role-outside", 'R'};
    case Role::Carried:
        return {"role-carried", 'C'};
    case Role::Updated:
        return {"role-updated", 'U'};
    case Role::Shared:
        return {"role-shared", 'H'};
    case Role::Reduction:
        return {"role-reduction", 'D'};
    case Role::NotUsed:
        break;
    }
    return {"role-unused", 'N'};
}

const char* styleOf(SyntaxKind kind) {
    switch (kind) {
    case SyntaxKind::Keyword:
        return "keyword";
    case SyntaxKind::Number:
        return "number-literal";
    case SyntaxKind::Text:
        return "text";
    case SyntaxKind::Comment:
        break;
    }
    return "comment";
}

/// Appends a character escaped for elements and attributes.
void appendEscaped(std::string& out, char32_t character) {
    switch (character) {
    case U'&':
        out += "&amp;";
        break;
    case U'<':
        out += "&lt;";
        break;
    case U'>':
        out += "&gt;";
        break;
    case U'"':
        out += "&quot;";
        break;
    case U'\'':
        out += "&#39;";
        break;
    default:
        // Tabs are the only control characters allowed in a page.
        appendUtf8(out, character < 0x20 && character != U'\t' ? U'?' : character);
    }
}

/// A boxed word in place of something that can't be shown.
std::string boxed(const std::string& text, const std::string& title) {
    return "<span class=\"letter error\" title=\"" + title + "\">" + text + "</span>";
}

/// UTF-8 as the content of an element. What changes the direction of writing becomes the boxed name
/// of the character, and a byte that isn't UTF-8 a boxed U+FFFD.
std::string escaped(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Utf8Piece piece = utf8PieceAt(text, at);
        at += piece.length;
        if (!piece.isValid) {
            out += boxed("\xEF\xBF\xBD", "a byte that is not UTF-8");
        } else if (isDirectionControl(piece.value)) {
            out += boxed(codePointName(piece.value), "changes the direction of writing");
        } else {
            appendEscaped(out, piece.value);
        }
    }
    return out;
}

/// The key of a variable of a construct: a click marks all elements that have it.
std::string keyOf(std::size_t file, std::size_t construct, std::size_t variable) {
    return "v" + std::to_string(file) + "-" + std::to_string(construct) + "-" +
           std::to_string(variable);
}

std::string lineId(std::size_t file, std::size_t line) {
    return "f" + std::to_string(file) + "L" + std::to_string(line);
}

/// A piece of the source, and the attributes of the tag around it.
struct Span {
    std::size_t offset;
    std::size_t length;
    std::string tag;
};

class HtmlWriter : public ReportWriter {
public:
    explicit HtmlWriter(std::ostream& stream) : out(stream) {}

    void begin() override {
        out << HTML_HEAD << "<header>\n<h1>Ostrel report</h1>\n"
            << HTML_LEGEND << "</header>\n<main>\n";
    }

    void write(const File& file) override {
        if (file.failure.empty()) writeFile(file, written++);
    }

    void end() override { out << "</main>\n" << HTML_FOOT; }

private:
    void writeFile(const File& file, std::size_t number) {
        out << "<section class=\"file\">\n<h2>" << escaped(file.path) << "</h2>\n";
        writeErrors(file, number);
        out << "<div class=\"columns\">\n";
        writeSource(file, number);
        out << "<div class=\"tables\">\n";
        if (file.constructs.empty()) out << "<p>No parfor or spmd statement.</p>\n";
        for (std::size_t i = 0; i < file.constructs.size(); ++i)
            writeConstruct(file, number, i);
        writeRemarks(file, std::nullopt, number);
        out << "</div>\n</div>\n</section>\n";
    }

    void writeErrors(const File& file, std::size_t number) {
        if (file.diagnostics.empty()) return;
        out << "<ul class=\"messages\">\n";
        for (const Diagnostic& diagnostic : file.diagnostics) {
            out << "<li class=\"error\">"
                << linkTo(number, diagnostic.place.line, diagnostic.place.column)
                << ": error: " << escaped(diagnostic.message) << "</li>\n";
        }
        out << "</ul>\n";
    }

    static std::string linkTo(std::size_t file, std::size_t line, std::size_t column) {
        return "<a href=\"#" + lineId(file, line) + "\">" + std::to_string(line) + ":" +
               std::to_string(column) + "</a>";
    }

    // The source ------------------------------------------------------------------------------

    void writeSource(const File& file, std::size_t number) {
        const std::vector<Span> spans = findSpans(file, number);
        const std::vector<bool> isInside = findLinesInside(file);
        auto span = spans.begin();
        out << "<div class=\"source\" role=\"region\" tabindex=\"0\" aria-label=\"Source\">";
        for (std::size_t line = 1; line <= file.source.lineCount(); ++line) {
            const std::string id = lineId(number, line);
            out << "<span class=\"line" << (isInside[line] ? " inside" : "") << "\" id=\"" << id
                << "\"><a class=\"number\" tabindex=\"-1\" href=\"#" << id << "\">" << line
                << "</a>";
            writeLine(file, line, spans, span);
            out << "</span>";
        }
        out << "</div>\n";
    }

    /// Continues at `span`, the first one that may extend into the line.
    void writeLine(const File& file, std::size_t line, const std::vector<Span>& spans,
                   std::vector<Span>::const_iterator& span) {
        const std::u16string_view all = file.source.text();
        const std::u16string_view text = file.source.line(line);
        const auto begin = static_cast<std::size_t>(text.data() - all.data());
        const std::size_t end = begin + text.size();
        std::size_t at = begin;
        while (span != spans.end() && span->offset < end) {
            const std::size_t from = std::max(span->offset, at);
            const std::size_t to = std::min(span->offset + span->length, end);
            writeText(all.substr(at, from - at));
            if (to > from) {
                out << "<span " << span->tag << '>';
                writeText(all.substr(from, to - from));
                out << "</span>";
                at = to;
            }
            if (span->offset + span->length > end) return; // continues on the next line
            ++span;
        }
        writeText(all.substr(at, end - at));
    }

    void writeText(std::u16string_view text) { out << escaped(toUtf8(text)); }

    static std::vector<bool> findLinesInside(const File& file) {
        std::vector<bool> isInside(file.source.lineCount() + 1, false);
        std::size_t marked = 0; // the lines of nested constructs are done
        for (const Construct& construct : file.constructs) {
            const std::size_t end = construct.extent.offset + construct.extent.length;
            const std::size_t last = file.source.position(end).line;
            for (std::size_t line = std::max(construct.keyword.line, marked + 1); line <= last;
                 ++line)
                isInside[line] = true;
            marked = std::max(marked, last);
        }
        return isInside;
    }

    static std::vector<Span> findSpans(const File& file, std::size_t number) {
        std::vector<Span> spans;
        for (const SyntaxSpan& syntax : file.syntax) {
            spans.push_back({syntax.offset, syntax.length,
                             std::string("class=\"") + styleOf(syntax.kind) + "\""});
        }
        addVariables(file, number, spans);
        std::stable_sort(spans.begin(), spans.end(),
                         [](const Span& a, const Span& b) { return a.offset < b.offset; });
        return spans;
    }

    /// A place in nested constructs looks as the innermost one has it, and has the keys of all.
    static void addVariables(const File& file, std::size_t number, std::vector<Span>& spans) {
        struct Appearance {
            const Variable* variable;
            std::vector<std::string> keys; // innermost last
        };
        std::map<std::size_t, Appearance> appearances;
        for (std::size_t c = 0; c < file.constructs.size(); ++c) {
            const std::vector<Variable>& variables = file.constructs[c].variables;
            for (std::size_t v = 0; v < variables.size(); ++v) {
                for (const Place& place : variables[v].places) {
                    Appearance& entry = appearances[place.offset];
                    entry.variable = &variables[v]; // an inner construct comes later
                    entry.keys.push_back(keyOf(number, c, v));
                }
            }
        }
        for (const auto& [offset, entry] : appearances) {
            const Mark mark = markOf(entry.variable->role);
            const std::string& name = entry.variable->name; // an identifier needs no escapes
            spans.push_back({offset, entry.variable->places.front().length,
                             std::string("class=\"variable ") + mark.style + "\" data-letter=\"" +
                                 mark.letter + "\" data-keys=\"" + reversed(entry.keys) +
                                 "\" title=\"" + name + ": " + nameOf(entry.variable->role) +
                                 "\""});
        }
    }

    /// The words in reverse order, separated by blanks.
    static std::string reversed(const std::vector<std::string>& words) {
        std::string text;
        for (auto word = words.rbegin(); word != words.rend(); ++word)
            text += (text.empty() ? "" : " ") + *word;
        return text;
    }

    // The tables ------------------------------------------------------------------------------

    void writeConstruct(const File& file, std::size_t number, std::size_t index) {
        const Construct& construct = file.constructs[index];
        out << "<div class=\"construct\" data-kind=\"" << wordOf(construct.kind) << "\">\n<h3>"
            << wordOf(construct.kind);
        if (!construct.loopVariable.empty()) out << ' ' << escaped(construct.loopVariable);
        out << ", " << linkTo(number, construct.keyword.line, construct.keyword.column);
        const std::string& scope = file.scopes[construct.scope].name;
        if (!scope.empty()) out << ", in " << escaped(scope);
        out << "</h3>\n";
        writeTable(construct, number, index);
        writeRemarks(file, index, number);
        out << "</div>\n";
    }

    static const char* wordOf(ConstructKind kind) {
        return kind == ConstructKind::Parfor ? "parfor" : "spmd";
    }

    void writeTable(const Construct& construct, std::size_t number, std::size_t index) {
        if (construct.variables.empty()) {
            out << "<p>It names no variable.</p>\n";
            return;
        }
        out << "<table role=\"grid\">\n<thead><tr><th scope=\"col\">Variable</th>"
               "<th scope=\"col\">What it is</th><th "
               "scope=\"col\">Lines</th></tr></thead>\n<tbody>\n";
        for (std::size_t v = 0; v < construct.variables.size(); ++v)
            writeRow(construct.variables[v], number, keyOf(number, index, v));
        out << "</tbody>\n</table>\n";
    }

    void writeRow(const Variable& variable, std::size_t number, const std::string& key) {
        const Mark mark = markOf(variable.role);
        out << "<tr tabindex=\"0\" aria-selected=\"false\" data-keys=\"" << key << "\" data-role=\""
            << mark.letter << "\" data-name=\"" << variable.name << "\"><td><code>" << variable.name
            << "</code></td><td><span class=\"letter " << mark.style << "\">" << mark.letter
            << "</span><span class=\"" << mark.style << "\">" << nameOf(variable.role) << "</span>";
        const std::string note = noteOf(variable);
        if (!note.empty()) out << "<div class=\"note\">" << escaped(note) << "</div>";
        out << "</td><td>";
        if (variable.firstRead) writePlace("read first", number, *variable.firstRead);
        if (variable.firstRead && variable.lastWrite) out << "<br>";
        if (variable.lastWrite) writePlace(writeWord(variable), number, *variable.lastWrite);
        out << "</td></tr>\n";
    }

    static const char* writeWord(const Variable& variable) {
        return variable.role == Role::Carried ? "carried by" : "last written";
    }

    void writePlace(const char* what, std::size_t number, const Place& place) {
        out << what << ' ' << linkTo(number, place.line, place.column);
    }

    void writeRemarks(const File& file, std::optional<std::size_t> construct, std::size_t number) {
        std::string items;
        for (const Remark& remark : file.remarks) {
            if (remark.construct != construct) continue;
            items += "<li>" + linkTo(number, remark.place.line, remark.place.column) +
                     ": remark: " + escaped(remark.message) + " <span class=\"help\">" +
                     escaped(remark.help) + "</span></li>\n";
        }
        if (!items.empty()) out << "<ul class=\"warnings\">\n" << items << "</ul>\n";
    }

    std::ostream& out;
    std::size_t written = 0; ///< The number of files so far.
};

} // namespace

std::unique_ptr<ReportWriter> makeHtmlWriter(std::ostream& out) {
    return std::make_unique<HtmlWriter>(out);
}

void writeHtmlReport(std::ostream& out, const Report& report) {
    writeAll(*makeHtmlWriter(out), report);
}

} // namespace ostrel::report
