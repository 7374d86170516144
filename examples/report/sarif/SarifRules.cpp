#include "report/sarif/SarifRules.h"

#include <array>
#include <tuple>
#include <type_traits>

namespace ostrel::report {

namespace {

using Json = nlohmann::ordered_json;

/// What a rule says beyond its summary.
struct RuleText {
    RemarkCode code;
    std::string_view reason; ///< Why it matters.
    std::string_view help;   ///< What to do.
};

constexpr std::array<RuleText, 8> RULE_TEXTS{{
    {RemarkCode::Carried,
     "The iterations of a parfor run in any order and at the same time, so a value that one of "
     "them leaves for another makes the result depend on chance.",
     "Assign the variable in each iteration before reading it, give each iteration elements of its "
     "own, or use an ordinary for."},
    {RemarkCode::Shared,
     "Two iterations that write the same element of a variable overwrite each other's value, and "
     "which of the two remains depends on chance.",
     "Index the variable with the loop variable itself, at the same position everywhere."},
    {RemarkCode::UsedAfter,
     "Each iteration of a parfor has temporaries and a loop variable of its own, and they are gone "
     "when the loop ends.",
     "Store what is needed later in an element for each iteration, or compute it after the loop."},
    {RemarkCode::LoopVariableWritten,
     "The values of the loop variable are distributed among the iterations in advance. Assigning "
     "to it changes no other iteration, and its uses as an index no longer keep the iterations "
     "apart.",
     "Assign to another variable."},
    {RemarkCode::LeavesParallel,
     "The iterations or workers of a parallel construct run at the same time, so none of them can "
     "end the others.",
     "Test the condition in each iteration, or use an ordinary for."},
    {RemarkCode::Ans,
     "'ans' then holds the value of a statement outside the construct, or of the one that happened "
     "to run last.",
     "Assign the value to a variable, and read that instead."},
    {RemarkCode::Restricted,
     "The function accesses variables by name, or depends on its caller, so it isn't known which "
     "variables the construct uses.",
     "Write the code out, move it into a function, or call the function before the construct."},
    {RemarkCode::UnknownPragma, "Tools ignore a pragma that they don't know.",
     "Correct the name of the directive, or make the line an ordinary comment."},
}};
static_assert(RULE_TEXTS.size() == std::tuple_size_v<std::decay_t<decltype(remarkRules())>>);

Json ruleOf(std::string_view id, std::string_view summary, std::string_view reason,
            std::string_view help, std::string_view level) {
    return {{"id", id},
            {"shortDescription", {{"text", summary}}},
            {"fullDescription", {{"text", reason}}},
            {"help", {{"text", help}}},
            {"defaultConfiguration", {{"level", level}}}};
}

} // namespace

Json sarifRules() {
    Json rules = Json::array();
    for (const RemarkRule& rule : remarkRules()) {
        const RuleText& text = RULE_TEXTS[sarifRuleIndexOf(rule.code)];
        rules.push_back(ruleOf(rule.name, rule.summary, text.reason, text.help, "warning"));
    }
    rules.push_back(ruleOf(SARIF_ERROR_RULE, "A part of the file can't be parsed or analysed.",
                           "The report covers the rest of the file.",
                           "Correct the error to see the remarks on what it hides.", "error"));
    return rules;
}

std::size_t sarifRuleIndexOf(RemarkCode code) { return static_cast<std::size_t>(code); }

std::size_t sarifRuleIndexOfErrors() { return remarkRules().size(); }

} // namespace ostrel::report
