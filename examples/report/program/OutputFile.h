#pragma once

#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>

namespace ostrel::report {

/// Where the report goes: to standard output, or to a file that is written whole or not at all.
///
/// A file is written beside its place, under another name, and renamed at the end, so that nobody
/// ever finds a part of a report. It keeps the permissions of the file that it replaces. What isn't
/// a file, such as a device or a pipe, is written directly.
class OutputFile {
public:
    /// Opens the file of that name, or takes standard output if that is empty.
    explicit OutputFile(const std::string& name);

    /// Removes what hasn't been finished.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    std::ostream& stream();

    /// Whether somebody at a terminal sees what is written at once.
    bool isTerminal() const { return isShown; }

    /// Whether all went well so far. Call it soon after writing, while the reason is known.
    bool isGood();

    /// Puts the file in its place. Returns whether all went well.
    bool finish();

    /// Why not.
    std::string reason() const;

private:
    void openBeside();
    void openTemporary(const std::filesystem::path& folder);
    void fail(int errorNumber);

    std::ofstream file;
    std::filesystem::path target;    ///< What is renamed to; empty for what is written directly.
    std::filesystem::path temporary; ///< What is renamed; empty if there is nothing to remove.
    bool isStandard;
    bool isShown;
    bool hasFailed = false;
    int error = 0;
};

} // namespace ostrel::report
