#include "terminal/Complaint.h"

#include "terminal/DisplayText.h"
#include "terminal/ProgramSetup.h"

#include <exception>
#include <iostream>
#include <new>

namespace ostrel {

std::string complaint(std::string_view program, std::string_view message) {
    return std::string(program) + ": " + displayed(message) + "\n";
}

std::string usageComplaint(std::string_view program, std::string_view message) {
    return complaint(program, message) + "Run " + std::string(program) +
           " --help for more information.\n";
}

int guardMain(const char* program, int failure, int (*body)(int count, char** arguments), int count,
              char** arguments) {
    try {
        ProgramSetup setup(count, arguments);
        return body(setup.count(), setup.arguments());
    } catch (const std::bad_alloc&) {
        std::cerr << program << ": not enough memory\n";
    } catch (const std::exception& error) {
        std::cerr << complaint(program, error.what());
    }
    return failure;
}

} // namespace ostrel
