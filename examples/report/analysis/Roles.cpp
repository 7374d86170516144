#include "report/analysis/Roles.h"

#include <algorithm>
#include <iterator>

namespace ostrel::report {

namespace {

struct RoleRow {
    Role role;
    bool (*applies)(const Evidence& e);
};

bool isParfor(const Evidence& e) { return e.kind == ConstructKind::Parfor; }

/// The first row that applies decides.
constexpr RoleRow ROLES[] = {
    {Role::LoopVariable, [](const Evidence& e) { return e.isLoopVariable; }},
    {Role::ReadFromOutside,
     [](const Evidence& e) { return !e.isWritten && (e.isLive || e.isReadByHead); }},
    {Role::NotUsed, [](const Evidence& e) { return !e.isWritten; }},
    {Role::Temporary, [](const Evidence& e) { return isParfor(e) && !e.isLive; }},
    {Role::Output, [](const Evidence& e) { return !e.isLive; }},
    {Role::Updated, [](const Evidence& e) { return !isParfor(e); }},
    {Role::Sliced, [](const Evidence& e) { return e.hasOwnElements; }},
    {Role::Shared, [](const Evidence& e) { return !e.isLiveAsSliced; }},
    {Role::Reduction, [](const Evidence& e) { return e.isReduction; }},
    {Role::Carried, [](const Evidence&) { return true; }},
};

} // namespace

Role roleOf(const Evidence& evidence) {
    return std::find_if(std::begin(ROLES), std::end(ROLES),
                        [&](const RoleRow& row) { return row.applies(evidence); })
        ->role;
}

} // namespace ostrel::report
