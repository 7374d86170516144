#include "terminal/Terminal.h"

#if defined(_WIN32)
#include <io.h>
#include <windows.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace ostrel {

#if defined(_WIN32)

namespace {

HANDLE handleOf(std::FILE* stream) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
}

} // namespace

bool isTerminal(std::FILE* stream) {
    DWORD mode = 0;
    return GetConsoleMode(handleOf(stream), &mode) != 0;
}

std::size_t terminalWidth(std::FILE* stream, std::size_t otherwise) {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(handleOf(stream), &info) == 0) return otherwise;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

#else

bool isTerminal(std::FILE* stream) { return isatty(fileno(stream)) == 1; }

std::size_t terminalWidth(std::FILE* stream, std::size_t otherwise) {
    winsize size{};
    const bool isKnown = ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col != 0;
    return isKnown ? size.ws_col : otherwise;
}

#endif

} // namespace ostrel
