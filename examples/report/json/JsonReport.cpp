#include "report/json/JsonReport.h"

#include "report/json/JsonStream.h"
#include "source/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace ostrel::report {

namespace {

using Json = JsonStream::Json;

/// Such as `{"line": 1, "column": 1, "endLine": 1, "endColumn": 4}`.
Json toJson(const Place& place) {
    Json json{{"line", place.line}, {"column", place.column}};
    if (place.length == 0) return json;
    json["endLine"] = place.endLine;
    json["endColumn"] = place.endColumn;
    return json;
}

Json toJson(const Diagnostic& diagnostic) {
    Json json = toJson(diagnostic.place);
    json["severity"] = diagnostic.severity == Severity::Error ? "error" : "warning";
    json["message"] = diagnostic.message;
    if (!diagnostic.help.empty()) json["help"] = diagnostic.help;
    return json;
}

Json toJson(const PragmaEntry& pragma) {
    Json json = toJson(pragma.place);
    json["kind"] = pragma.kind;
    json["name"] = pragma.name;
    json["arguments"] = pragma.arguments;
    return json;
}

Json toJson(const Variable& variable) {
    Json json{{"name", variable.name}, {"role", identifierOf(variable.role)}};
    if (variable.role == Role::Reduction) json["by"] = variable.by;
    if (variable.firstRead) {
        json["read"] = toJson(*variable.firstRead);
        if (variable.isFirstReadPartialWrite) json["read"]["partial"] = true;
    }
    if (variable.lastWrite) json["written"] = toJson(*variable.lastWrite);
    return json;
}

Json toJson(const Path& path) {
    Json steps = Json::array();
    for (const Step& step : path) {
        Json json = toJson(step.place);
        json["note"] = step.note;
        steps.push_back(std::move(json));
    }
    return steps;
}

Json toJson(const Remark& remark) {
    Json json{{"code", nameOf(remark.code)}};
    json.update(toJson(remark.place));
    json["message"] = remark.message;
    json["help"] = remark.help;
    if (remark.construct) {
        json["construct"] = *remark.construct;
        json["variable"] = remark.variable;
    }
    json["paths"] = Json::array();
    for (const Path& path : remark.paths)
        json["paths"].push_back(toJson(path));
    return json;
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

class JsonWriter : public ReportWriter {
public:
    explicit JsonWriter(std::ostream& stream) : out(stream), json(stream) {}

    void begin() override {
        json.beginObject();
        json.key("files");
        json.beginArray();
    }

    void write(const File& file) override {
        const std::vector<Names> sorted = sortedUniverses(file);
        json.beginObject();
        write("path", file.path);
        if (!isUtf8(file.path)) write("pathIsNotUtf8", true);
        if (!file.failure.empty()) {
            write("failure", file.failure);
            json.endObject();
            return;
        }
        writeArray("diagnostics", file.diagnostics);
        writeArray("pragmas", file.pragmas);
        json.key("constructs");
        json.beginArray();
        for (const Construct& construct : file.constructs)
            write(construct, file.scopes[construct.scope], sorted[construct.scope]);
        json.endArray();
        writeArray("remarks", file.remarks);
        json.endObject();
    }

    void end() override {
        json.endArray();
        json.endObject();
        out << '\n';
    }

private:
    void write(const Construct& construct, const Scope& scope, const Names& sortedUniverse) {
        json.beginObject();
        write("kind", keywordOf(construct.kind));
        write("line", construct.extent.line);
        write("column", construct.extent.column);
        write("endLine", construct.extent.endLine);
        write("endColumn", construct.extent.endColumn);
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
        writeArray("variables", construct.variables);
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

    std::ostream& out;
    JsonStream json;
};

} // namespace

std::unique_ptr<ReportWriter> makeJsonWriter(std::ostream& out) {
    return std::make_unique<JsonWriter>(out);
}

void writeJsonReport(std::ostream& out, const Report& report) {
    writeAll(*makeJsonWriter(out), report);
}

} // namespace ostrel::report
