#pragma once

#include "source/Place.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::report {

/// The role of a variable in one construct. "Written" and "read" mean by a reachable statement of
/// the body; "live" means that on some path the body reads it before it writes it whole. A variable
/// has one role in each construct that names it, so a variable that an inner loop carries may be
/// temporary in the loop around it.
enum class Role {
    /// The variable of the `parfor` statement itself. Those of nested loops are temporary.
    LoopVariable,

    /// Only read, by the body or by the construct's own head.
    ReadFromOutside,

    /// Named, but neither read nor written: in a `global` declaration, or in unreachable code.
    NotUsed,

    /// `parfor`: written and not live. Each iteration has its own, and the loop leaves no value in
    /// it.
    Temporary,

    /// `spmd`: written and not live. Its value is available after the statement.
    Output,

    /// `parfor`: live, but every use is of an element at the iteration's own index.
    Sliced,

    /// `parfor`: live only because parts of it are written, and two iterations may write the same
    /// one.
    Shared,

    /// `parfor`: live, but only combined with further values by one operation (`Variable::by`).
    Reduction,

    /// `parfor`: live and written, so an iteration may see the value from another one.
    Carried,

    /// `spmd`: live and written: it comes from outside and is changed.
    Updated,
};

/// A role as programs know it, such as `readFromOutside`.
std::string_view identifierOf(Role role);

/// A variable of the scope that a construct names.
struct Variable {
    std::string name;
    Role role = Role::NotUsed;

    /// `Reduction`: the operator, `[,]` or `[;]` for appending, or the name of the function.
    std::string by;

    /// Whether the body names it; if not, only the head of the construct does.
    bool isInBody = false;

    /// Whether every path is known to read it before writing it. Never set for reads after a loop.
    bool isReadOnEveryPath = false;

    /// `parfor`: whether every use in the body is of an element with the loop variable at the same
    /// position of its index, such as `x(k)`, so that no two iterations use the same element.
    bool hasOwnElements = false;

    /// Every occurrence in the construct, its head and nested constructs included, in source order.
    std::vector<Place> places;

    /// The first read, in source order, that some path reaches before a whole write.
    std::optional<Place> firstRead;

    /// Whether `firstRead` is a write of a part, such as `x(j) = 1`, which keeps the rest, rather
    /// than a plain read.
    bool isFirstReadPartialWrite = false;

    /// The last reachable write in source order.
    std::optional<Place> lastWrite;
};

} // namespace ostrel::report
