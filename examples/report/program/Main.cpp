#include "report/program/Options.h"
#include "report/program/Run.h"

#include <exception>
#include <iostream>
#include <new>

int main(int count, char** arguments) {
    using namespace ostrel::report;
    try {
        const ParsedOptions parsed = parseOptions(count, arguments, formatNames());
        if (parsed.exitStatus) return *parsed.exitStatus;
        return run(parsed.options);
    } catch (const std::bad_alloc&) {
        std::cerr << "orvex-report: not enough memory\n";
        return EXIT_CANNOT_DO;
    } catch (const std::exception& error) {
        std::cerr << "orvex-report: " << error.what() << '\n';
        return EXIT_CANNOT_DO;
    }
}
