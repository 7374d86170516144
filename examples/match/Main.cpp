// orvex-match: compares two Ostrel programs and shows where they first differ.

#include "frontend/InputFile.h"
#include "frontend/ParsedFile.h"
#include "match/TreeMatcher.h"

#include <zt_orvex/equivalence/EquivalenceFullLogger.h>

#include <CLI/CLI.hpp>

#include <iostream>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>

namespace {

enum ExitStatus { EQUIVALENT = 0, DIFFERENT = 1, FAILED = 2 };

std::optional<std::string> readText(const std::string& path) {
    try {
        return ostrel::readInput(path);
    } catch (const std::runtime_error& error) {
        std::cerr << "orvex-match: cannot read '" << path << "': " << error.what() << '\n';
        return {};
    }
}

/// The parsed file, or nothing, in which case the reason is on standard error.
std::optional<ostrel::ParsedFile> parseFile(const std::string& path) {
    const std::optional<std::string> text = readText(path);
    if (!text) return {};
    ostrel::ParsedFile file = ostrel::parseOstrel(path, *text);
    for (const ostrel::Diagnostic& diagnostic : file.diagnostics) {
        std::cerr << path << ':' << diagnostic.place.line << ':' << diagnostic.place.column
                  << ": error: " << diagnostic.message << '\n';
    }
    if (file.hasErrors()) return {};
    return file;
}

int compare(const std::string& firstPath, const std::string& secondPath) {
    const std::optional<ostrel::ParsedFile> first = parseFile(firstPath);
    const std::optional<ostrel::ParsedFile> second = parseFile(secondPath);
    if (!first || !second) return FAILED;
    zt::orvex::internal::EquivalenceFullLogger logger;
    ostrel::TreeMatcher matcher({*first->tree, first->source}, {*second->tree, second->source},
                                logger);
    if (matcher.match()) return EQUIVALENT;
    std::cout << logger.getLog();
    return DIFFERENT;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Compares two Ostrel programs and prints where they differ. Exit status: 0 when "
                 "they are equivalent, 1 when not, 2 on errors.",
                 "orvex-match");
    app.set_version_flag("--version", "orvex-match " ORVEX_MATCH_VERSION);
    std::string first;
    std::string second;
    app.add_option("A", first, "The first program")->required();
    app.add_option("B", second, "The second program")->required();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EQUIVALENT : FAILED;
    }
    try {
        return compare(first, second);
    } catch (const std::bad_alloc&) {
        std::cerr << "orvex-match: not enough memory\n";
        return FAILED;
    }
}
