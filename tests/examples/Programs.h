#pragma once

#include "frontend/ParsedFile.h"
#include "source/Utf8.h"
#include "tree/Dump.h"

#include <zt_orvex/ast/TypedViews.h>

#include <string>
#include <string_view>

namespace ostrel::testing {

inline ParsedFile parse(std::string_view source) { return parseOstrel("test.ost", source); }

/// The nodes of the program, one per line.
inline std::string dumpNodes(const ParsedFile& file) {
    std::string text;
    for (const zt::orvex::NodeView node : zt::orvex::ProgramView(file.root).getProgramNodes()) {
        text += dump(*file.tree, node) + "\n";
    }
    return text;
}

/// The errors, each as a line "line:column: message".
inline std::string dumpErrors(const ParsedFile& file) {
    std::string text;
    for (const Diagnostic& each : file.diagnostics) {
        text += std::to_string(each.place.line) + ":" + std::to_string(each.place.column) + ": " +
                each.message + "\n";
    }
    return text;
}

inline std::string errors(std::string_view source) { return dumpErrors(parse(source)); }

/// The tree of a program, followed by its errors.
inline std::string nodes(std::string_view source) {
    const ParsedFile file = parse(source);
    return dumpNodes(file) + dumpErrors(file);
}

/// Like `nodes`, for one statement, without the line end.
inline std::string statement(std::string_view source) {
    std::string text = nodes(source);
    if (!text.empty()) text.pop_back();
    return text;
}

/// The tree of `source` as the right-hand side of an assignment.
inline std::string expression(std::string_view source) {
    const std::string text = statement("y = " + std::string(source) + ";");
    const std::string_view begin = "(AssignmentStatement y ";
    if (text.compare(0, begin.size(), begin) != 0) return text;
    return text.substr(begin.size(), text.size() - begin.size() - 1);
}

/// The names of a scope's universe, in order.
inline std::string universe(const ParsedFile& file, std::size_t scope) {
    std::string text;
    for (const zt::orvex::SymbolView symbol : file.scopes[scope].universe) {
        text += (text.empty() ? "" : " ") + toUtf8(file.tree->symbolName(symbol));
    }
    return text;
}

} // namespace ostrel::testing
