#include "report/text/TextReport.h"

#include "report/text/RoleText.h"
#include "terminal/DisplayText.h"
#include "terminal/SourceSnippet.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::report {

namespace {

/// Emphasis; `sequenceOf` gives the escape sequence.
enum class Tone { Plain, Heading, Faint, Error, Warning, Help, Loop, Private, Shared, Result };

constexpr const char* RESET = "\x1b[0m";

const char* sequenceOf(Tone tone) {
    constexpr std::array<const char*, 10> SEQUENCES{
        "",         "\x1b[1m",  "\x1b[2m",  "\x1b[1;31m", "\x1b[1;33m",
        "\x1b[36m", "\x1b[36m", "\x1b[32m", "\x1b[33m",   "\x1b[35m"};
    return SEQUENCES[static_cast<std::size_t>(tone)];
}

Tone toneOf(Role role) {
    switch (role) {
    case Role::LoopVariable:
        return Tone::Loop;
    case Role::Temporary:
    case Role::Sliced:
    case Role::Reduction:
        return Tone::Private;
    case Role::Output:
        return Tone::Result;
    case Role::Shared:
    case Role::Carried:
    case Role::Updated:
        return Tone::Shared;
    case Role::ReadFromOutside:
        return Tone::Plain;
    case Role::NotUsed:
        return Tone::Faint;
    }
    return Tone::Plain;
}

std::string placeText(const std::string& path, std::size_t line, std::size_t column) {
    return displayed(path) + ":" + std::to_string(line) + ":" + std::to_string(column);
}

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

/// Breaks a text into lines of at most `width` columns, between words; a longer word stays whole.
std::vector<std::string> wrap(std::string_view text, std::size_t width) {
    std::vector<std::string> lines(1);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!lines.back().empty() && lines.back().size() + 1 + word.size() > width)
            lines.emplace_back();
        if (!lines.back().empty()) lines.back() += ' ';
        lines.back() += word;
    }
    return lines;
}

std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

class TextWriter : public ReportWriter {
public:
    TextWriter(std::ostream& stream, const TextStyle& textStyle) : out(stream), style(textStyle) {}

    void begin() override {}

    void write(const File& file) override {
        if (totals.files > 0) out << '\n';
        writeFile(file);
        ++totals.files;
        totals.constructs += file.constructs.size();
        totals.errors += file.diagnostics.size();
        totals.remarks += file.remarks.size();
    }

    void end() override {
        if (totals.files > 1) writeSummary();
    }

private:
    /// More would only hide what follows; the other formats have them all.
    static constexpr std::size_t MAX_ERRORS = 100;
    static constexpr std::size_t MIN_NOTE_WIDTH = 30;
    static constexpr std::size_t INDENT = 4;

    void paint(Tone tone, std::string_view text) {
        const bool isPainted = style.isColored && tone != Tone::Plain && !text.empty();
        if (isPainted) out << sequenceOf(tone);
        out << text;
        if (isPainted) out << RESET;
    }

    void writeFile(const File& file) {
        writeErrors(file);
        for (const Construct& construct : file.constructs) {
            separate(file, construct);
            write(file, construct);
        }
        if (file.constructs.empty()) {
            paint(Tone::Heading, displayed(file.path));
            out << ": no parfor or spmd statement"
                << (file.hasErrors() ? " in what could be parsed" : "") << '\n';
        }
        writeRemarks(file, std::nullopt);
    }

    /// Those of a construct, or those that belong to none.
    void writeRemarks(const File& file, std::optional<std::size_t> construct) {
        for (const Remark& remark : file.remarks) {
            if (remark.construct != construct) continue;
            out << '\n';
            write(file, remark);
        }
    }

    void separate(const File& file, const Construct& construct) {
        if (&construct != &file.constructs.front() || file.hasErrors()) out << '\n';
    }

    void writeErrors(const File& file) {
        const std::size_t shown = std::min(file.diagnostics.size(), MAX_ERRORS);
        for (std::size_t i = 0; i < shown; ++i) {
            const Diagnostic& diagnostic = file.diagnostics[i];
            const bool isError = diagnostic.severity == Severity::Error;
            writeMessage(file, diagnostic.place, isError ? Tone::Error : Tone::Warning,
                         isError ? "error" : "warning", diagnostic.message);
        }
        if (shown < file.diagnostics.size())
            out << displayed(file.path) << ": " << file.diagnostics.size() - shown
                << " more errors\n";
    }

    void write(const File& file, const Remark& remark) {
        writeMessage(file, remark.place, Tone::Warning, "remark",
                     remark.message + " [" + std::string(nameOf(remark.code)) + "]");
        const std::size_t indent = gutterOf(remark.place).size();
        const std::string_view label = "help: ";
        const std::vector<std::string> lines =
            wrap(displayed(remark.help), columnsAfter(indent + label.size()));
        for (std::size_t i = 0; i < lines.size(); ++i) {
            out << std::string(indent, ' ');
            if (i == 0) paint(Tone::Help, label);
            out << (i == 0 ? "" : std::string(label.size(), ' ')) << lines[i] << '\n';
        }
    }

