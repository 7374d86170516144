#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace ostrel::report {

/// A line on standard error that tells how far a long run has come. Says nothing where standard
/// error is no terminal, of a single file, or in the first second.
class Progress {
public:
    explicit Progress(std::size_t fileCount);
    ~Progress() { erase(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// A file is about to be read.
    void next(const std::string& path);

    /// Takes the line away, so that something else can be written.
    void erase();

private:
    using Clock = std::chrono::steady_clock;

    std::size_t count;
    std::size_t started = 0;
    bool isWanted;
    bool isShown = false;
    Clock::time_point lastShown = Clock::now();
};

} // namespace ostrel::report
