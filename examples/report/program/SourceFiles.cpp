#include "report/program/SourceFiles.h"

#include "frontend/FilePath.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>

namespace ostrel::report {

namespace {

namespace fs = std::filesystem;
using Kind = SourceFile::Kind;

bool hasSourceName(const std::string& path) {
    constexpr std::string_view ENDING = ".ost";
    return path.size() >= ENDING.size() &&
           path.compare(path.size() - ENDING.size(), ENDING.size(), ENDING) == 0;
}

/// The search through one folder. It keeps a list of folders still to read, so that no depth of
/// folders is too much for the stack.
class FolderSearch {
public:
    std::vector<SourceFile> run(const fs::path& top) {
        pending.push_back(top);
        while (!pending.empty()) {
            const fs::path folder = std::move(pending.back());
            pending.pop_back();
            read(folder);
        }
        if (found.empty()) found.push_back({textOf(top), Kind::EmptyFolder, ""});
        std::sort(found.begin(), found.end(),
                  [](const SourceFile& a, const SourceFile& b) { return a.path < b.path; });
        return std::move(found);
    }

private:
    void read(const fs::path& folder) {
        std::error_code error;
        fs::directory_iterator entry(folder, error);
        while (!error && entry != fs::directory_iterator()) {
            add(*entry);
            entry.increment(error);
        }
        if (error) found.push_back({textOf(folder), Kind::UnreadableFolder, error.message()});
    }

    void add(const fs::directory_entry& entry) {
        std::error_code ignored;
        if (fs::is_directory(entry.symlink_status(ignored))) {
            pending.push_back(entry.path());
            return;
        }
        const std::string path = textOf(entry.path());
        if (hasSourceName(path) && entry.is_regular_file(ignored))
            found.push_back({path, Kind::File, ""});
    }

    std::vector<fs::path> pending;
    std::vector<SourceFile> found;
};

} // namespace

std::vector<SourceFile> findSourceFiles(const std::vector<std::string>& arguments) {
    std::vector<SourceFile> all;
    for (const std::string& argument : arguments) {
        std::error_code ignored;
        if (argument != "-" && fs::is_directory(pathOf(argument), ignored)) {
            std::vector<SourceFile> found = FolderSearch().run(pathOf(argument));
            std::move(found.begin(), found.end(), std::back_inserter(all));
        } else {
            all.push_back({argument, Kind::File, ""});
        }
    }
    return all;
}

} // namespace ostrel::report
