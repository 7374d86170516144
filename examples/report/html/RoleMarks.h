#pragma once

#include "report/model/Variable.h"

#include <array>
#include <string>

namespace ostrel::report {

/// How the page shows a role to those who see its colours, and to those who don't.
struct RoleMark {
    Role role;
    const char* style; ///< Its class in the style sheet, which has its colour and its underline.
    char letter;
};

/// The marks of all roles, in the order of `Role`.
const std::array<RoleMark, 10>& roleMarks();

const RoleMark& markOf(Role role);

/// The rules of the style sheet for the letters in the source.
std::string letterRules();

/// The legend: what the marks of roles, errors and remarks mean.
std::string legend();

/// A letter in a box, and the name of the role.
std::string roleLabel(Role role);

} // namespace ostrel::report
