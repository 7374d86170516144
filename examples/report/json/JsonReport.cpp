#include "report/json/JsonReport.h"

#include "report/json/JsonStream.h"
#include "source/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace ostrel::report {

namespace {

using Json = JsonStream::Json;

Json toJson(const Diagnostic& diagnostic) {
    return {{"line", diagnostic.place.line},
            {"column", diagnostic.place.column},
            {"severity", diagnostic.severity == Severity::Error ? "error" : "warning"},
            {"message", diagnostic.message}};
}

Json toJson(const PragmaEntry& pragma) {
    return {{"line", pragma.place.line},
            {"column", pragma.place.column},
            {"kind", pragma.kind},
            {"name", pragma.name},
            {"arguments", pragma.arguments}};
}

using Names = std::vector<std::string>;

/// The universe of each scope, sorted by code unit.
std::vector<Names> sortedUniverses(const File& file) {
    std::vector<Names> sorted;
    for (const Scope& scope : file.scopes) {
        sorted.push_back(scope.universe);
        std::sort(sorted.back().begin(), sorted.back().end());
    }
    return sorted;
}

class JsonWriter {
public:
    explicit JsonWriter(std::ostream& out) : json(out) {}

    void write(const Report& report) {
        json.beginObject();
        json.key("files");
        json.beginArray();
        for (const File& file : report.files)
            write(file);
        json.endArray();
        json.endObject();
    }

private:
    void write(const File& file) {
        const std::vector<Names> sorted = sortedUniverses(file);
        json.beginObject();
        write("path", file.path);
        if (!isUtf8(file.path)) write("pathIsNotUtf8", true);
        writeArray("diagnostics", file.diagnostics);
        writeArray("pragmas", file.pragmas);
        json.key("constructs");
        json.beginArray();
        for (const Construct& construct : file.constructs)
            write(construct, file.scopes[construct.scope], sorted[construct.scope]);
        json.endArray();
        json.endObject();
    }

    void write(const Construct& construct, const Scope& scope, const Names& sortedUniverse) {
        json.beginObject();
        write("kind", keywordOf(construct.kind));
        write("line", construct.keyword.line);
        write("column", construct.keyword.column);
        write("scope", scope.name);
        if (construct.kind == ConstructKind::Parfor) {
            write("variable", construct.loopVariable);
            writeNames("universe", scope.universe);
            writeNames("liveAsTemporary", construct.liveAsTemporary);
            writeNames("maybeLiveAsTemporary", construct.maybeLiveAsTemporary);
            writeRest("notLiveAsSliced", sortedUniverse, construct.liveAsSliced);
        } else {
            writeNames("universe", scope.universe);
            writeRest("outputs", sortedUniverse, construct.notOutputs);
        }
        write("ansPossiblyReadBeforeBeingWritten", construct.ansPossiblyReadBeforeBeingWritten);
        writeNames("restrictedExternals", construct.restrictedExternals);
        json.endObject();
    }

    void write(const char* key, const Json& value) {
        json.key(key);
        json.value(value);
    }

    template <typename T>
    void writeArray(const char* key, const std::vector<T>& elements) {
        json.key(key);
        json.beginArray();
        for (const T& element : elements)
            json.value(toJson(element));
        json.endArray();
    }

    void writeNames(const char* key, const Names& names) {
        json.key(key);
        json.beginArray();
        for (const std::string& name : names)
            json.identifier(name);
        json.endArray();
    }

    /// The names in `all` that aren't in `excluded`, which is a subset; both are sorted.
    void writeRest(const char* key, const Names& all, const Names& excluded) {
        json.key(key);
        json.beginArray();
        auto next = excluded.begin();
        for (const std::string& name : all) {
            if (next != excluded.end() && *next == name) {
                ++next;
            } else {
                json.identifier(name);
            }
        }
        json.endArray();
    }

    JsonStream json;
};

} // namespace

void writeJsonReport(std::ostream& out, const Report& report) {
    JsonWriter(out).write(report);
    out << '\n';
}

} // namespace ostrel::report
