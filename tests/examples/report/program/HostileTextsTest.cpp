#include "HostileTexts.h"
#include "RunReport.h"

#include "report/program/Run.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace ostrel::report::testing {

namespace {

using Arguments = std::vector<std::string>;

void expectSafe(const Outcome& outcome, const std::string& what) {
    EXPECT_EQ(unsafeCharacterIn(outcome.output), "") << what << '\n' << outcome.output;
    EXPECT_EQ(unsafeCharacterIn(outcome.errors), "") << what << '\n' << outcome.errors;
}

/// A program with the text in literals, in comments, in pragmas, and where only an error can stand.
std::string programWith(std::string_view hostile) {
    const std::string text(hostile);
    return "s = '" + text + "'; % " + text + "\n%#ok " + text + "\n%#" + text + "nonsense " + text +
           "\nparfor k = 1:3\n    s = [s, \"" + text + "\"];\n    load(s); t = ans; % " + text +
           "\nend\nx = " + text + " y;\n" + text + "\n0x" + text + "\n";
}

TEST(HostileTexts, DoNotReachTheTerminalFromArguments) {
    const ScratchFolder scratch;
    const std::string good = scratch.file("good.ost", "x = 1;\n");
    for (const std::string_view piece : HOSTILE_TEXTS) {
        const std::string text(piece);
        for (const Arguments& arguments :
             {Arguments{"--format", text, good}, Arguments{"--format=" + text, good},
              Arguments{"--color", text, good}, Arguments{"--fail-on", text, good},
              Arguments{"--fail-on", "carried," + text, good},
              Arguments{"--output", scratch.path(text + "/none"), good},
              Arguments{"--quiet=" + text, good}, Arguments{"--jobs", text, good},
              Arguments{"--" + text, good}, Arguments{"-" + text, good}, Arguments{text},
              Arguments{scratch.path(text)}, Arguments{good, "-", "-", text}}) {
            expectSafe(runReport(arguments), arguments.front());
        }
    }
}

TEST(HostileTexts, DoNotReachTheTerminalFromSourceAndNames) {
    const ScratchFolder scratch;
    for (const std::string_view piece : HOSTILE_TEXTS) {
        const std::string text(piece);
        const std::string path = scratch.file("a" + text + ".ost", programWith(piece));
        for (const std::string& format : formatNames()) {
            expectSafe(runReport({"--format", format, path}), format);
            expectSafe(runReport({"--format", format, "--quiet", "--check-tree", path}), format);
        }
        expectSafe(runReport({"--output", path, path}), "the source file as output");
    }
}

TEST(HostileTexts, DoNotReachTheTerminalFromStandardInput) {
    for (const std::string_view piece : HOSTILE_TEXTS) {
        for (const std::string& format : formatNames())
            expectSafe(runReport({"--format", format, "-"}, programWith(piece)), format);
    }
}

Outcome runMatch(const Arguments& arguments) { return runProgram(ORVEX_MATCH_PROGRAM, arguments); }

TEST(HostileTexts, DoNotReachTheTerminalFromTheMatcher) {
    const ScratchFolder scratch;
    for (const std::string_view piece : HOSTILE_TEXTS) {
        const std::string text(piece);
        const std::string a = scratch.file("a" + text + ".ost", "x = 1; % " + text + "\n");
        const std::string b =
            scratch.file("b" + text + ".ost", "x = '" + text + "';\ny = '" + text + "';\n");
        const std::string c =
            scratch.file("c" + text + ".ost", "x = 'c" + text + "';\ny = \"" + text + "\";\n");
        const std::string wrong = scratch.file("w" + text + ".ost", programWith(piece));
        for (const Arguments& arguments :
             {Arguments{a, b}, Arguments{b, c}, Arguments{b, a}, Arguments{"--log", b, c},
              Arguments{"--log", a, b}, Arguments{a, wrong}, Arguments{wrong, a},
              Arguments{a, scratch.path(text)}, Arguments{scratch.path(text), a},
              Arguments{text, text, text}, Arguments{"--" + text, a, b},
              Arguments{"-" + text, a, b}, Arguments{"--color", text, a, b}}) {
            expectSafe(runMatch(arguments), arguments.front());
        }
    }
}

} // namespace

} // namespace ostrel::report::testing
