#include "report/analysis/Remarks.h"

#include "source/Utf8.h"

#include <zt_orvex/pragma/Pragma.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace ostrel::report {

namespace {

/// Why a function is restricted, and what to do instead.
struct RestrictedRow {
    std::string_view name;
    std::string_view reason;
    std::string_view help;
};

constexpr std::string_view BY_NAME = "accesses variables by name, which static analysis cannot see";
constexpr std::string_view OF_CALL = "depends on how the enclosing function was called";
constexpr std::string_view IN_FUNCTION = "move it into a function of its own and call that";
constexpr std::string_view BEFORE = "use it before the construct and keep the result in a variable";

constexpr std::array<RestrictedRow, 18> RESTRICTED{{
    {"assignin", BY_NAME, "return the value from a function and assign it"},
    {"builtin", "calls the function that its argument names", "call the function directly"},
    {"dbstack", OF_CALL, BEFORE},
    {"eval", BY_NAME, "write the code out, or move it into a function"},
    {"evalc", BY_NAME, "write the code out, or move it into a function"},
    {"evalin", BY_NAME, "pass the value as an argument"},
    {"feval", "calls the function that its argument names", "call the function directly"},
    {"input", "waits for keyboard input", BEFORE},
    {"inputname", OF_CALL, BEFORE},
    {"load", BY_NAME, IN_FUNCTION},
    {"nargin", OF_CALL, BEFORE},
    {"narginchk", OF_CALL, "check before the construct"},
    {"nargout", OF_CALL, BEFORE},
    {"nargoutchk", OF_CALL, "check before the construct"},
    {"save", BY_NAME, IN_FUNCTION},
    {"varargin", OF_CALL, BEFORE},
    {"who", BY_NAME, IN_FUNCTION},
    {"whos", BY_NAME, IN_FUNCTION},
}};

RestrictedRow rowOf(std::string_view name) {
    for (const RestrictedRow& row : RESTRICTED) {
        if (row.name == name) return row;
    }
    return {name, "is on the library's list of restricted functions", IN_FUNCTION};
}

const char* withArticle(ConstructKind kind) {
    return kind == ConstructKind::Parfor ? "a parfor" : "an spmd";
}

std::string quoted(std::string_view name) { return "'" + std::string(name) + "'"; }

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char character) {
        return static_cast<char>(std::tolower(character));
    });
    return text;
}

/// The words that `parsePragma` recognizes, from the library itself.
std::array<std::string, 8> knownDirectives() {
    using zt::orvex::PragmaKind;
    constexpr std::array<PragmaKind, 8> KINDS{
        PragmaKind::codegen, PragmaKind::zel,       PragmaKind::function, PragmaKind::internal,
        PragmaKind::vun,     PragmaKind::obfuscate, PragmaKind::ok,       PragmaKind::TestStandard};
    std::array<std::string, 8> words;
    std::transform(KINDS.begin(), KINDS.end(), words.begin(),
                   [](PragmaKind kind) { return toUtf8(zt::orvex::pragmaKindToString(kind)); });
    return words;
}

std::string helpForDirective(const std::string& name) {
    const std::array<std::string, 8> known = knownDirectives();
    std::string all;
    for (const std::string& word : known) {
        if (lowered(word) == lowered(name)) return "write " + quoted(word) + ": case matters";
        all += (all.empty() ? "" : ", ") + word;
    }
    return "known directives: " + all;
}

} // namespace

Remark remarkOnAns(ConstructKind kind, const Place& place) {
    Remark remark;
    remark.code = RemarkCode::Ans;
    remark.place = place;
    remark.variable = "ans";
    remark.message =
        std::string("'ans' may be read here before the ") + keywordOf(kind) + " body has set it";
    remark.help = "assign the value to a variable, and read that instead";
    return remark;
}

Remark remarkOnRestricted(ConstructKind kind, const std::string& name, const Place& place) {
    const RestrictedRow row = rowOf(name);
    Remark remark;
    remark.code = RemarkCode::Restricted;
    remark.place = place;
    remark.variable = name;
    remark.message = quoted(name) + " is restricted in " + withArticle(kind) + " body: it " +
                     std::string(row.reason);
    remark.help = row.help;
    return remark;
}

Remark remarkOnUnknownPragma(const PragmaEntry& pragma) {
    Remark remark;
    remark.code = RemarkCode::UnknownPragma;
    remark.place = pragma.place;
    remark.variable = pragma.name;
    remark.message =
        "no directive is called " + quoted(pragma.name) + ", so tools ignore this pragma";
    remark.help = helpForDirective(pragma.name);
    return remark;
}

} // namespace ostrel::report
