#include "report/program/OutputFile.h"

#include "terminal/Terminal.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace ostrel::report {

namespace {

namespace fs = std::filesystem;

/// Whether a path isn't that of a file that could be replaced. The names of devices may stand for
/// files, but a program that passes them on expects that these very files are written.
bool isWrittenDirectly(const std::string& path) {
    if (path.rfind("/dev/", 0) == 0 || path.rfind("/proc/", 0) == 0) return true;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

/// What a symbolic link leads to, so that the link is kept.
std::string resolved(const std::string& path) {
    std::error_code error;
    const fs::path result = fs::canonical(path, error);
    return error ? path : result.string();
}

} // namespace

OutputFile::OutputFile(const std::string& path)
    : isStandard(path.empty()), isShown(isStandard && ostrel::isTerminal(stdout)) {
    errno = 0;
    if (isStandard) return;
    if (isWrittenDirectly(path)) {
        file.open(path, std::ios::binary);
    } else {
        target = resolved(path);
        openBeside();
    }
    isGood();
}

OutputFile::~OutputFile() {
    if (!temporary.empty()) std::remove(temporary.c_str());
}

void OutputFile::openBeside() {
    std::error_code ignored;
    if (fs::is_directory(target, ignored)) return fail(EISDIR);
    if (fs::exists(target, ignored) && access(target.c_str(), W_OK) != 0) return fail(errno);
    const fs::path folder = fs::path(target).parent_path();
    openTemporary(folder.empty() ? "." : folder.string());
}

/// Takes the first name that is free, with the permissions of any new file.
void OutputFile::openTemporary(const std::string& folder) {
    const std::string stem = folder + "/.orvex-report-" + std::to_string(getpid()) + "-";
    int descriptor = -1;
    for (int number = 0; descriptor == -1; ++number) {
        temporary = stem + std::to_string(number);
        constexpr mode_t NEW_FILE = 0666;
        descriptor = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NEW_FILE);
        if (descriptor == -1 && errno != EEXIST) {
            temporary.clear();
            return fail(errno);
        }
    }
    keepPermissions(descriptor);
    close(descriptor);
    file.open(temporary, std::ios::binary);
}

void OutputFile::keepPermissions(int descriptor) const {
    constexpr mode_t PERMISSIONS = 07777;
    struct stat status {};
    if (stat(target.c_str(), &status) != 0) return;
    // A file system without permissions has none to keep.
    if (fchmod(descriptor, status.st_mode & PERMISSIONS) != 0) errno = 0;
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
    if (std::rename(temporary.c_str(), target.c_str()) != 0) {
        fail(errno);
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
