#pragma once

#include "source/Place.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::report {

enum class RemarkCode {
    Carried,
    Shared,
    UsedAfter,
    LoopVariableWritten,
    LeavesParallel,
    Ans,
    Restricted,
    UnknownPragma,
};

/// What a code stands for.
struct RemarkRule {
    RemarkCode code;
    std::string_view name;    ///< As users write it: `used-after`.
    std::string_view summary; ///< One sentence.
};

/// The rules of all codes, in the order of `RemarkCode`.
const std::array<RemarkRule, 8>& remarkRules();

/// Such as `used-after`.
std::string_view nameOf(RemarkCode code);

/// One step of a path of control.
struct Step {
    Place place;
    std::string note; ///< What happens there: "the loop at 15:5 may run no iteration".
};
using Path = std::vector<Step>;

/// What a path of a remark with several of them shows: `how another iteration reads it:`.
std::string_view introductionOf(RemarkCode code, std::size_t path);

/// Something in a program that may not do what its author expects.
struct Remark {
    RemarkCode code = RemarkCode::Carried;
    Place place;
    std::string message;                  ///< What is wrong: one line, no full stop.
    std::string help;                     ///< What to do about it, likewise.
    std::optional<std::size_t> construct; ///< In `File::constructs`; nothing for a pragma.
    std::string variable;                 ///< The variable, function or directive.
    std::vector<Path> paths;              ///< What proves it: as many paths as it takes, or none.
};

} // namespace ostrel::report
