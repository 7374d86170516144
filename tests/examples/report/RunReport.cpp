#include "RunReport.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ostrel::report::testing {

namespace {

std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char character : word)
        text += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return text + "'";
}

std::string commandOf(const std::string& program, const std::vector<std::string>& arguments) {
    std::string command = quoted(program);
    for (const std::string& argument : arguments)
        command += " " + quoted(argument);
    return command;
}

int exitStatus(int waitStatus) { return WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : -1; }

/// Runs a command of the shell that ends with the program and its arguments.
Outcome runCommand(std::string command, const std::string& input) {
    const ScratchFolder scratch;
    command = "unset NO_COLOR FORCE_COLOR CLICOLOR_FORCE; " + command;
    command += " <" + quoted(scratch.file("input", input)) + " >" + quoted(scratch.path("output")) +
               " 2>" + quoted(scratch.path("errors"));
    Outcome outcome;
    outcome.status = exitStatus(std::system(command.c_str()));
    outcome.output = readFile(scratch.path("output"));
    outcome.errors = readFile(scratch.path("errors"));
    return outcome;
}

} // namespace

Outcome runReport(const std::vector<std::string>& arguments, const std::string& input,
                  const std::string& folder) {
    return runCommand("cd " + quoted(folder) + " && " + commandOf(ORVEX_REPORT_PROGRAM, arguments),
                      input);
}

Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::string& input) {
    return runCommand(commandOf(program, arguments), input);
}

Outcome runReportWithin(std::size_t kib, const std::vector<std::string>& arguments) {
    return runCommand("ulimit -v " + std::to_string(kib) + " && exec " +
                          commandOf(ORVEX_REPORT_PROGRAM, arguments),
                      "");
}

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
    outcome.status = exitStatus(status);
    return outcome;
}

ScratchFolder::ScratchFolder() {
    std::string name = ::testing::TempDir() + "orvex-report-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "no folder " << name;
    folder = name;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::string ScratchFolder::file(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
    return path(name);
}

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace ostrel::report::testing
