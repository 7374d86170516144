#include "report/program/FailOn.h"

#include <algorithm>

namespace ostrel::report {

namespace {

constexpr std::string_view ANY = "any";

/// Returns whether there is such a code.
bool addCode(std::string_view word, RemarkCodes& codes) {
    bool isKnown = false;
    for (const RemarkRule& rule : remarkRules()) {
        if (word != rule.name && word != ANY) continue;
        codes.insert(rule.code);
        isKnown = true;
    }
    return isKnown;
}

} // namespace

std::string knownCodes() {
    std::string text;
    for (const RemarkRule& rule : remarkRules())
        text += std::string(rule.name) + ", ";
    return text.append(ANY);
}

std::optional<std::string> addCodes(std::string_view list, RemarkCodes& codes) {
    RemarkCodes found = codes;
    for (bool isLast = false; !isLast;) {
        const std::string_view word = list.substr(0, list.find(','));
        isLast = word.size() == list.size();
        if (!addCode(word, found))
            return "no remark has the code '" + std::string(word) + "'; known are " + knownCodes();
        list.remove_prefix(std::min(word.size() + 1, list.size()));
    }
    codes = found;
    return std::nullopt;
}

bool fails(const File& file, const Options& options) {
    return std::any_of(file.remarks.begin(), file.remarks.end(), [&](const Remark& remark) {
        return options.failOn.count(remark.code) != 0;
    });
}

} // namespace ostrel::report
