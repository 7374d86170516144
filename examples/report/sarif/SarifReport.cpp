#include "report/sarif/SarifReport.h"

#include "report/json/JsonStream.h"
#include "report/sarif/FileUri.h"
#include "report/sarif/Fingerprints.h"
#include "report/sarif/SarifRules.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ostrel::report {

namespace {

using Json = JsonStream::Json;

constexpr const char* SCHEMA = "https://json.schemastore.org/sarif-2.1.0.json";
constexpr const char* UNREADABLE_FILE = "unreadable-file";

/// The version of what the fingerprints are made of: change it with them.
constexpr const char* FINGERPRINT = "orvexReport/v1";

bool isLower(char character) { return character >= 'a' && character <= 'z'; }

/// A message, which is a line without a full stop, as a sentence.
std::string sentence(std::string text) {
    if (text.empty()) return text;
    if (isLower(text.front())) text.front() = static_cast<char>(text.front() - 'a' + 'A');
    if (std::string_view(".?!").find(text.back()) == std::string_view::npos) text += '.';
    return text;
}

std::string sentences(const std::string& message, const std::string& help) {
    return sentence(message) + (help.empty() ? "" : " " + sentence(help));
}

Json toJson(const Place& place) {
    return {{"startLine", place.line},
            {"startColumn", place.column},
            {"endLine", place.endLine},
            {"endColumn", place.endColumn}};
}

Json text(std::string_view words) { return {{"text", words}}; }

Json driver() {
    const Json notification = {{"id", UNREADABLE_FILE},
                               {"shortDescription", text("A file can't be read.")}};
    return {{"name", "orvex-report"},
            {"version", ORVEX_REPORT_VERSION},
            {"rules", sarifRules()},
            {"notifications", Json::array({notification})}};
}

Json physicalLocation(const std::string& uri, const Place& place) {
    return {{"artifactLocation", {{"uri", uri}}}, {"region", toJson(place)}};
}

class SarifWriter : public ReportWriter {
public:
    explicit SarifWriter(std::ostream& stream) : out(stream), json(stream) {}

    void begin() override {
        json.beginObject();
        write("$schema", SCHEMA);
        write("version", "2.1.0");
        json.key("runs");
        json.beginArray();
        json.beginObject();
        write("tool", {{"driver", driver()}});
        write("columnKind", "unicodeCodePoints");
        json.key("results");
        json.beginArray();
    }

    void write(const File& file) override {
        if (!file.failure.empty()) {
            unread.push_back({file.path, file.failure});
            return;
        }
        const std::string uri = fileUri(file.path);
        Fingerprints fingerprints(file);
        for (const Diagnostic& diagnostic : file.diagnostics)
            json.value(resultOf(diagnostic, uri, fingerprints));
        for (const Remark& remark : file.remarks)
            json.value(resultOf(remark, scopeOf(file, remark), uri, fingerprints));
    }

    void end() override {
        json.endArray();
        json.key("invocations");
        json.beginArray();
        writeInvocation();
        json.endArray();
        json.endObject();
        json.endArray();
        json.endObject();
        out << '\n';
    }

private:
    struct UnreadFile {
        std::string path;
        std::string failure;
    };

    void write(const char* key, const Json& value) {
        json.key(key);
        json.value(value);
    }

    /// The name of the function that a remark is in; empty for the script, or if that is unknown.
    static std::string_view scopeOf(const File& file, const Remark& remark) {
        if (!remark.construct) return {};
        return file.scopes[file.constructs[*remark.construct].scope].name;
    }

    static Json resultOf(const Diagnostic& diagnostic, const std::string& uri,
                         Fingerprints& fingerprints) {
        const bool isError = diagnostic.severity == Severity::Error;
        const Json location = {{"physicalLocation", physicalLocation(uri, diagnostic.place)}};
        const std::string fingerprint =
            fingerprints.next(SARIF_ERROR_RULE, diagnostic.message, "", diagnostic.place);
        return {{"ruleId", SARIF_ERROR_RULE},
                {"ruleIndex", sarifRuleIndexOfErrors()},
                {"level", isError ? "error" : "warning"},
                {"message", text(sentences(diagnostic.message, diagnostic.help))},
                {"locations", Json::array({location})},
                {"partialFingerprints", {{FINGERPRINT, fingerprint}}}};
    }

    static Json resultOf(const Remark& remark, std::string_view scope, const std::string& uri,
                         Fingerprints& fingerprints) {
        Json location = {{"physicalLocation", physicalLocation(uri, remark.place)}};
        if (!scope.empty()) {
            const Json function = {{"name", scope}, {"kind", "function"}};
            location["logicalLocations"] = Json::array({function});
        }
        Json result = {{"ruleId", nameOf(remark.code)},
                       {"ruleIndex", sarifRuleIndexOf(remark.code)},
                       {"level", "warning"},
                       {"message", text(sentences(remark.message, remark.help))},
                       {"locations", Json::array({location})}};
        if (Json flows = codeFlowsOf(remark, uri); !flows.empty())
            result["codeFlows"] = std::move(flows);
        const std::string fingerprint =
            fingerprints.next(nameOf(remark.code), remark.variable, scope, remark.place);
        result["partialFingerprints"] = {{FINGERPRINT, fingerprint}};
        return result;
    }

    static Json codeFlowsOf(const Remark& remark, const std::string& uri) {
        Json flows = Json::array();
        for (const Path& path : remark.paths) {
            Json locations = Json::array();
            for (const Step& step : path)
                locations.push_back({{"location", locationOf(step, uri)}});
            if (locations.empty()) continue; // the format has no flow without a place
            const Json threadFlow = {{"locations", std::move(locations)}};
            flows.push_back({{"threadFlows", Json::array({threadFlow})}});
        }
        return flows;
    }

    static Json locationOf(const Step& step, const std::string& uri) {
        return {{"physicalLocation", physicalLocation(uri, step.place)},
                {"message", text(sentence(step.note))}};
    }

    void writeInvocation() {
        json.beginObject();
        write("executionSuccessful", unread.empty());
        json.key("toolExecutionNotifications");
        json.beginArray();
        for (const UnreadFile& file : unread)
            json.value(notificationOf(file));
        json.endArray();
        json.endObject();
    }

    static Json notificationOf(const UnreadFile& file) {
        const std::string reason = "cannot read '" + file.path + "': " + file.failure;
        const Json artifact = {{"artifactLocation", {{"uri", fileUri(file.path)}}}};
        const Json location = {{"physicalLocation", artifact}};
        return {{"descriptor", {{"id", UNREADABLE_FILE}, {"index", 0}}},
                {"level", "error"},
                {"message", text(sentence(reason))},
                {"locations", Json::array({location})}};
    }

    std::ostream& out;
    JsonStream json;
    std::vector<UnreadFile> unread;
};

} // namespace

std::unique_ptr<ReportWriter> makeSarifWriter(std::ostream& out) {
    return std::make_unique<SarifWriter>(out);
}

void writeSarifReport(std::ostream& out, const Report& report) {
    writeAll(*makeSarifWriter(out), report);
}

} // namespace ostrel::report
