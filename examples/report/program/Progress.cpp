#include "report/program/Progress.h"

#include "terminal/DisplayText.h"
#include "terminal/Terminal.h"

#include <cstdio>
#include <iostream>

namespace ostrel::report {

namespace {

constexpr std::chrono::milliseconds FIRST_AFTER{1000};
constexpr std::chrono::milliseconds NEXT_AFTER{100};
constexpr const char* ERASE_LINE = "\r\x1b[K";

} // namespace

Progress::Progress(std::size_t fileCount, bool wanted)
    : count(fileCount), isWanted(wanted && fileCount > 1 && isTerminal(stderr)) {}

void Progress::next(const std::string& path) {
    if (!isWanted) return;
    const std::lock_guard<std::mutex> lock(mutex);
    ++started;
    const Clock::time_point now = Clock::now();
    if (now - lastShown < (isShown ? NEXT_AFTER : FIRST_AFTER)) return;
    std::string line = "file " + std::to_string(started) + " of " + std::to_string(count) + ": ";
    const std::size_t width = terminalWidth(stderr, 80);
    const DisplayText name = displayText(path);
    if (line.size() + name.width < width) line += name.utf8;
    std::cerr << ERASE_LINE << line << std::flush;
    isShown = true;
    lastShown = now;
}

void Progress::write(const std::string& messages) {
    if (messages.empty()) return;
    const std::lock_guard<std::mutex> lock(mutex);
    eraseLocked();
    std::cerr << messages << std::flush;
}

void Progress::erase() {
    const std::lock_guard<std::mutex> lock(mutex);
    eraseLocked();
}

void Progress::eraseLocked() {
    if (isShown) std::cerr << ERASE_LINE << std::flush;
    isShown = false;
}

} // namespace ostrel::report
