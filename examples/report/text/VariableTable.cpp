#include "report/text/VariableTable.h"

#include "report/text/RoleText.h"
#include "terminal/Tone.h"
#include "terminal/Wrap.h"

#include <algorithm>
#include <string_view>

namespace ostrel::report {

namespace {

constexpr std::size_t INDENT = 4;
constexpr std::size_t GAP = 2;
constexpr std::size_t MIN_NOTE_WIDTH = 30;

Tone toneOf(Role role) {
    switch (role) {
    case Role::LoopVariable:
        return Tone::Loop;
    case Role::Temporary:
    case Role::Sliced:
    case Role::Reduction:
        return Tone::Private;
    case Role::Output:
        return Tone::Result;
    case Role::Shared:
    case Role::Carried:
    case Role::Updated:
        return Tone::Shared;
    case Role::ReadFromOutside:
        return Tone::Plain;
    case Role::NotUsed:
        return Tone::Faint;
    }
    return Tone::Plain;
}

bool isListed(const Variable& variable) {
    return variable.isInBody || variable.role == Role::LoopVariable;
}

std::string blanks(std::size_t count) { return std::string(count, ' '); }

} // namespace

void VariableTable::write(const Construct& construct) {
    Columns columns;
    for (const Variable& variable : construct.variables) {
        if (!isListed(variable)) continue;
        columns.name = std::max(columns.name, variable.name.size());
        columns.role = std::max(columns.role, roleText(variable).size());
    }
    if (columns.name == 0) {
        out << blanks(INDENT) << "The body names no variable.\n";
        return;
    }
    for (const Variable& variable : construct.variables) {
        if (isListed(variable)) writeRow(variable, columns);
    }
}

/// The note follows the role, or goes below it if there is too little room.
void VariableTable::writeRow(const Variable& variable, const Columns& columns) {
    const std::string role = roleText(variable);
    const std::string note = noteOf(variable);
    out << blanks(INDENT) << variable.name << blanks(columns.name - variable.name.size() + GAP)
        << painted(style, toneOf(variable.role), role);
    const std::size_t noteColumn = INDENT + columns.name + GAP + columns.role + GAP;
    if (note.empty()) {
        out << '\n';
    } else if (noteColumn + MIN_NOTE_WIDTH <= style.width) {
        out << blanks(columns.role - role.size() + GAP);
        writeNote(note, noteColumn);
    } else {
        out << '\n' << blanks(INDENT * 2);
        writeNote(note, INDENT * 2);
    }
}

/// Continues a line at a column, and aligns the lines that follow with it.
void VariableTable::writeNote(const std::string& note, std::size_t column) {
    const std::size_t width = std::max(style.width, column + MIN_NOTE_WIDTH) - column;
    bool isFirst = true;
    for (const std::string& line : wrap(note, width)) {
        out << (isFirst ? "" : blanks(column)) << line << '\n';
        isFirst = false;
    }
}

} // namespace ostrel::report
