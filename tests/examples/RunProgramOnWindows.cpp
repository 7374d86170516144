#include "examples/RunProgram.h"

#include "frontend/WindowsText.h"

#include <windows.h>

namespace ostrel::testing {

namespace {

/// A file that a started program has as one of its standard streams.
class InheritedFile {
public:
    InheritedFile(const std::string& path, DWORD access, DWORD creation) {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        handle = CreateFileW(utf16(path).c_str(), access, FILE_SHARE_READ, &inherited, creation,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
    }
    ~InheritedFile() { CloseHandle(handle); }
    InheritedFile(const InheritedFile&) = delete;
    InheritedFile& operator=(const InheritedFile&) = delete;

    HANDLE get() const { return handle; }

private:
    HANDLE handle;
};

/// A word of a command line, so that the program's runtime finds it unchanged: a backslash is special
/// before a quote alone.
std::string quoted(const std::string& word) {
    std::string text = "\"";
    std::size_t backslashes = 0;
    for (const char character : word) {
        if (character == '"') text.append(backslashes + 1, '\\');
        backslashes = character == '\\' ? backslashes + 1 : 0;
        text += character;
    }
    return text.append(backslashes, '\\') + "\"";
}

std::wstring commandLine(const std::string& program, const std::vector<std::string>& arguments) {
    std::string line = quoted(program);
    for (const std::string& argument : arguments)
        line += " " + quoted(argument);
    return utf16(line);
}

int waitForEnd(const PROCESS_INFORMATION& process) {
    DWORD status = 0;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    // A program that was killed has the number of an exception.
    return status <= 0xFF ? static_cast<int>(status) : -1;
}

} // namespace

Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::string& input, const std::string& folder) {
    for (const char* const variable : {"NO_COLOR", "FORCE_COLOR", "CLICOLOR_FORCE"})
        SetEnvironmentVariableA(variable, nullptr);
    const ScratchFolder scratch;
    Outcome outcome;
    {
        const InheritedFile in(scratch.file("input", input), GENERIC_READ, OPEN_EXISTING);
        const InheritedFile out(scratch.path("output"), GENERIC_WRITE, CREATE_ALWAYS);
        const InheritedFile errors(scratch.path("errors"), GENERIC_WRITE, CREATE_ALWAYS);
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdInput = in.get();
        start.hStdOutput = out.get();
        start.hStdError = errors.get();
        PROCESS_INFORMATION process{};
        std::wstring line = commandLine(program, arguments);
        if (CreateProcessW(utf16(program).c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                           utf16(folder).c_str(), &start, &process) != 0)
            outcome.status = waitForEnd(process);
    }
    outcome.output = readFile(scratch.path("output"));
    outcome.errors = readFile(scratch.path("errors"));
    return outcome;
}

} // namespace ostrel::testing
