#pragma once

#include "frontend/ParsedFile.h"
#include "report/analysis/Analyze.h"
#include "report/model/Report.h"
#include "report/program/SourceFiles.h"

#include <functional>
#include <string>

namespace ostrel::report {

/// Exit statuses; the highest that applies wins.
constexpr int EXIT_READ = 0;
constexpr int EXIT_FILE_HAS_ERRORS = 1; ///< Or a remark of `--fail-on`, or a wrong tree.
constexpr int EXIT_CANNOT_DO = 2;

/// The parsed file at a path. Throws std::runtime_error if it can't be read. Several threads may
/// call it at the same time.
using FileReader = std::function<ParsedFile(const std::string& path)>;

/// Reads from the file system, or from standard input if the path is `-`.
ParsedFile readSource(const std::string& path);

/// What became of one file.
struct FileReport {
    File file;
    bool isListed = false; ///< Whether `file` belongs in the report.
    std::string messages;  ///< For standard error: whole lines, safe for a terminal.
    int status = EXIT_READ;
};

/// What is done with each file.
struct FileWork {
    bool checksTree = false; ///< Whether the tree is checked before it is analysed.
    Highlighting highlighting = Highlighting::Wanted;
};

/// Reads, parses and analyses a file. What can't be read, or not within the memory, has a message
/// and a `failure`. A file whose tree is found wrong isn't listed: on such a tree an analysis may
/// give wrong answers, or not end.
FileReport reportOn(const SourceFile& source, const FileWork& work, const FileReader& read);

} // namespace ostrel::report
