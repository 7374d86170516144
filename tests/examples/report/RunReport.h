#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace ostrel::report::testing {

struct Outcome {
    int status = -1; ///< The exit status; -1 if the program was killed.
    std::string output;
    std::string errors;
};

/// Runs the built program in a folder, with `input` on its standard input.
Outcome runReport(const std::vector<std::string>& arguments, const std::string& input = "",
                  const std::string& folder = ".");

/// Runs any program in the same way.
Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::string& input = "");

/// Runs `orvex-report` with that much address space, `kib` times 1024 bytes.
Outcome runReportWithin(std::size_t kib, const std::vector<std::string>& arguments);

/// Runs `orvex-report` at a terminal of that many columns. Standard output and standard error both go to
/// `output`.
Outcome runReportAtTerminal(const std::vector<std::string>& arguments, unsigned short columns);

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

} // namespace ostrel::report::testing
