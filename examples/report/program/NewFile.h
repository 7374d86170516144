#pragma once

#include <filesystem>

namespace ostrel::report {

// What replacing a file takes beyond the standard library.

/// Whether a path names a device by its name alone, such as /dev/stdout, or NUL on Windows. Such
/// names may stand for files, but a program that passes them on expects that these very files are
/// written.
bool hasNameOfDevice(const std::filesystem::path& path);

/// Why this process may not write an existing file, as in `errno`; 0 if it may.
int objectionToWriting(const std::filesystem::path& path);

/// Creates an empty file, with the permissions of `former` if that exists and else those of any new
/// file. Returns 0, or why not, as in `errno`: EEXIST if `path` is taken.
int createNewFile(const std::filesystem::path& path, const std::filesystem::path& former);

/// A number that no other running process has.
unsigned long processNumber();

} // namespace ostrel::report
