// Prints what the libraries answer in every subsystem, a line for each answer. A test compares the
// output with expected.txt, which every platform must print byte by byte.
#include "platform/Sections.h"

#include <cstdlib>
#include <iostream>

#if defined(_WIN32)
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#endif

int main() {
#if defined(_WIN32)
    _setmode(_fileno(stdout), _O_BINARY); // newlines are compared, too
#endif
    using namespace zt::orvex::testing;
    probeKinds();
    probeWalks();
    probeOperators();
    probeBitSets();
    probeGraphs();
    probeEquations();
    probeAnalyses();
    probeLiterals();
    probeLiteralValues();
    probePragmas();
    probeQuoting();
    probePools();
    probeCounters();
    probeStreams();
    probeMatchLogs();
    probeTreeChecks();
    probeExplanations();
    std::cout.flush();
    return std::cout.good() ? EXIT_SUCCESS : EXIT_FAILURE;
}
