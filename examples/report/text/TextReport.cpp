#include "report/text/TextReport.h"

#include "report/text/RemarkWriter.h"
#include "report/text/VariableTable.h"
#include "terminal/DisplayText.h"
#include "terminal/MessageWriter.h"
#include "terminal/Tone.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace ostrel::report {

namespace {

/// More would only hide what follows; the other formats have them all.
constexpr std::size_t MAX_ERRORS = 100;

std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// Such as `parfor over k, in function f, inside the spmd on line 2`.
std::string describe(const File& file, const Construct& construct) {
    std::string what = keywordOf(construct.kind);
    if (construct.kind == ConstructKind::Parfor) what += " over " + construct.loopVariable;
    const std::string& scope = file.scopes[construct.scope].name;
    if (!scope.empty()) what += ", in function " + scope;
    if (construct.enclosing) {
        const Construct& outer = file.constructs[*construct.enclosing];
        what += std::string(", inside the ") + keywordOf(outer.kind) + " on line " +
                std::to_string(outer.keyword.line);
    }
    return what;
}

/// The remarks of a file by what they are about, each list in source order.
struct RemarksByConstruct {
    explicit RemarksByConstruct(const File& file) : of(file.constructs.size()) {
        for (const Remark& remark : file.remarks)
            (remark.construct ? of[*remark.construct] : others).push_back(&remark);
    }

    std::vector<std::vector<const Remark*>> of; ///< By the index of the construct.
    std::vector<const Remark*> others;
};

class TextWriter : public ReportWriter {
public:
    TextWriter(std::ostream& stream, const TextStyle& textStyle, Detail howMuch)
        : out(stream), style(textStyle), detail(howMuch), messages(stream, textStyle),
          remarks(stream, textStyle), tables(stream, textStyle) {}

    void begin() override {}

    void write(const File& file) override {
        count(file);
        if (!file.failure.empty()) return; // whoever tried to read it has said so
        writeErrors(file);
        if (detail == Detail::Quiet) {
            for (const Remark& remark : file.remarks)
                writeRemark(file, remark);
        } else {
            writeConstructs(file);
        }
    }

    void end() override {
        if (totals.files > 1 && detail == Detail::Full) writeSummary();
    }

private:
    /// Separates what follows from what was written before by a blank line.
    void beginParagraph() {
        if (!isFirst) out << '\n';
        isFirst = false;
    }

    void paint(Tone tone, std::string_view text) { out << painted(style, tone, text); }

    void writeErrors(const File& file) {
        const std::size_t shown = std::min(file.diagnostics.size(), MAX_ERRORS);
        for (std::size_t i = 0; i < shown; ++i) {
            beginParagraph();
            const Diagnostic& diagnostic = file.diagnostics[i];
            const bool isError = diagnostic.severity == Severity::Error;
            messages.write(file.path, file.source, diagnostic.place,
                           {isError ? Tone::Error : Tone::Warning, isError ? "error" : "warning",
                            diagnostic.message, diagnostic.help});
        }
        if (shown == file.diagnostics.size()) return;
        beginParagraph();
        out << displayed(file.path) << ": "
            << counted(file.diagnostics.size() - shown, "more error") << '\n';
    }

    void writeRemark(const File& file, const Remark& remark) {
        beginParagraph();
        remarks.write(file, remark);
    }

    void writeConstructs(const File& file) {
        const RemarksByConstruct grouped(file);
        for (std::size_t i = 0; i < file.constructs.size(); ++i) {
            const Construct& construct = file.constructs[i];
            beginParagraph();
            paint(Tone::Heading,
                  placeText(file.path, construct.keyword) + ": " + describe(file, construct));
            out << '\n';
            tables.write(construct);
            for (const Remark* remark : grouped.of[i])
                writeRemark(file, *remark);
        }
        if (file.constructs.empty()) writeNoConstruct(file);
        for (const Remark* remark : grouped.others)
            writeRemark(file, *remark);
    }

    void writeNoConstruct(const File& file) {
        beginParagraph();
        paint(Tone::Heading, displayed(file.path));
        out << ": no parfor or spmd statement"
            << (file.hasErrors() ? " in what could be parsed" : "") << '\n';
    }

    struct Totals {
        std::size_t files = 0;
        std::size_t unreadable = 0;
        std::size_t constructs = 0;
        std::size_t errors = 0;
        std::size_t remarks = 0;
    };

    void count(const File& file) {
        ++totals.files;
        if (!file.failure.empty()) ++totals.unreadable;
        totals.constructs += file.constructs.size();
        totals.errors += file.diagnostics.size();
        totals.remarks += file.remarks.size();
    }

    void writeSummary() {
        beginParagraph();
        paint(Tone::Heading, counted(totals.files, "file"));
        if (totals.unreadable > 0) {
            out << ", ";
            paint(Tone::Error, std::to_string(totals.unreadable) + " unreadable");
        }
        out << ": " << counted(totals.constructs, "construct") << ", ";
        paint(totals.errors == 0 ? Tone::Plain : Tone::Error, counted(totals.errors, "error"));
        out << ", ";
        paint(totals.remarks == 0 ? Tone::Plain : Tone::Warning, counted(totals.remarks, "remark"));
        out << '\n';
    }

    std::ostream& out;
    const TextStyle style;
    const Detail detail;
    MessageWriter messages;
    RemarkWriter remarks;
    VariableTable tables;
    bool isFirst = true;
    Totals totals;
};

} // namespace

std::unique_ptr<ReportWriter> makeTextWriter(std::ostream& out, const TextStyle& style,
                                             Detail detail) {
    return std::make_unique<TextWriter>(out, style, detail);
}

void writeTextReport(std::ostream& out, const Report& report, const TextStyle& style,
                     Detail detail) {
    writeAll(*makeTextWriter(out, style, detail), report);
}

} // namespace ostrel::report
