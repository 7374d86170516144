// orvex-match: compares two Ostrel programs and shows where they first differ.

#include "frontend/InputFile.h"
#include "frontend/ParsedFile.h"
#include "match/TreeMatcher.h"
#include "terminal/Complaint.h"
#include "terminal/DisplayText.h"
#include "terminal/MessageWriter.h"

#include <zt_orvex/equivalence/EquivalenceFullLogger.h>

#include <CLI/CLI.hpp>

#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>

namespace {

constexpr const char* PROGRAM = "orvex-match";

enum ExitStatus { EQUIVALENT = 0, DIFFERENT = 1, FAILED = 2 };

std::optional<std::string> readText(const std::string& path) {
    try {
        return ostrel::readInput(path);
    } catch (const std::runtime_error& error) {
        std::cerr << ostrel::complaint(PROGRAM, "cannot read '" + path + "': " + error.what());
        return {};
    }
}

/// The parsed file, or nothing, in which case the reason is on standard error.
std::optional<ostrel::ParsedFile> parseFile(const std::string& path) {
    const std::optional<std::string> text = readText(path);
    if (!text) return {};
    ostrel::ParsedFile file = ostrel::parseOstrel(path, *text);
    for (const ostrel::Diagnostic& diagnostic : file.diagnostics) {
        ostrel::MessageWriter(std::cerr, {})
            .writeHead(path, diagnostic.place, ostrel::Tone::Error, "error", diagnostic.message);
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
    std::cout << ostrel::displayedLines(logger.getLog());
    return DIFFERENT;
}

int parseAndCompare(int count, char** arguments) {
    CLI::App app("Compares two Ostrel programs and prints where they differ. Exit status: 0 when "
                 "they are equivalent, 1 when not, 2 on errors.",
                 PROGRAM);
    app.set_version_flag("--version", "orvex-match " ORVEX_MATCH_VERSION);
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return ostrel::usageComplaint(PROGRAM, error.what());
    });
    std::string first;
    std::string second;
    app.add_option("A", first, "The first program")->required();
    app.add_option("B", second, "The second program")->required();
    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EQUIVALENT : FAILED;
    }
    return compare(first, second);
}

} // namespace

int main(int count, char** arguments) {
    return ostrel::guardMain(PROGRAM, FAILED, parseAndCompare, count, arguments);
}
