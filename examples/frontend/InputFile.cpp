#include "frontend/InputFile.h"

#include "frontend/FilePath.h"
#include "source/SourceLimit.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace ostrel {

namespace {

[[noreturn]] void failWith(int error) {
    throw std::runtime_error(error != 0 ? std::strerror(error) : "reading failed");
}

void refuseTooLarge(std::uintmax_t bytes) {
    if (isSourceTooLarge(bytes)) throw std::runtime_error(SOURCE_TOO_LARGE);
}

std::string readAll(std::FILE* file) {
    std::string bytes;
    char buffer[1 << 16];
    errno = 0;
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file)) {
        refuseTooLarge(bytes.size() + count);
        bytes.append(buffer, count);
    }
    if (std::ferror(file) != 0) failWith(errno);
    return bytes;
}

} // namespace

std::string readInput(const std::string& name) {
    if (name == "-") return readAll(stdin);
    const std::filesystem::path path = pathOf(name);
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) failWith(EISDIR);
    if (std::filesystem::is_regular_file(path, ignored)) {
        const std::uintmax_t size = std::filesystem::file_size(path, ignored);
        if (!ignored) refuseTooLarge(size);
    }
    errno = 0;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(openToRead(path), &std::fclose);
    if (!file) failWith(errno);
    return readAll(file.get());
}

} // namespace ostrel
