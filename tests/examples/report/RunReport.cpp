#include "RunReport.h"

#if !defined(_WIN32)
#include <cstdlib>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace ostrel::report::testing {

Outcome runReport(const std::vector<std::string>& arguments, const std::string& input,
                  const std::string& folder) {
    return runProgram(ORVEX_REPORT_PROGRAM, arguments, input, folder);
}

Outcome runReportWithin(std::size_t kib, std::vector<std::string> arguments) {
    const std::string command = "ulimit -v " + std::to_string(kib) + " && exec \"$@\"";
    arguments.insert(arguments.begin(), {"-c", command, "sh", ORVEX_REPORT_PROGRAM});
    return runProgram("sh", arguments);
}

#if defined(_WIN32)

Outcome runReportAtTerminal(const std::vector<std::string>&, unsigned short) { return {}; }

#else

Outcome runReportAtTerminal(const std::vector<std::string>& arguments, unsigned short columns) {
    winsize size{};
    size.ws_col = columns;
    size.ws_row = 50;
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
        setenv("TERM", "xterm", 1);
        for (const char* variable : {"NO_COLOR", "FORCE_COLOR", "CLICOLOR_FORCE"})
            unsetenv(variable);
        std::vector<std::string> words = arguments;
        words.insert(words.begin(), ORVEX_REPORT_PROGRAM);
        std::vector<char*> pointers;
        for (std::string& word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);
        execv(ORVEX_REPORT_PROGRAM, pointers.data());
        _exit(127);
    }
    Outcome outcome;
    char buffer[4096];
    for (ssize_t count = 0; (count = read(terminal, buffer, sizeof buffer)) > 0;)
        outcome.output.append(buffer, static_cast<std::size_t>(count));
    int status = 0;
    waitpid(child, &status, 0);
    close(terminal);
    if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
    return outcome;
}

#endif

} // namespace ostrel::report::testing
