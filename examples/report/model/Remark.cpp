#include "report/model/Remark.h"

namespace ostrel::report {

const std::array<RemarkRule, 8>& remarkRules() {
    static constexpr std::array<RemarkRule, 8> RULES{{
        {RemarkCode::Carried, "carried",
         "An iteration may read a value that another iteration has written."},
        {RemarkCode::Shared, "shared", "Two iterations may write the same part of a variable."},
        {RemarkCode::UsedAfter, "used-after",
         "A value that is lost at the end of a parallel loop may be read after it."},
        {RemarkCode::LoopVariableWritten, "loop-variable-written",
         "The body of a parallel loop writes the loop variable."},
        {RemarkCode::LeavesParallel, "leaves-parallel",
         "A statement leaves the body of a parallel construct."},
        {RemarkCode::Ans, "ans", "The body may read 'ans' before it has set it."},
        {RemarkCode::Restricted, "restricted",
         "The body uses a function whose effects static analysis can't see."},
        {RemarkCode::UnknownPragma, "unknown-pragma", "No directive has the name of the pragma."},
    }};
    return RULES;
}

std::string_view nameOf(RemarkCode code) {
    return remarkRules()[static_cast<std::size_t>(code)].name;
}

std::string_view introductionOf(RemarkCode code, std::size_t path) {
    if (code == RemarkCode::Carried)
        return path == 0 ? "how the value leaves its iteration:"
                         : "how another iteration reads it:";
    return path == 0 ? "one path:" : "another path:";
}

} // namespace ostrel::report
