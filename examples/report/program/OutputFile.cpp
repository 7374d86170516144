#include "report/program/OutputFile.h"

#include "frontend/FilePath.h"
#include "report/program/NewFile.h"
#include "terminal/Terminal.h"

#include <cerrno>
#include <cstring>
#include <iostream>
#include <system_error>

namespace ostrel::report {

namespace {

namespace fs = std::filesystem;

/// Whether a path isn't that of a file that could be replaced.
bool isWrittenDirectly(const fs::path& path) {
    if (hasNameOfDevice(path)) return true;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

/// What a symbolic link leads to, so that the link is kept.
fs::path resolved(const fs::path& path) {
    std::error_code error;
    const fs::path result = fs::canonical(path, error);
    return error ? path : result;
}

} // namespace

OutputFile::OutputFile(const std::string& name)
    : isStandard(name.empty()), isShown(isStandard && ostrel::isTerminal(stdout)) {
    errno = 0;
    if (isStandard) return;
    const fs::path path = pathOf(name);
    if (isWrittenDirectly(path)) {
        file.open(path, std::ios::binary);
    } else {
        target = resolved(path);
        openBeside();
    }
    isGood();
}

OutputFile::~OutputFile() {
    if (temporary.empty()) return;
    file.close(); // Windows removes no file that is open
    std::error_code ignored;
    fs::remove(temporary, ignored);
}

void OutputFile::openBeside() {
    std::error_code ignored;
    if (fs::is_directory(target, ignored)) return fail(EISDIR);
    if (fs::exists(target, ignored)) {
        if (const int objection = objectionToWriting(target)) return fail(objection);
    }
    const fs::path folder = target.parent_path();
    openTemporary(folder.empty() ? "." : folder);
}

/// Takes the first name that is free.
void OutputFile::openTemporary(const fs::path& folder) {
    const std::string stem = ".orvex-report-" + std::to_string(processNumber()) + "-";
    int number = 0;
    do {
        temporary = folder / (stem + std::to_string(number++));
        errno = createNewFile(temporary, target);
    } while (errno == EEXIST);
    if (errno != 0) {
        temporary.clear();
        return fail(errno);
    }
    file.open(temporary, std::ios::binary);
}

std::ostream& OutputFile::stream() {
    if (isStandard) return std::cout;
    return file;
}

bool OutputFile::isGood() {
    if (!hasFailed && !stream().good()) fail(errno);
    return !hasFailed;
}

bool OutputFile::finish() {
    errno = 0;
    stream().flush();
    if (!isGood() || isStandard) return !hasFailed;
    file.close();
    if (!isGood() || target.empty()) return !hasFailed;
    std::error_code renaming;
    fs::rename(temporary, target, renaming);
    if (renaming) {
        fail(renaming.default_error_condition().value());
    } else {
        temporary.clear();
    }
    return !hasFailed;
}

std::string OutputFile::reason() const {
    return error != 0 ? std::strerror(error) : "writing failed";
}

void OutputFile::fail(int errorNumber) {
    hasFailed = true;
    error = errorNumber;
}

} // namespace ostrel::report