    /// `path:line:column: error: message`, the line, and a caret.
    void writeMessage(const File& file, const Place& place, Tone tone, std::string_view severity,
                      const std::string& message) {
        paint(Tone::Heading, placeText(file.path, place.line, place.column) + ":");
        out << ' ';
        paint(tone, std::string(severity) + ":");
        out << ' ' << displayed(message) << '\n';
        const std::string gutter = gutterOf(place);
        const SourceSnippet snippet =
            cutSnippet(file.source, place, columnsAfter(gutter.size() + 2));
        paint(Tone::Faint, gutter + "|");
        out << ' ' << snippet.source << '\n';
        paint(Tone::Faint, std::string(gutter.size(), ' ') + "|");
        out << ' ';
        paint(tone, snippet.marker);
        out << '\n';
    }

    static std::string gutterOf(const Place& place) {
        std::string number = std::to_string(place.line);
        return std::string(number.size() < 5 ? 5 - number.size() : 0, ' ') + number + " ";
    }

    std::size_t columnsAfter(std::size_t used) const {
        return style.width > used + MIN_NOTE_WIDTH ? style.width - used : MIN_NOTE_WIDTH;
    }

    void write(const File& file, const Construct& construct) {
        writeHeading(file, construct);
        writeTable(construct);
        writeRemarks(file, static_cast<std::size_t>(&construct - file.constructs.data()));
    }

    void writeHeading(const File& file, const Construct& construct) {
        const std::string place =
            placeText(file.path, construct.keyword.line, construct.keyword.column);
        std::string what = keywordOf(construct.kind);
        if (construct.kind == ConstructKind::Parfor) what += " over " + construct.loopVariable;
        const std::string& scope = file.scopes[construct.scope].name;
        if (!scope.empty()) what += ", in function " + scope;
        if (construct.enclosing) {
            const Construct& outer = file.constructs[*construct.enclosing];
            what += std::string(", inside the ") + keywordOf(outer.kind) + " on line " +
                    std::to_string(outer.keyword.line);
        }
        paint(Tone::Heading, place + ": " + what);
        out << '\n';
    }

    /// The widths of the first two columns of a table.
    struct Columns {
        std::size_t name = 0;
        std::size_t role = 0;
    };

    static bool isListed(const Variable& variable) {
        return variable.isInBody || variable.role == Role::LoopVariable;
    }

    void writeTable(const Construct& construct) {
        Columns columns;
        for (const Variable& variable : construct.variables) {
            if (!isListed(variable)) continue;
            columns.name = std::max(columns.name, variable.name.size());
            columns.role = std::max(columns.role, std::string_view(nameOf(variable.role)).size());
        }
        if (columns.name == 0) {
            out << std::string(INDENT, ' ') << "The body names no variable.\n";
            return;
        }
        for (const Variable& variable : construct.variables) {
            if (isListed(variable)) writeRow(variable, columns);
        }
    }

    /// The note follows the role, or goes below it if there is too little room.
    void writeRow(const Variable& variable, const Columns& columns) {
        const std::string note = noteOf(variable);
        const std::string_view role = nameOf(variable.role);
        const std::size_t noteColumn = INDENT + columns.name + 2 + columns.role + 2;
        const bool isOnSameLine = noteColumn + MIN_NOTE_WIDTH <= style.width;
        out << std::string(INDENT, ' ') << padded(variable.name, columns.name) << "  ";
        paint(toneOf(variable.role), role);
        if (note.empty()) {
            out << '\n';
            return;
        }
        const std::size_t indent = isOnSameLine ? noteColumn : INDENT * 2;
        out << (isOnSameLine ? std::string(columns.role - role.size() + 2, ' ')
                             : "\n" + std::string(indent, ' '));
        const std::vector<std::string> lines = wrap(note, columnsAfter(indent));
        for (std::size_t i = 0; i < lines.size(); ++i)
            out << (i == 0 ? "" : std::string(indent, ' ')) << lines[i] << '\n';
    }

    void writeSummary() {
        const auto& [files, constructs, errors, remarks] = totals;
        out << '\n';
        paint(Tone::Heading, counted(files, "file"));
        out << ": " << counted(constructs, "construct") << ", ";
        paint(errors == 0 ? Tone::Plain : Tone::Error, counted(errors, "error"));
        out << ", ";
        paint(remarks == 0 ? Tone::Plain : Tone::Warning, counted(remarks, "remark"));
        out << '\n';
    }

    struct Totals {
        std::size_t files = 0;
        std::size_t constructs = 0;
        std::size_t errors = 0;
        std::size_t remarks = 0;
    };

    std::ostream& out;
    const TextStyle style;
    Totals totals;
};

} // namespace

std::unique_ptr<ReportWriter> makeTextWriter(std::ostream& out, const TextStyle& style) {
    return std::make_unique<TextWriter>(out, style);
}

void writeTextReport(std::ostream& out, const Report& report, const TextStyle& style) {
    writeAll(*makeTextWriter(out, style), report);
}

} // namespace ostrel::report
