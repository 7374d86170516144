#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace ostrel::report {

/// A line on standard error that shows the progress of a long run. Prints nothing if standard error
/// isn't a terminal, if there is only one file, or in the first second.
class Progress {
public:
    explicit Progress(std::size_t fileCount);
    ~Progress() { erase(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Call before reading each file.
    void next(const std::string& path);

    /// Erases the line, so that something else can be written.
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
