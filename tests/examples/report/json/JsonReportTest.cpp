#include "ReportOf.h"

#include "report/json/JsonReport.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Json = nlohmann::ordered_json;

std::string jsonText(std::string_view text) {
    std::ostringstream out;
    writeJsonReport(out, singleReport(text));
    return out.str();
}

std::vector<std::string> keysOf(const Json& object) {
    std::vector<std::string> keys;
    for (const auto& item : object.items())
        keys.push_back(item.key());
    return keys;
}

TEST(JsonReport, IsOneObjectWithItsKeysInOrder) {
    const Json json = Json::parse(jsonText("%#ok a, b\nparfor k = 1:3, end\nspmd, end\n) \n"));
    EXPECT_THAT(keysOf(json), ElementsAre("files"));
    const Json file = json["files"][0];
    EXPECT_THAT(keysOf(file), ElementsAre("path", "diagnostics", "pragmas", "constructs"));
    EXPECT_EQ(file["path"], "test.ost");
    EXPECT_THAT(keysOf(file["diagnostics"][0]),
                ElementsAre("line", "column", "severity", "message"));
    EXPECT_THAT(keysOf(file["pragmas"][0]),
                ElementsAre("line", "column", "kind", "name", "arguments"));
    EXPECT_THAT(keysOf(file["constructs"][0]),
                ElementsAre("kind", "line", "column", "scope", "variable", "universe",
                            "liveAsTemporary", "maybeLiveAsTemporary", "notLiveAsSliced",
                            "ansPossiblyReadBeforeBeingWritten", "restrictedExternals"));
    EXPECT_THAT(keysOf(file["constructs"][1]),
                ElementsAre("kind", "line", "column", "scope", "universe", "outputs",
                            "ansPossiblyReadBeforeBeingWritten", "restrictedExternals"));
    EXPECT_EQ(file["diagnostics"][0]["severity"], "error");
}

TEST(JsonReport, IsIndentedByTwo) {
    EXPECT_EQ(jsonText("spmd, y = ans; end"), R"({
  "files": [
    {
      "path": "test.ost",
      "diagnostics": [],
      "pragmas": [],
      "constructs": [
        {
          "kind": "spmd",
          "line": 1,
          "column": 1,
          "scope": "",
          "universe": [
            "y",
            "ans"
          ],
          "outputs": [
            "y"
          ],
          "ansPossiblyReadBeforeBeingWritten": true,
          "restrictedExternals": []
        }
      ]
    }
  ]
}
)");
}

TEST(JsonReport, EmptyFileHasEmptyArrays) {
    const Json file = Json::parse(jsonText(""))["files"][0];
    EXPECT_EQ(file["diagnostics"], Json::array());
    EXPECT_EQ(file["pragmas"], Json::array());
    EXPECT_EQ(file["constructs"], Json::array());
}

TEST(JsonReport, LooksAsIfItWereWrittenAtOnce) {
    const std::string text = jsonText("%#ok a\n%#b\nx = 1;\nparfor k = 1:3, y(k) = x; end\n"
                                      "spmd, eval('x'), ans; end\n) \nfunction f\nend\n");
    EXPECT_EQ(Json::parse(text).dump(2) + "\n", text);
}

TEST(JsonReport, SetsHaveTheVariablesThatAConstructDoesNotName) {
    const Json file = Json::parse(jsonText("b = 1; a_ = 1; aB = 1; B = 1; a1 = 1;\n"
                                           "parfor a = 1:3, a1 = a1; end\nspmd, b = b; end\n"
                                           "function f, c = 1; spmd, end, end\n"))["files"][0];
    const Json& constructs = file["constructs"];
    EXPECT_EQ(constructs[0]["universe"], (Json{"b", "a_", "aB", "B", "a1", "a"}));
    EXPECT_EQ(constructs[0]["notLiveAsSliced"], (Json{"B", "a", "aB", "a_", "b"}));
    EXPECT_EQ(constructs[1]["universe"], constructs[0]["universe"]);
    EXPECT_EQ(constructs[1]["outputs"], (Json{"B", "a", "a1", "aB", "a_"}));
    EXPECT_EQ(constructs[2]["outputs"], (Json{"c"}));
}

TEST(JsonReport, PathThatIsNotUtf8GetsAReplacementCharacterAndAMark) {
    Report report = singleReport("");
    report.files[0].path = "a\xFF.ost";
    std::ostringstream out;
    writeJsonReport(out, report);
    const Json file = Json::parse(out.str())["files"][0];
    EXPECT_EQ(file["path"], "a\xEF\xBF\xBD.ost");
    EXPECT_EQ(file["pathIsNotUtf8"], true);
    EXPECT_FALSE(Json::parse(jsonText(""))["files"][0].contains("pathIsNotUtf8"));
}

TEST(JsonReport, CharactersThatChangeTheDirectionAreEscaped) {
    const std::string text = jsonText("%#ok \xE2\x80\xAE\xC3\xA9\n%#ok \xC3\xA9\n");
    EXPECT_THAT(text, HasSubstr("\"arguments\": \"\\u202e\\u00e9\""));
    EXPECT_THAT(text, HasSubstr("\"arguments\": \"\xC3\xA9\""));
}

} // namespace

} // namespace ostrel::report::testing
