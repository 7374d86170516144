// Input: two source texts, with a line of five equals signs between them. The matcher's answer must
// not depend on the order or on the logger, and a program matches itself, printed anew.
#include "Require.h"
#include "frontend/ParsedFile.h"
#include "match/DifferenceWriter.h"
#include "match/Differences.h"
#include "match/TreeMatcher.h"
#include "syntax/Printer.h"
#include "terminal/DisplayText.h"
#include "tree/Dump.h"

#include <zt_orvex/equivalence/EquivalenceFullLogger.h>
#include <zt_orvex/equivalence/EquivalenceNullLogger.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

using namespace ostrel;
using zt::orvex::fuzz::require;

namespace {

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool isMatch(const ParsedFile& first, const ParsedFile& second) {
    const MatchedProgram a{*first.tree, first.source};
    const MatchedProgram b{*second.tree, second.source};
    zt::orvex::internal::EquivalenceFullLogger full;
    const bool matched = TreeMatcher(a, b, full).match();
    const std::string log = full.getLog();
    require(matched == endsWith(log, " - OK\n"), "the log says whether they match");
    require(SourceText::validUtf8Prefix(log) == log.size(), "the log is UTF-8");
    zt::orvex::internal::EquivalenceNullLogger null;
    require(TreeMatcher(a, b, null).match() == matched, "a logger changes nothing");
    const std::vector<Difference> differences = findDifferences(*first.tree, *second.tree);
    require(differences.empty() == matched, "programs that don't match differ somewhere");
    std::ostringstream out;
    for (const Difference& difference : differences)
        DifferenceWriter(out, {}, first, second).write(difference);
    require(!hasUnsafeCharacter(out.str()), "differences are safe to show");
    return matched;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::string_view SEPARATOR = "\n=====\n";
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::size_t middle = std::min(text.find(SEPARATOR), size);
    const std::string_view rest = text.substr(std::min(middle + SEPARATOR.size(), size));
    const ParsedFile first = parseOstrel("first.ost", text.substr(0, middle));
    const ParsedFile second = parseOstrel("second.ost", rest);

    require(isMatch(first, first), "a program matches itself");
    const bool matched = isMatch(first, second);
    require(isMatch(second, first) == matched, "the order doesn't matter");
    require(matched || !isSameTree(*first.tree, *second.tree), "same trees match");
    if (!first.hasErrors()) {
        const ParsedFile printed = parseOstrel("printed.ost", printSource(*first.tree));
        require(isMatch(first, printed), "a program matches what it prints as");
    }
    return 0;
}
