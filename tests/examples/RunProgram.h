#pragma once

#include <string>
#include <vector>

namespace ostrel::testing {

struct Outcome {
    int status = -1; ///< The exit status; -1 if the program was killed.
    std::string output;
    std::string errors;
};

/// Runs a program in a folder, with `input` on its standard input, and without the variables that
/// choose colors.
Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::string& input = "", const std::string& folder = ".");

/// Whether there is a shell as POSIX has it. A test that needs one skips otherwise.
#if defined(_WIN32)
constexpr bool HAS_POSIX_SHELL = false;
#else
constexpr bool HAS_POSIX_SHELL = true;
#endif

/// A folder for the files of one test, removed at the end.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string path(const std::string& name) const { return folder + "/" + name; }
    /// Writes a file and returns its path.
    std::string file(const std::string& name, const std::string& bytes) const;

private:
    std::string folder;
};

std::string readFile(const std::string& path);

} // namespace ostrel::testing
