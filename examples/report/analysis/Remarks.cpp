#include "report/analysis/Remarks.h"

#include "report/analysis/PathSteps.h"
#include "source/Utf8.h"

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/pragma/Pragma.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <utility>

namespace ostrel::report {

using namespace zt::orvex;

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

/// Why a block may not write what is written in it.
struct BlockRow {
    NodeKind kind;
    std::string_view word;
    std::string_view reason;
};

constexpr std::array<BlockRow, 6> BLOCKS{{
    {NodeKind::ForStatement, "loop", "which may run no iteration"},
    {NodeKind::WhileStatement, "loop", "which may run no iteration"},
    {NodeKind::ParforStatement, "parfor", "which may run no iteration"},
    {NodeKind::IfStatement, "if", "which doesn't assign it on every path"},
    {NodeKind::SwitchStatement, "switch", "which doesn't assign it in every case"},
    {NodeKind::TryStatement, "try", "which an error may leave before it has"},
}};

const BlockRow& rowOf(NodeKind kind) {
    return *std::find_if(BLOCKS.begin(), BLOCKS.end(),
                         [&](const BlockRow& row) { return row.kind == kind; });
}

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

Remark makeRemark(RemarkCode code, const std::string& about, const Place& place,
                  std::string message, std::string help) {
    Remark remark;
    remark.code = code;
    remark.variable = about;
    remark.place = place;
    remark.message = std::move(message);
    remark.help = std::move(help);
    return remark;
}

/// Such as `'x(k)'`.
std::string element(const std::string& name, const std::string& index) {
    return quoted(name + "(" + index + ")");
}

std::string helpForLost(const std::string& name, const std::string& loopVariable) {
    if (name == loopVariable)
        return "assign what you need after the loop to another variable there";
    return "let each iteration write its own element, such as " + element(name, loopVariable) +
           ", and choose among them after the loop";
}

} // namespace

Remark remarkOnCarried(const std::string& name, const Place& read, const Place& written,
                       bool isPartialWrite) {
    const std::string what =
        (isPartialWrite ? "this write keeps the rest of " : "this reads ") + quoted(name);
    return makeRemark(
        RemarkCode::Carried, name, read,
        what + ", which another iteration may have written at " + lineAndColumn(written), "");
}

Remark remarkOnShared(const std::string& name, const std::string& loopVariable,
                      const Place& write) {
    return makeRemark(RemarkCode::Shared, name, write,
                      "two iterations may write the same part of " + quoted(name),
                      "let each iteration write its own element, such as " +
                          element(name, loopVariable) + ", and combine them after the loop");
}

Remark remarkOnLoopVariable(const std::string& name, const Place& write) {
    return makeRemark(RemarkCode::LoopVariableWritten, name, write,
                      "the body writes " + quoted(name) + ", the variable of its own parfor",
                      "use another variable; each iteration gets " + quoted(name) +
                          " from the parfor");
}

Remark remarkOnUseAfter(const std::string& name, const Place& write, const Place& read,
                        const std::string& loopVariable) {
    return makeRemark(RemarkCode::UsedAfter, name, write,
                      quoted(name) +
                          " loses its value at the end of the parfor, and may be read at " +
                          lineAndColumn(read),
                      helpForLost(name, loopVariable));
}

Remark remarkOnLostOutput(const std::string& name, const Place& write, const std::string& function,
                          const std::string& loopVariable) {
    return makeRemark(RemarkCode::UsedAfter, name, write,
                      quoted(name) +
                          " loses its value at the end of the parfor, and is an output of " +
                          quoted(function),
                      helpForLost(name, loopVariable));
}

Remark remarkOnLeaving(ConstructKind kind, bool isReturn, const Place& place) {
    const std::string word = isReturn ? "return" : "break";
    const bool isParfor = kind == ConstructKind::Parfor;
    return makeRemark(RemarkCode::LeavesParallel, word, place,
                      "a " + word + " cannot leave " + withArticle(kind) + " body",
                      isParfor ? "skip the rest of the iteration by 'continue' or 'if', or use "
                                 "'for' instead of 'parfor'"
                               : "skip the rest of the block by 'if', and return after it");
}

Remark remarkOnAns(ConstructKind kind, const Place& place) {
    return makeRemark(RemarkCode::Ans, "ans", place,
                      std::string("'ans' may be read here before the ") + keywordOf(kind) +
                          " body has set it",
                      "assign the value to a variable, and read that instead");
}

Remark remarkOnRestricted(ConstructKind kind, const std::string& name, const Place& place) {
    const RestrictedRow row = rowOf(name);
    return makeRemark(RemarkCode::Restricted, name, place,
                      quoted(name) + " is restricted in " + withArticle(kind) + " body: it " +
                          std::string(row.reason),
                      std::string(row.help));
}

Remark remarkOnUnknownPragma(const PragmaEntry& pragma) {
    return makeRemark(RemarkCode::UnknownPragma, pragma.name, pragma.place,
                      "no directive is called " + quoted(pragma.name) +
                          ", so tools ignore this pragma",
                      helpForDirective(pragma.name));
}

std::string helpToAssignBefore(const std::string& name, NodeView block, const Place& place,
                               bool isReadInside) {
    const BlockRow& row = rowOf(block.getKind());
    return "assign " + quoted(name) + " before the " + std::string(row.word) + " at " +
           lineAndColumn(place) + ", " +
           (isReadInside ? "which reads it first" : std::string(row.reason));
}

std::string helpToAssignWhole(const std::string& name, const std::string& loopVariable) {
    return "assign all of " + quoted(name) + " at the beginning of the body, or index it by " +
           quoted(loopVariable) + " alone";
}

std::string helpToLeaveLoopVariable(const std::string& loopVariable) {
    return "leave " + quoted(loopVariable) +
           " as it is, so that each iteration can have an element of its own";
}

std::string helpToMakeIndependent(const std::string& name, bool isWrittenWhole) {
    const std::string reduction = isWrittenWhole
                                      ? "only combine it by one operation, as in " +
                                            quoted(name + " = " + name + " + e") + " or " +
                                            quoted(name + " = max(" + name + ", e)") + ", "
                                      : "";
    return "compute " + quoted(name) + " without the other iterations, " + reduction +
           "or use 'for' instead of 'parfor'";
}

Step stepOfWrite(const std::string& name, const Place& place) {
    return {place, quoted(name) + " is written at " + lineAndColumn(place)};
}

Step stepOfRead(const std::string& name, const Place& place, bool isPartialWrite) {
    return {place, quoted(name) + (isPartialWrite ? " keeps its rest at " : " is read at ") +
                       lineAndColumn(place)};
}

Step stepOfOutput(const std::string& name, const Place& end) {
    return {end, "the function returns " + quoted(name)};
}

std::string nameOfLoopVariable(ParforStatementView loop) {
    return toUtf8(IdentifierView(loop.getParforVariable()).getIdentifierName());
}

} // namespace ostrel::report
