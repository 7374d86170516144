#pragma once

#include "report/SyntaxSpans.h"
#include "source/Diagnostic.h"
#include "source/SourceText.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// The report as plain data: `analyze` fills it in, and the writers (JSON, text, HTML) format it.
// All text is UTF-8; all offsets and lengths are in UTF-16 units of the source text.

namespace ostrel::report {

/// A piece of the source text.
struct Place {
    std::size_t offset = 0;
    std::size_t length = 0;
    std::size_t line = 1;   ///< From 1.
    std::size_t column = 1; ///< From 1, in Unicode code points.
};

enum class ConstructKind { Parfor, Spmd };

/// The role of a variable in one construct. "Written" and "read" mean by a reachable statement of
/// the body. A variable has one role in each construct that names it, so a variable that an inner
/// loop carries may be temporary in the loop around it.
enum class Role {
    /// The variable of the `parfor` statement itself. Those of nested loops are temporary.
    LoopVariable,

    /// `parfor`: written, and on no path read before it is written whole. Each iteration has its
    /// own, and the loop leaves no value in it.
    Temporary,

    /// `parfor`: written in parts, independently in each iteration: either nothing of it is read
    /// before it is written (a part written through one index counts, unless the index is the
    /// variable of a nested `for`), or every use is of an element at the iteration's own index
    /// (`Variable::hasOwnElements`).
    Sliced,

    /// `spmd`: written, and on no path read before it is written whole. Its value is available
    /// after the statement.
    Output,

    /// Only read: the value comes from outside the construct. Also a variable that only the head of
    /// the construct names.
    ReadFromOutside,

    /// `parfor`: on some path read before it is written whole, and written too, so that an
    /// iteration may see the value from another one.
    Carried,

    /// `spmd`: on some path read before it is written whole, and written too: it comes from outside
    /// and is changed.
    Updated,

    /// Named, but neither read nor written: in a `global` declaration, or in unreachable code.
    NamedOnly,
};

/// A variable of the scope that a construct names.
struct Variable {
    std::string name;
    Role role = Role::NamedOnly;

    /// Whether the body names it; if not, only the head of the construct does.
    bool isInBody = false;

    /// Whether every path is known to read it before writing it. Never set for reads after a loop.
    bool isReadOnEveryPath = false;

    /// `parfor`: whether every use in the body is of an element with the loop variable at the same
    /// position of its index, such as `x(k)`, so that no two iterations use the same element.
    bool hasOwnElements = false;

    /// Every occurrence in the construct, its head and nested constructs included, in source order.
    std::vector<Place> places;

    /// The first read, in source order, that some path reaches before a whole write. Empty if the
    /// role says that nothing is read first.
    std::optional<Place> firstRead;

    /// Whether `firstRead` is a write of a part, such as `x(j) = 1`, which keeps the rest, rather
    /// than a plain read.
    bool isFirstReadPartialWrite = false;

    /// The last reachable write in source order: for `Carried`, the one whose value is carried.
    std::optional<Place> lastWrite;
};

enum class WarningKind { AnsReadFirst, RestrictedExternal, UnknownPragma };

/// Something that may not do what its author expects.
struct Warning {
    WarningKind kind = WarningKind::AnsReadFirst;
    std::string name; ///< `ans`, the function, or the directive.
    Place place;
    std::string message; ///< What is wrong: one line, no full stop.
    std::string help;    ///< What to do about it, likewise.
};

/// A function or method, or the script part of a file.
struct Scope {
    std::string name;                  ///< The bare name; empty for the script.
    std::vector<std::string> universe; ///< Its variables, in order of first appearance.
};

/// A `parfor` or `spmd` statement. Sets of names are sorted by code unit.
///
/// A construct holds only variables that it names: a scope may have thousands of others, and
/// thousands of constructs. All the others are live in none of its sets.
struct Construct {
    ConstructKind kind = ConstructKind::Parfor;
    Place keyword;
    Place extent;                         ///< From the keyword to the `end`, inclusive.
    std::optional<std::size_t> enclosing; ///< The innermost enclosing one, in `File::constructs`.
    std::size_t scope = 0;                ///< In `File::scopes`.
    std::string loopVariable;             ///< Of a `parfor`; otherwise empty.

    // The library's answers. The first three are for a `parfor`, `notOutputs` is for an `spmd`. Of
    // the sets that the library returns with all variables that a body doesn't touch, this has the
    // complement in the universe.
    std::vector<std::string> liveAsTemporary;
    std::vector<std::string> maybeLiveAsTemporary;
    std::vector<std::string> liveAsSliced;
    std::vector<std::string> notOutputs;
    bool ansPossiblyReadBeforeBeingWritten = false;

    std::vector<std::string> restrictedExternals; ///< The ones that the body uses.

    std::vector<Variable> variables; ///< In the universe's order.
    std::vector<Warning> warnings;   ///< In source order, without those of nested constructs.
};

struct PragmaEntry {
    Place place;           ///< From the `%#` to the end of its line.
    std::string kind;      ///< The library's word for the kind.
    std::string name;      ///< The directive as written.
    std::string arguments; ///< The library's trimmed arguments.
};

struct File {
    std::string path; ///< As given.
    SourceText source;
    std::vector<SyntaxSpan> syntax;      ///< Pieces to colour, in source order.
    std::vector<Diagnostic> diagnostics; ///< In source order.
    std::vector<PragmaEntry> pragmas;    ///< In source order.
    std::vector<Scope> scopes;           ///< In source order.
    std::vector<Construct> constructs;   ///< In source order, nested ones included.
    std::vector<Warning> warnings;       ///< Those outside all constructs, in source order.

    bool hasErrors() const { return !diagnostics.empty(); }
};

struct Report {
    std::vector<File> files;
};

} // namespace ostrel::report
