#include "report/program/Run.h"

#include "frontend/FilePath.h"
#include "report/html/HtmlReport.h"
#include "report/json/JsonReport.h"
#include "report/program/FailOn.h"
#include "report/program/InOrder.h"
#include "report/program/OutputFile.h"
#include "report/program/Progress.h"
#include "report/program/SourceFiles.h"
#include "report/program/TextFor.h"
#include "report/sarif/SarifReport.h"
#include "terminal/Complaint.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <system_error>

namespace ostrel::report {

namespace {

/// The writers, by the name of their format.
struct Format {
    const char* name;
    Highlighting highlighting;
    std::unique_ptr<ReportWriter> (*makeWriter)(std::ostream& out, const Options& options);
};

constexpr std::array<Format, 4> FORMATS{{
    {"text", Highlighting::Unwanted, makeTextWriterFor},
    {"json", Highlighting::Unwanted,
     [](std::ostream& out, const Options&) { return makeJsonWriter(out); }},
    {"sarif", Highlighting::Unwanted,
     [](std::ostream& out, const Options&) { return makeSarifWriter(out); }},
    {"html", Highlighting::Wanted,
     [](std::ostream& out, const Options&) { return makeHtmlWriter(out); }},
}};

void complain(const std::string& message) { std::cerr << complaint("orvex-report", message); }

bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return std::filesystem::equivalent(pathOf(a), pathOf(b), error) && !error;
}

/// Why the report must not go to `output`, or nothing.
std::optional<std::string> objectionTo(const Options& options,
                                       const std::vector<SourceFile>& files) {
    if (options.output.empty()) return std::nullopt;
    for (const SourceFile& file : files) {
        if (isSameFile(options.output, file.path))
            return "--output would overwrite the source file '" + file.path + "'";
    }
    return std::nullopt;
}

const Format& formatOf(const Options& options) {
    return *std::find_if(FORMATS.begin(), FORMATS.end(),
                         [&](const Format& each) { return options.format == each.name; });
}

/// Reads, analyses and writes the files. Returns the highest status of one.
int writeReport(const std::vector<SourceFile>& files, const Options& options,
                const FileReader& read, OutputFile& output) {
    int status = EXIT_READ;
    Progress progress(files.size(), !output.isTerminal());
    const Format& format = formatOf(options);
    const FileWork work{options.checksTrees, format.highlighting};
    const std::unique_ptr<ReportWriter> writer = format.makeWriter(output.stream(), options);
    const auto produce = [&](std::size_t i) {
        progress.next(files[i].path);
        return reportOn(files[i], work, read);
    };
    const auto consume = [&](const FileReport& report) {
        progress.write(report.messages);
        status = std::max(status, report.status);
        if (fails(report.file, options)) status = std::max(status, EXIT_FILE_HAS_ERRORS);
        errno = 0;
        if (report.isListed) writer->write(report.file);
        if (output.isTerminal()) output.stream().flush();
        return output.isGood();
    };
    writer->begin();
    inOrder(files.size(), options.jobs == 0 ? processorCount() : options.jobs, produce, consume);
    writer->end();
    return status;
}

} // namespace

std::vector<std::string> formatNames() {
    std::vector<std::string> names;
    for (const Format& format : FORMATS)
        names.push_back(format.name);
    return names;
}

int run(const Options& options) { return run(options, readSource); }

int run(const Options& options, const FileReader& read) {
    const std::vector<SourceFile> files = findSourceFiles(options.files);
    if (const auto objection = objectionTo(options, files)) {
        complain(*objection);
        return EXIT_CANNOT_DO;
    }
    OutputFile output(options.output);
    int status = EXIT_READ;
    if (output.isGood()) status = writeReport(files, options, read, output);
    if (output.finish()) return status;
    complain("cannot write " +
             (options.output.empty() ? "the report" : "'" + options.output + "'") + ": " +
             output.reason());
    return EXIT_CANNOT_DO;
}

} // namespace ostrel::report
