#include "report/program/Run.h"

#include "frontend/InputFile.h"
#include "report/analysis/Analyze.h"
#include "report/analysis/TreeCheck.h"
#include "report/html/HtmlReport.h"
#include "report/json/JsonReport.h"
#include "report/program/FailOn.h"
#include "report/program/Progress.h"
#include "report/program/TextFor.h"
#include "report/sarif/SarifReport.h"
#include "terminal/Complaint.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <new>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace ostrel::report {

namespace {

/// The writers, by the name of their format.
struct Format {
    const char* name;
    std::unique_ptr<ReportWriter> (*makeWriter)(std::ostream& out, const Options& options);
};

constexpr std::array<Format, 4> FORMATS{{
    {"text", makeTextWriterFor},
    {"json", [](std::ostream& out, const Options&) { return makeJsonWriter(out); }},
    {"sarif", [](std::ostream& out, const Options&) { return makeSarifWriter(out); }},
    {"html", [](std::ostream& out, const Options&) { return makeHtmlWriter(out); }},
}};

void complain(const std::string& message) { std::cerr << complaint("orvex-report", message); }

/// Why a file that isn't UTF-8 can't be read, and where it stops being UTF-8.
std::string reasonOf(const ParsedFile& parsed) {
    if (parsed.diagnostics.empty()) return "the file is not UTF-8";
    const Diagnostic& first = parsed.diagnostics.front();
    return "line " + std::to_string(first.place.line) + ", column " +
           std::to_string(first.place.column) + ": " + first.message;
}

/// Throws std::runtime_error if the file can't be read.
ParsedFile readFile(const std::string& path) {
    ParsedFile parsed = parseOstrel(path, readInput(path));
    if (!parsed.isUtf8) throw std::runtime_error(reasonOf(parsed));
    return parsed;
}

/// Whether the tree of a file may be analysed. On a wrong tree an analysis may give wrong answers,
/// or not end. The findings are gathered first, since the line of progress must be erased before
/// they are written.
bool mayAnalyze(const ParsedFile& parsed, const Options& options, Progress& progress) {
    if (!options.checksTrees) return true;
    std::ostringstream errors;
    if (isTreeCorrect(parsed, errors)) return true;
    progress.erase();
    std::cerr << errors.str();
    return false;
}

bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return std::filesystem::equivalent(a, b, error) && !error;
}

/// Why the report must not go to `output`, or nothing.
std::optional<std::string> objectionTo(const Options& options) {
    for (const std::string& path : options.files) {
        if (!options.output.empty() && isSameFile(options.output, path))
            return "--output would overwrite the source file '" + path + "'";
    }
    return std::nullopt;
}

bool write(std::ostream& out, const Options& options, const Report& report) {
    const auto format = std::find_if(FORMATS.begin(), FORMATS.end(), [&](const Format& each) {
        return options.format == each.name;
    });
    writeAll(*format->makeWriter(out, options), report);
    out.flush();
    return out.good();
}

int writeTo(const Options& options, const Report& report) {
    errno = 0;
    std::ofstream file;
    if (!options.output.empty()) file.open(options.output, std::ios::binary);
    const std::string target = options.output.empty() ? "the report" : "'" + options.output + "'";
    std::ostream& out = options.output.empty() ? std::cout : file;
    if (out.good() && write(out, options, report)) return EXIT_READ;
    complain("cannot write " + target + ": " +
             (errno != 0 ? std::strerror(errno) : "writing failed"));
    return EXIT_CANNOT_DO;
}

} // namespace

std::vector<std::string> formatNames() {
    std::vector<std::string> names;
    for (const Format& format : FORMATS)
        names.push_back(format.name);
    return names;
}

int run(const Options& options) { return run(options, readFile); }

int run(const Options& options, const FileReader& read) {
    if (const auto objection = objectionTo(options)) {
        complain(*objection);
        return EXIT_CANNOT_DO;
    }
    int status = EXIT_READ;
    Report report;
    Progress progress(options.files.size());
    const auto leaveOut = [&](const std::string& path, const char* reason) {
        progress.erase();
        complain("cannot read '" + path + "': " + reason);
        status = EXIT_CANNOT_DO;
    };
    for (const std::string& path : options.files) {
        progress.next(path);
        try {
            ParsedFile parsed = read(path);
            if (!mayAnalyze(parsed, options, progress)) {
                status = std::max(status, EXIT_FILE_HAS_ERRORS);
                continue;
            }
            report.files.push_back(analyze(std::move(parsed)));
            const File& file = report.files.back();
            if (file.hasErrors() || fails(file, options))
                status = std::max(status, EXIT_FILE_HAS_ERRORS);
        } catch (const std::runtime_error& error) {
            leaveOut(path, error.what());
        } catch (const std::bad_alloc&) {
            leaveOut(path, "not enough memory");
        }
    }
    progress.erase();
    return std::max(status, writeTo(options, report));
}

} // namespace ostrel::report
