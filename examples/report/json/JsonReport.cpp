#include "report/json/JsonReport.h"

#include "report/json/JsonStream.h"
#include "source/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::report {

namespace {

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
        if (!isUtf8(file.path)) writeFlag("pathIsNotUtf8", true);
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
        writeFlag("ansPossiblyReadBeforeBeingWritten", construct.ansPossiblyReadBeforeBeingWritten);
        writeNames("restrictedExternals", construct.restrictedExternals);
        writeArray("variables", construct.variables);
        json.endObject();
    }

    void write(const char* key, std::string_view value) {
        json.key(key);
        json.string(value);
    }

    void write(const char* key, std::size_t value) {
        json.key(key);
        json.number(value);
    }

    void writeFlag(const char* key, bool value) {
        json.key(key);
        json.value(value);
    }

    template <typename T>
    void writeArray(const char* key, const std::vector<T>& elements) {
        json.key(key);
        writeArray(elements);
    }

    template <typename T>
    void writeArray(const std::vector<T>& elements) {
        json.beginArray();
        for (const T& element : elements)
            writeElement(element);
        json.endArray();
    }

    template <typename T>
    void writeElement(const T& element) {
        json.beginObject();
        writeMembers(element);
        json.endObject();
    }

    void writeElement(const Path& path) { writeArray(path); }

    void writeMembers(const Place& place) {
        write("line", place.line);
        write("column", place.column);
        if (place.length == 0) return;
        write("endLine", place.endLine);
        write("endColumn", place.endColumn);
    }

    void writeMembers(const Diagnostic& diagnostic) {
        writeMembers(diagnostic.place);
        write("severity", diagnostic.severity == Severity::Error ? "error" : "warning");
        write("message", diagnostic.message);
        if (!diagnostic.help.empty()) write("help", diagnostic.help);
    }

    void writeMembers(const PragmaEntry& pragma) {
        writeMembers(pragma.place);
        write("kind", pragma.kind);
        write("name", pragma.name);
        write("arguments", pragma.arguments);
    }

    void writeMembers(const Variable& variable) {
        write("name", variable.name);
        write("role", identifierOf(variable.role));
        if (variable.role == Role::Reduction) write("by", variable.by);
        if (variable.firstRead) {
            json.key("read");
            json.beginObject();
            writeMembers(*variable.firstRead);
            if (variable.isFirstReadPartialWrite) writeFlag("partial", true);
            json.endObject();
        }
        if (variable.lastWrite) {
            json.key("written");
            writeElement(*variable.lastWrite);
        }
    }

    void writeMembers(const Remark& remark) {
        write("code", nameOf(remark.code));
        writeMembers(remark.place);
        write("message", remark.message);
        write("help", remark.help);
        if (remark.construct) {
            write("construct", *remark.construct);
            write("variable", remark.variable);
        }
        writeArray("paths", remark.paths);
    }

    void writeMembers(const Step& step) {
        writeMembers(step.place);
        write("note", step.note);
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
