#pragma once

#include "report/model/Variable.h"

#include <array>
#include <string>
#include <string_view>

namespace ostrel::report {

/// How the page shows a role to those who see its colours, and to those who don't.
struct RoleMark {
    Role role;
    const char* style; ///< Its class in the style sheet, for its colour and its underline.
    char letter;
};

/// The marks of all roles, in the order of `Role`.
const std::array<RoleMark, 10>& roleMarks();

const RoleMark& markOf(Role role);

/// The rules of the style sheet for the letters in the source.
std::string letterRules();

/// The legend: what the marks of roles, errors and remarks mean.
std::string legend();

/// The letter and the text of a role, for an element that has its style.
std::string roleLabel(const RoleMark& mark, std::string_view text);

} // namespace ostrel::report
