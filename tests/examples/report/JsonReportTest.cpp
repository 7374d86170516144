#include "ReportOf.h"

#include "report/JsonReport.h"

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

TEST(JsonReport, PathThatIsNotUtf8GetsAReplacementCharacter) {
    Report report = singleReport("");
    report.files[0].path = "a\xFF.ost";
    std::ostringstream out;
    writeJsonReport(out, report);
    EXPECT_THAT(out.str(), HasSubstr("\"a\xEF\xBF\xBD.ost\""));
}

} // namespace

} // namespace ostrel::report::testing
