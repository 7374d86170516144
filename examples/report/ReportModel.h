#pragma once

#include "report/SyntaxSpans.h"
#include "source/Diagnostic.h"
#include "source/SourceText.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// What the report says, as plain data: `analyze` fills it in, and the writers (JSON, text, HTML)
// only spell it. All text is UTF-8; all offsets and lengths are UTF-16 units of the source text.

namespace ostrel::report {

/// A piece of the source text.
struct Place {
    std::size_t offset = 0;
    std::size_t length = 0;
    std::size_t line = 1;   ///< From 1.
    std::size_t column = 1; ///< From 1, in Unicode code points.
};

enum class ConstructKind { Parfor, Spmd };

/// What a variable is to one construct. Written and read mean: by a statement of the body that
/// control can reach. A variable has one role in each construct that touches it, so one that is
/// carried by an inner loop may be temporary to the loop around it.
enum class Role {
    /// The variable of the `parfor` statement itself. Those of loops within are temporary.
    LoopVariable,

    /// `parfor`: written, and on no path read before it is written whole. Each iteration has one of
    /// its own, and nothing of it is left behind the loop.
    Temporary,

    /// `parfor`: written in parts, where the iterations need not know of each other: nothing of it
    /// is read before it is written (a part written through one index counts, unless the index is
    /// the variable of a `for` within), or every use is an element that bears the iteration's own
    /// index (`Variable::hasOwnElements`).
    Sliced,

    /// `spmd`: written, and on no path read before it is written whole. Its value is there behind
    /// the statement.
    Output,

    /// Only read: the value comes from outside of the construct. Also what stands in the
    /// construct's head alone.
    ReadFromOutside,

    /// `parfor`: on some path read before it is written whole, and written too, so that an
    /// iteration may see what another one has left.
    Carried,

    /// `spmd`: on some path read before it is written whole, and written too: it comes from outside
    /// and is changed.
    Updated,

    /// Named, but neither read nor written: in a `global` declaration, or where control never
    /// comes.
    NamedOnly,
};

/// A variable of the scope that a construct names.
struct Variable {
    std::string name;
    Role role = Role::NamedOnly;

    /// Whether the body names it; else only the construct's own head does.
    bool isInBody = false;

    /// Whether every path surely reads it before it is written. Never said of reads behind a loop.
    bool isReadOnEveryPath = false;

    /// `parfor`: whether every use in the body is an element that bears the loop variable at the
    /// same place of its index, as `x(k)`: no two iterations use the same one.
    bool hasOwnElements = false;

    /// Every appearance in the construct, head and nested constructs included, in source order.
    std::vector<Place> places;

    /// The first read that some path reaches before a whole write, in source order. There is none
    /// where the role says that nothing is read first.
    std::optional<Place> firstRead;

    /// Whether `firstRead` is no plain read but a write of a part, such as `x(j) = 1`, which keeps
    /// the rest.
    bool isFirstReadPartialWrite = false;

    /// The last write in source order that control reaches: the one that carries, of a `Carried`.
    std::optional<Place> lastWrite;
};

enum class WarningKind { AnsReadFirst, RestrictedExternal, UnknownPragma };

/// Something that works otherwise than its author may think.
struct Warning {
    WarningKind kind = WarningKind::AnsReadFirst;
    std::string name; ///< `ans`, the function, or the directive.
    Place place;
    std::string message; ///< What is wrong, on one line, without a full stop.
    std::string help;    ///< What to do about it, likewise.
};

/// A `parfor` or `spmd` statement. Sets of names are sorted by code unit.
struct Construct {
    ConstructKind kind = ConstructKind::Parfor;
    Place keyword;
    Place extent;                         ///< From the keyword to behind the `end`.
    std::optional<std::size_t> enclosing; ///< The next construct outwards, in `File::constructs`.
    std::string scope;                    ///< The function's bare name; empty for the script.
    std::string loopVariable;             ///< Of a `parfor`; else empty.
    std::vector<std::string> universe;    ///< In order of first appearance in the scope.

    // What the library answers. The first three are of a `parfor`, `outputs` is of a `spmd`.
    std::vector<std::string> liveAsTemporary;
    std::vector<std::string> maybeLiveAsTemporary;
    std::vector<std::string> notLiveAsSliced;
    std::vector<std::string> outputs;
    bool ansPossiblyReadBeforeBeingWritten = false;

    std::vector<std::string> restrictedExternals; ///< Those that the body uses.

    std::vector<Variable> variables; ///< In the universe's order.
    std::vector<Warning> warnings;   ///< In source order; those of nested constructs are theirs.
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
    std::vector<SyntaxSpan> syntax;      ///< What a writer may colour, in source order.
    std::vector<Diagnostic> diagnostics; ///< In source order.
    std::vector<PragmaEntry> pragmas;    ///< In source order.
    std::vector<Construct> constructs;   ///< In source order, nested ones included.
    std::vector<Warning> warnings;       ///< Those that belong to no construct, in source order.

    bool hasErrors() const { return !diagnostics.empty(); }
};

struct Report {
    std::vector<File> files;
};

} // namespace ostrel::report
