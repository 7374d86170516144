#pragma once

#include <chrono>
#include <cstddef>
#include <mutex>
#include <string>

namespace ostrel::report {

/// Standard error during a long run: messages, and a line that shows the progress.
///
/// The line appears if standard error is a terminal, if there are several files and after the first
/// second. Any thread may call any function.
class Progress {
public:
    /// `isWanted`: whether to show the line at all. A report on the same terminal would mix with it,
    /// and shows the progress itself.
    Progress(std::size_t fileCount, bool isWanted);
    ~Progress() { erase(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Call before reading each file.
    void next(const std::string& path);

    /// Writes whole lines. The line of progress makes room for them.
    void write(const std::string& messages);

    void erase();

private:
    using Clock = std::chrono::steady_clock;

    void eraseLocked();

    std::mutex mutex;
    std::size_t count;
    std::size_t started = 0;
    bool isWanted;
    bool isShown = false;
    Clock::time_point lastShown = Clock::now();
};

} // namespace ostrel::report
