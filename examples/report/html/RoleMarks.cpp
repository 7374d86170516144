#include "report/html/RoleMarks.h"

#include "report/html/Escape.h"
#include "report/text/RoleText.h"

#include <cstddef>

namespace ostrel::report {

namespace {

// Where the first letter of a name is taken, the letter is one that its sound brings to mind.
constexpr std::array<RoleMark, 10> MARKS{{
    {Role::LoopVariable, "role-loop", 'L'},
    {Role::ReadFromOutside, "role-outside", 'R'},
    {Role::NotUsed, "role-unused", 'N'},
    {Role::Temporary, "role-temporary", 'T'},
    {Role::Output, "role-output", 'O'},
    {Role::Sliced, "role-sliced", 'S'},
    {Role::Shared, "role-shared", 'H'},
    {Role::Reduction, "role-reduction", 'D'},
    {Role::Carried, "role-carried", 'C'},
    {Role::Updated, "role-updated", 'U'},
}};

constexpr bool isInOrder() {
    for (std::size_t i = 0; i < MARKS.size(); ++i) {
        if (static_cast<std::size_t>(MARKS[i].role) != i) return false;
    }
    return true;
}
static_assert(isInOrder(), "markOf takes the role for an index");

} // namespace

const std::array<RoleMark, 10>& roleMarks() { return MARKS; }

const RoleMark& markOf(Role role) { return MARKS[static_cast<std::size_t>(role)]; }

std::string letterRules() {
    std::string rules;
    for (const RoleMark& mark : MARKS)
        rules += std::string(".") + mark.style + " { --letter: \"" + mark.letter + "\"; }\n";
    return rules;
}

std::string legend() {
    std::string items;
    for (const RoleMark& mark : MARKS)
        items += std::string("<li class=\"") + mark.style + "\">" +
                 roleLabel(mark, nameOf(mark.role)) + "</li>\n";
    return items;
}

std::string roleLabel(const RoleMark& mark, std::string_view text) {
    return std::string("<b>") + mark.letter + "</b><u>" + escaped(text) + "</u>";
}

} // namespace ostrel::report
