#pragma once

#include <string>
#include <vector>

namespace ostrel {

/// What a program sets up before anything else, and undoes at its end. There is something to do only
/// on Windows, where the three standard streams must be told not to change the ends of lines, the
/// arguments come in an old code page, and a console must be told to take UTF-8 and colors.
class ProgramSetup {
public:
    ProgramSetup(int count, char** arguments);
    ~ProgramSetup();
    ProgramSetup(const ProgramSetup&) = delete;
    ProgramSetup& operator=(const ProgramSetup&) = delete;

    /// The arguments of the command line, in UTF-8 if they come as text.
    int count() const { return static_cast<int>(pointers.size()) - 1; }
    char** arguments() { return pointers.data(); }

private:
    std::vector<std::string> texts;
    std::vector<char*> pointers; ///< Ends with a null pointer.
#if defined(_WIN32)
    unsigned consoleEncoding = 0; ///< What the console had before; 0 if there is none.
    unsigned long consoleMode = 0;
#endif
};

} // namespace ostrel
