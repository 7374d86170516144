#include "report/program/Options.h"

#include "report/program/FailOn.h"
#include "terminal/ColorOption.h"
#include "terminal/Complaint.h"
#include "terminal/Wrap.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>

namespace ostrel::report {

namespace {

constexpr int WRONG_USAGE = 2;
constexpr int MAX_JOBS = 1024;

constexpr const char* DESCRIPTION =
    "Reports the role of each variable in the parfor and spmd statements of Ostrel source files.";
constexpr const char* FOOTER =
    "Exit status: 0 when every file was read without an error, 1 when a file has errors,\n"
    "when --fail-on applies or --check-tree finds a tree wrong, 2 on wrong usage, a file\n"
    "that cannot be read, or too little memory.";

std::string failureText(const CLI::App*, const CLI::Error& error) {
    return usageComplaint("orvex-report", error.what());
}

/// Lines for the help.
std::string listOfCodes() {
    constexpr std::size_t WIDTH = 60;
    std::string text = ":";
    for (const std::string& line : wrap(knownCodes(), WIDTH))
        text += "\n" + line;
    return text;
}

} // namespace

ParsedOptions parseOptions(int count, const char* const* arguments,
                           const std::vector<std::string>& formats) {
    ParsedOptions result;
    Options& options = result.options;
    std::string failOn;

    CLI::App app(DESCRIPTION, "orvex-report");
    app.footer(FOOTER);
    app.failure_message(failureText);
    app.allow_windows_style_options(false); // a slash begins a path
    app.set_version_flag("--version", "orvex-report " ORVEX_REPORT_VERSION, "Print the version");
    app.add_option("--format", options.format, "How to print the report")
        ->check(CLI::IsMember(formats))
        ->capture_default_str();
    app.add_option("--output", options.output, "Write the report to a file; - is standard output")
        ->type_name("FILE")
        ->check([](const std::string& path) {
            return path.empty() ? std::string("the name of the file is empty") : std::string();
        });
    addColorOption(app, options.color);
    app.add_option("--fail-on", failOn,
                   "Exit with status 1 when a remark with such a code was made" + listOfCodes())
        ->type_name("CODE[,CODE...]")
        ->join(',')
        ->check([](const std::string& list) {
            RemarkCodes ignored;
            return addCodes(list, ignored).value_or("");
        });
    app.add_flag("--quiet", options.isQuiet, "In text: errors and remarks only, no tables");
    app.add_option("--jobs", options.jobs, "Files at once; 0: one for each processor")
        ->type_name("N")
        ->check(CLI::Range(0, MAX_JOBS))
        ->capture_default_str();
    app.add_flag("--check-tree", options.checksTrees,
                 "Check the tree of each file first; for work on the parser");
    app.add_option("FILE", options.files,
                   "Source files, and folders of *.ost files; - is standard input")
        ->required()
        ->type_name("");
    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& error) {
        result.exitStatus = app.exit(error) == 0 ? 0 : WRONG_USAGE;
        return result;
    }
    if (!failOn.empty()) addCodes(failOn, options.failOn);
    if (options.output == "-") options.output.clear();
    if (std::count(options.files.begin(), options.files.end(), "-") > 1) {
        std::cerr << complaint("orvex-report", "standard input can be read only once");
        result.exitStatus = WRONG_USAGE;
    }
    return result;
}

} // namespace ostrel::report
