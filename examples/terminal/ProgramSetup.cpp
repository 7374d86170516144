#include "terminal/ProgramSetup.h"

#if defined(_WIN32)
#include "frontend/WindowsText.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <windows.h>

#include <shellapi.h>
#endif

namespace ostrel {

#if defined(_WIN32)

namespace {

#ifndef ENABLE_VIRTUAL_TERMINAL_PROCESSING
#define ENABLE_VIRTUAL_TERMINAL_PROCESSING 0x0004
#endif

std::vector<std::string> argumentsAsUtf8() {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(
        CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(utf8(words.get()[i]));
    return texts;
}

} // namespace

ProgramSetup::ProgramSetup(int, char**) : texts(argumentsAsUtf8()) {
    for (std::FILE* stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);

    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    if (GetConsoleMode(console, &consoleMode) == 0) return; // not a console
    consoleEncoding = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleMode(console, consoleMode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

ProgramSetup::~ProgramSetup() {
    if (consoleEncoding == 0) return;
    SetConsoleOutputCP(consoleEncoding);
    SetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), consoleMode);
}

#else

ProgramSetup::ProgramSetup(int count, char** arguments) : pointers(arguments, arguments + count) {
    pointers.push_back(nullptr);
}

ProgramSetup::~ProgramSetup() = default;

#endif

} // namespace ostrel
