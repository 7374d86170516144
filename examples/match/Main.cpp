// orvex-match: compares two Ostrel programs and shows where they differ.

#include "frontend/InputFile.h"
#include "frontend/ParsedFile.h"
#include "match/DifferenceWriter.h"
#include "match/Differences.h"
#include "match/TreeMatcher.h"
#include "terminal/ColorOption.h"
#include "terminal/Complaint.h"
#include "terminal/DisplayText.h"
#include "terminal/MessageWriter.h"
#include "terminal/TextStyle.h"

#include <zt_orvex/equivalence/EquivalenceFullLogger.h>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace ostrel;

constexpr const char* PROGRAM = "orvex-match";

enum ExitStatus { EQUIVALENT = 0, DIFFERENT = 1, FAILED = 2 };

struct Options {
    std::string first;
    std::string second;
    ColorChoice color = ColorChoice::Auto;
    bool showsLog = false;
};

std::optional<std::string> readText(const std::string& path) {
    try {
        return readInput(path);
    } catch (const std::runtime_error& error) {
        std::cerr << complaint(PROGRAM, "cannot read '" + path + "': " + error.what());
        return {};
    }
}

/// The parsed file, or nothing, in which case the reason is on standard error.
std::optional<ParsedFile> parseFile(const std::string& path, ColorChoice color) {
    const std::optional<std::string> text = readText(path);
    if (!text) return {};
    ParsedFile file = parseOstrel(path, *text);
    MessageWriter messages(std::cerr, styleFor(stderr, color));
    for (const Diagnostic& each : file.diagnostics)
        messages.write(path, file.source, each.place,
                       {Tone::Error, "error", each.message, each.help});
    if (file.hasErrors()) return {};
    return file;
}

void writeLog(const ParsedFile& first, const ParsedFile& second) {
    zt::orvex::internal::EquivalenceFullLogger logger;
    TreeMatcher({*first.tree, first.source}, {*second.tree, second.source}, logger).match();
    std::cout << '\n' << displayedLines(logger.getLog());
}

int compare(const Options& options) {
    const std::optional<ParsedFile> first = parseFile(options.first, options.color);
    const std::optional<ParsedFile> second = parseFile(options.second, options.color);
    if (!first || !second) return FAILED;
    const std::vector<Difference> differences = findDifferences(*first->tree, *second->tree);
    if (differences.empty()) return EQUIVALENT;
    DifferenceWriter writer(std::cout, styleFor(stdout, options.color), *first, *second);
    for (const Difference& difference : differences) {
        writer.write(difference);
        std::cout << '\n';
    }
    std::cout << differences.size()
              << (differences.size() == 1 ? " difference\n" : " differences\n");
    if (options.showsLog) writeLog(*first, *second);
    return DIFFERENT;
}

int parseAndCompare(int count, char** arguments) {
    CLI::App app(
        "Compares two Ostrel programs and shows where they differ. Layout, comments and the "
        "spelling of values don't count.",
        PROGRAM);
    app.footer("Exit status: 0 when the programs are equivalent, 1 when they differ, 2 on wrong\n"
               "usage, a file with errors or one that cannot be read, or too little memory.");
    app.allow_windows_style_options(false); // a slash begins a path
    app.set_version_flag("--version", "orvex-match " ORVEX_MATCH_VERSION, "Print the version");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return usageComplaint(PROGRAM, error.what());
    });
    Options options;
    addColorOption(app, options.color);
    app.add_flag("--log", options.showsLog,
                 "Show the steps of the comparison too, to the first difference");
    app.add_option("A", options.first, "The first program; - is standard input")
        ->required()
        ->type_name("");
    app.add_option("B", options.second, "The second program; - is standard input")
        ->required()
        ->type_name("");
    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EQUIVALENT : FAILED;
    }
    if (options.first == "-" && options.second == "-") {
        std::cerr << complaint(PROGRAM, "standard input can be read only once");
        return FAILED;
    }
    return compare(options);
}

} // namespace

int main(int count, char** arguments) {
    return guardMain(PROGRAM, FAILED, parseAndCompare, count, arguments);
}
