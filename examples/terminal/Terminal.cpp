#include "terminal/Terminal.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace ostrel {

#if defined(_WIN32)

bool isTerminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }

std::size_t terminalWidth(std::FILE*, std::size_t otherwise) { return otherwise; }

#else

bool isTerminal(std::FILE* stream) { return isatty(fileno(stream)) == 1; }

std::size_t terminalWidth(std::FILE* stream, std::size_t otherwise) {
    winsize size{};
    const bool isKnown = ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col != 0;
    return isKnown ? size.ws_col : otherwise;
}

#endif

} // namespace ostrel
