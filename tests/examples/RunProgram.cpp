#include "examples/RunProgram.h"

#include <cstdlib>
#include <sys/wait.h>

namespace ostrel::testing {

namespace {

std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char character : word)
        text += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return text + "'";
}

} // namespace

Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::string& input, const std::string& folder) {
    const ScratchFolder scratch;
    std::string command = "unset NO_COLOR FORCE_COLOR CLICOLOR_FORCE; cd " + quoted(folder) +
                          " && " + quoted(program);
    for (const std::string& argument : arguments)
        command += " " + quoted(argument);
    command += " <" + quoted(scratch.file("input", input)) + " >" + quoted(scratch.path("output")) +
               " 2>" + quoted(scratch.path("errors"));
    Outcome outcome;
    const int status = std::system(command.c_str());
    if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
    outcome.output = readFile(scratch.path("output"));
    outcome.errors = readFile(scratch.path("errors"));
    return outcome;
}

} // namespace ostrel::testing
