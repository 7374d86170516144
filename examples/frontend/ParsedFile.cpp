#include "frontend/ParsedFile.h"

#include "source/SortByOffset.h"
#include "source/SourceLimit.h"
#include "source/Utf8.h"
#include "symbols/ResolveSymbols.h"
#include "syntax/Characters.h"
#include "syntax/FileParser.h"

#include <algorithm>
#include <utility>

namespace ostrel {

namespace {

void addScopes(ParsedFile& file, const std::vector<ResolvedScope>& resolved,
               std::vector<std::size_t>& indices) {
    const TreeStorage& parts = file.tree->parts();
    for (ScopeId id = 0; id < resolved.size(); ++id) {
        indices.push_back(file.scopes.size());
        const ScopeData& data = parts.scopes[id];
        if (data.kind != ScopeKind::Script && data.kind != ScopeKind::Function) continue;
        Scope scope{toUtf8(parts.names[data.name]), {}, file.tree->symbolView(resolved[id].ans)};
        for (const SymbolId symbol : resolved[id].universe) {
            scope.universe.push_back(file.tree->symbolView(symbol));
        }
        file.scopes.push_back(std::move(scope));
    }
}

void addConstructs(ParsedFile& file, const std::vector<FoundConstruct>& found,
                   const std::vector<std::size_t>& scopeIndices) {
    for (const FoundConstruct& construct : found) {
        const zt::orvex::NodeView node = file.tree->view(construct.node);
        file.constructs.push_back(
            {node, file.tree->beginOffset(node), scopeIndices[construct.scope]});
    }
    std::sort(file.constructs.begin(), file.constructs.end(),
              [](const Construct& a, const Construct& b) { return a.offset < b.offset; });
}

void addPragmas(ParsedFile& file, const std::vector<std::size_t>& offsets) {
    for (const std::size_t offset : offsets) {
        const std::size_t end = skipToLineEnd(file.source, offset);
        file.pragmas.push_back({offset, file.source.text().substr(offset, end - offset)});
    }
}

void addDiagnostics(ParsedFile& file, std::vector<Diagnostic> diagnostics) {
    sortByOffset(diagnostics, [](const Diagnostic& diagnostic) { return diagnostic.place.offset; });
    for (Diagnostic& diagnostic : diagnostics)
        diagnostic.place = file.source.place(diagnostic.place.offset, diagnostic.place.length);
    file.diagnostics = std::move(diagnostics);
}

/// Reports where the text stops being UTF-8, and keeps what precedes that place.
void refuse(ParsedFile& file, std::string_view utf8) {
    file.isUtf8 = false;
    file.source = *SourceText::fromUtf8(utf8.substr(0, SourceText::validUtf8Prefix(utf8)));
    file.diagnostics.push_back({file.source.place(file.source.size(), 0), Severity::Error,
                                "the file is not UTF-8 from here on", ""});
}

/// Reads `source`: the file's own text, or an empty one.
void read(ParsedFile& file, const SourceText& source) {
    FileParser parser(source);
    const NodeId root = parser.parse();
    TreeStorage storage = parser.state.builder.release();
    const std::vector<ResolvedScope> resolved = resolveSymbols(storage);
    file.tree = std::make_unique<Tree>(std::move(storage), root);
    file.root = file.tree->root();
    std::vector<std::size_t> scopeIndices;
    addScopes(file, resolved, scopeIndices);
    addConstructs(file, parser.state.constructs, scopeIndices);
    addPragmas(file, parser.state.pragmas);
    addDiagnostics(file, std::move(parser.state.diagnostics));
}

} // namespace

ParsedFile parseOstrel(std::string path, std::string_view utf8Text) {
    ParsedFile file;
    file.path = std::move(path);
    if (isSourceTooLarge(utf8Text.size())) {
        read(file, SourceText());
        file.diagnostics.push_back({Place(), Severity::Error, SOURCE_TOO_LARGE, ""});
    } else if (auto text = SourceText::fromUtf8(utf8Text)) {
        file.source = *std::move(text);
        read(file, file.source);
    } else {
        read(file, SourceText());
        refuse(file, utf8Text);
    }
    return file;
}

} // namespace ostrel
