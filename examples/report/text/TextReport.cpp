#include "report/text/TextReport.h"

#include "report/text/RoleText.h"
#include "terminal/DisplayText.h"
#include "terminal/MessageWriter.h"
#include "terminal/Tone.h"
#include "terminal/Wrap.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::report {

namespace {

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

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

class TextWriter : public ReportWriter {
public:
    TextWriter(std::ostream& stream, const TextStyle& textStyle)
        : out(stream), style(textStyle), messages(stream, textStyle) {}

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

    void paint(Tone tone, std::string_view text) { out << painted(style, tone, text); }

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
            messages.write(file.path, file.source, diagnostic.place,
                           {isError ? Tone::Error : Tone::Warning, isError ? "error" : "warning",
                            diagnostic.message, diagnostic.help});
        }
        if (shown < file.diagnostics.size())
            out << displayed(file.path) << ": " << file.diagnostics.size() - shown
                << " more errors\n";
    }

    void write(const File& file, const Remark& remark) {
        messages.write(file.path, file.source, remark.place,
                       {Tone::Warning, "remark",
                        remark.message + " [" + std::string(nameOf(remark.code)) + "]",
                        remark.help});
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
        const std::string place = placeText(file.path, construct.keyword);
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
    MessageWriter messages;
};

} // namespace

std::unique_ptr<ReportWriter> makeTextWriter(std::ostream& out, const TextStyle& style) {
    return std::make_unique<TextWriter>(out, style);
}

void writeTextReport(std::ostream& out, const Report& report, const TextStyle& style) {
    writeAll(*makeTextWriter(out, style), report);
}

} // namespace ostrel::report
