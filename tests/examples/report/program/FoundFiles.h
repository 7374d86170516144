#pragma once

#include "RunReport.h"
#include "report/program/SourceFiles.h"

#include <string>
#include <vector>

namespace ostrel::report::testing {

/// The paths that arguments stand for, relative to the folder; the ones that stand for no file are
/// marked.
inline std::vector<std::string> found(const ScratchFolder& scratch,
                                      const std::vector<std::string>& arguments) {
    std::vector<std::string> paths;
    for (const SourceFile& file : findSourceFiles(arguments)) {
        const char* const mark = file.kind == SourceFile::Kind::UnreadableFolder ? "unreadable "
                                 : file.kind == SourceFile::Kind::EmptyFolder    ? "empty "
                                                                                 : "";
        const std::string folder = scratch.path("");
        const bool isInside = file.path.rfind(folder, 0) == 0;
        paths.push_back(mark + (isInside ? file.path.substr(folder.size()) : file.path));
    }
    return paths;
}

inline std::vector<std::string> foundIn(const ScratchFolder& scratch) {
    return found(scratch, {scratch.path("")});
}

} // namespace ostrel::report::testing
