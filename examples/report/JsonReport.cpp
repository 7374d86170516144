#include "report/JsonReport.h"

#include "report/Warnings.h"

#include <nlohmann/json.hpp>

namespace ostrel::report {

namespace {

using Json = nlohmann::ordered_json;

Json toJson(const File& file); // declared here, so that toJsonArray finds it

Json toJson(const Diagnostic& diagnostic) {
    return {{"line", diagnostic.line},
            {"column", diagnostic.column},
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

Json toJson(const Construct& construct) {
    Json json{{"kind", keywordOf(construct.kind)},
              {"line", construct.keyword.line},
              {"column", construct.keyword.column},
              {"scope", construct.scope}};
    if (construct.kind == ConstructKind::Parfor) {
        json["variable"] = construct.loopVariable;
        json["universe"] = construct.universe;
        json["liveAsTemporary"] = construct.liveAsTemporary;
        json["maybeLiveAsTemporary"] = construct.maybeLiveAsTemporary;
        json["notLiveAsSliced"] = construct.notLiveAsSliced;
    } else {
        json["universe"] = construct.universe;
        json["outputs"] = construct.outputs;
    }
    json["ansPossiblyReadBeforeBeingWritten"] = construct.ansPossiblyReadBeforeBeingWritten;
    json["restrictedExternals"] = construct.restrictedExternals;
    return json;
}

template <typename T>
Json toJsonArray(const std::vector<T>& elements) {
    Json array = Json::array();
    for (const T& element : elements)
        array.push_back(toJson(element));
    return array;
}

Json toJson(const File& file) {
    return {{"path", file.path},
            {"diagnostics", toJsonArray(file.diagnostics)},
            {"pragmas", toJsonArray(file.pragmas)},
            {"constructs", toJsonArray(file.constructs)}};
}

} // namespace

void writeJsonReport(std::ostream& out, const Report& report) {
    const Json json{{"files", toJsonArray(report.files)}};
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace ostrel::report
