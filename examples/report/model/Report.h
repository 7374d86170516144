#pragma once

#include "report/model/Remark.h"
#include "report/model/SyntaxSpan.h"
#include "report/model/Variable.h"
#include "source/Diagnostic.h"
#include "source/Place.h"
#include "source/SourceText.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// The report as plain data: `analyze` fills it in, and the writers format it.
// All text is UTF-8; all offsets and lengths are in UTF-16 units of the source text.

namespace ostrel::report {

enum class ConstructKind { Parfor, Spmd };

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

    std::vector<Variable> variables; ///< In the order in which the construct names them.
};

struct PragmaEntry {
    Place place;           ///< From the `%#` to the end of its line.
    std::string kind;      ///< The library's word for the kind.
    std::string name;      ///< The directive as written.
    std::string arguments; ///< The library's trimmed arguments.
};

struct File {
    std::string path;    ///< As given, or as found in a folder that was given.
    std::string failure; ///< Why it could not be read; then all below is empty. Otherwise empty.
    SourceText source;
    std::vector<SyntaxSpan> syntax;      ///< Pieces to colour, in source order.
    std::vector<Diagnostic> diagnostics; ///< In source order.
    std::vector<PragmaEntry> pragmas;    ///< In source order.
    std::vector<Scope> scopes;           ///< In source order.
    std::vector<Construct> constructs;   ///< In source order, nested ones included.
    std::vector<Remark> remarks;         ///< In source order.

    bool hasErrors() const { return !diagnostics.empty(); }
};

struct Report {
    std::vector<File> files;
};

/// `parfor` or `spmd`.
const char* keywordOf(ConstructKind kind);

} // namespace ostrel::report
