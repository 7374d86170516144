#include "report/text/RoleText.h"

namespace ostrel::report {

namespace {

std::string at(const std::optional<Place>& place) {
    if (!place) return "an unknown place";
    return std::to_string(place->line) + ":" + std::to_string(place->column);
}

/// The first use of the value from before the construct or iteration.
std::string firstUse(const Variable& variable) {
    if (variable.isFirstReadPartialWrite)
        return "written in part at " + at(variable.firstRead) + ", which keeps the rest";
    return "first read at " + at(variable.firstRead) +
           (variable.isReadOnEveryPath ? ", on every path" : "");
}

std::string noteOfSliced(const Variable& variable) {
    if (!variable.firstRead || variable.isFirstReadPartialWrite)
        return "each iteration writes its own elements";
    return "each iteration reads and writes its own elements, " + firstUse(variable);
}

bool isAppending(const std::string& operation) { return operation == "[,]" || operation == "[;]"; }

std::string noteOfReduction(const Variable& variable) {
    return isAppending(variable.by) ? "appended to only" : "combined by " + variable.by + " only";
}

std::string noteOfRead(const Variable& variable) {
    if (!variable.isInBody) return "read only in the head";
    return firstUse(variable) +
           (variable.hasOwnElements ? "; each iteration reads its own elements" : "");
}

} // namespace

const char* nameOf(Role role) {
    switch (role) {
    case Role::LoopVariable:
        return "loop variable";
    case Role::Temporary:
        return "temporary";
    case Role::Sliced:
        return "sliced";
    case Role::Output:
        return "output";
    case Role::ReadFromOutside:
        return "read from outside";
    case Role::Shared:
        return "shared";
    case Role::Reduction:
        return "reduction";
    case Role::Carried:
        return "carried";
    case Role::Updated:
        return "read, then written";
    case Role::NotUsed:
        return "not used";
    }
    return "";
}

std::string roleText(const Variable& variable) {
    const std::string name = nameOf(variable.role);
    return variable.role == Role::Reduction ? name + " by " + variable.by : name;
}

std::string noteOf(const Variable& variable) {
    switch (variable.role) {
    case Role::LoopVariable:
        return variable.isInBody ? "" : "not used in the body";
    case Role::Temporary:
        return "written before it is read in each iteration";
    case Role::Sliced:
        return noteOfSliced(variable);
    case Role::Output:
        return "written before it is read";
    case Role::ReadFromOutside:
        return noteOfRead(variable);
    case Role::Shared:
        return "two iterations may write the same part; last written at " + at(variable.lastWrite);
    case Role::Reduction:
        return noteOfReduction(variable);
    case Role::Carried:
        return firstUse(variable) + "; last written at " + at(variable.lastWrite) +
               ", for another iteration";
    case Role::Updated:
        return firstUse(variable) + "; last written at " + at(variable.lastWrite);
    case Role::NotUsed:
        return "no reachable statement reads or writes it";
    }
    return "";
}

} // namespace ostrel::report
