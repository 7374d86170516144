#include "report/program/FileReport.h"

#include "frontend/InputFile.h"
#include "report/analysis/TreeCheck.h"
#include "terminal/Complaint.h"

#include <new>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace ostrel::report {

namespace {

/// Why a file that isn't UTF-8 can't be read, and where it stops being UTF-8.
std::string reasonOf(const ParsedFile& parsed) {
    if (parsed.diagnostics.empty()) return "the file is not UTF-8";
    const Diagnostic& first = parsed.diagnostics.front();
    return "line " + std::to_string(first.place.line) + ", column " +
           std::to_string(first.place.column) + ": " + first.message;
}

FileReport failed(const std::string& path, const std::string& reason) {
    FileReport report;
    report.file.path = path;
    report.file.failure = reason;
    report.isListed = true;
    report.messages = complaint("orvex-report", "cannot read '" + path + "': " + reason);
    report.status = EXIT_CANNOT_DO;
    return report;
}

FileReport withoutFiles(const std::string& folder) {
    FileReport report;
    report.messages = complaint("orvex-report", "no .ost file in '" + folder + "'");
    return report;
}

FileReport analyzed(ParsedFile parsed, const FileWork& work) {
    FileReport report;
    std::ostringstream findings;
    if (work.checksTree && !isTreeCorrect(parsed, findings)) {
        report.messages = findings.str();
        report.status = EXIT_FILE_HAS_ERRORS;
        return report;
    }
    report.file = analyze(std::move(parsed), work.highlighting);
    report.isListed = true;
    if (report.file.hasErrors()) report.status = EXIT_FILE_HAS_ERRORS;
    return report;
}

} // namespace

ParsedFile readSource(const std::string& path) {
    ParsedFile parsed = parseOstrel(path, readInput(path));
    if (!parsed.isUtf8) throw std::runtime_error(reasonOf(parsed));
    return parsed;
}

FileReport reportOn(const SourceFile& source, const FileWork& work, const FileReader& read) {
    switch (source.kind) {
    case SourceFile::Kind::UnreadableFolder:
        return failed(source.path, source.reason);
    case SourceFile::Kind::EmptyFolder:
        return withoutFiles(source.path);
    case SourceFile::Kind::File:
        break;
    }
    try {
        return analyzed(read(source.path), work);
    } catch (const std::runtime_error& error) {
        return failed(source.path, error.what());
    } catch (const std::bad_alloc&) {
        return failed(source.path, "not enough memory");
    }
}

} // namespace ostrel::report
