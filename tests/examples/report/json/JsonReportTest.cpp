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
    EXPECT_THAT(keysOf(file),
                ElementsAre("path", "diagnostics", "pragmas", "constructs", "remarks"));
    EXPECT_EQ(file["path"], "test.ost");
    EXPECT_THAT(keysOf(file["diagnostics"][0]),
                ::testing::IsSupersetOf({"line", "column", "severity", "message"}));
    EXPECT_THAT(keysOf(file["pragmas"][0]),
                ElementsAre("line", "column", "endLine", "endColumn", "kind", "name", "arguments"));
    EXPECT_THAT(keysOf(file["constructs"][0]),
                ElementsAre("kind", "line", "column", "endLine", "endColumn", "scope", "variable",
                            "universe", "liveAsTemporary", "maybeLiveAsTemporary",
                            "notLiveAsSliced", "ansPossiblyReadBeforeBeingWritten",
                            "restrictedExternals", "variables"));
    EXPECT_THAT(keysOf(file["constructs"][1]),
                ElementsAre("kind", "line", "column", "endLine", "endColumn", "scope", "universe",
                            "outputs", "ansPossiblyReadBeforeBeingWritten", "restrictedExternals",
                            "variables"));
    EXPECT_EQ(file["diagnostics"][0]["severity"], "error");
}

TEST(JsonReport, IsIndentedByTwo) {
    EXPECT_EQ(jsonText("spmd, y = 2; end;"), R"({
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
          "endLine": 1,
          "endColumn": 17,
          "scope": "",
          "universe": [
            "y"
          ],
          "outputs": [
            "y"
          ],
          "ansPossiblyReadBeforeBeingWritten": false,
          "restrictedExternals": [],
          "variables": [
            {
              "name": "y",
              "role": "output",
              "written": {
                "line": 1,
                "column": 7,
                "endLine": 1,
                "endColumn": 8
              }
            }
          ]
        }
      ],
      "remarks": []
    }
  ]
}
)");
}

TEST(JsonReport, VariableHasItsRoleAndPlaces) {
    const Json variables =
        Json::parse(jsonText("x = 1; s = 0;\nparfor k = 1:3\n s = s + k; x(2) "
                             "= 1;\nend"))["files"][0]["constructs"][0]["variables"];
    const auto place = [](int line, int begin, int end) {
        return Json{{"line", line}, {"column", begin}, {"endLine", line}, {"endColumn", end}};
    };
    Json partial = place(3, 13, 14);
    partial["partial"] = true;
    EXPECT_EQ(variables,
              Json::array({{{"name", "k"}, {"role", "loopVariable"}, {"read", place(3, 10, 11)}},
                           {{"name", "s"},
                            {"role", "reduction"},
                            {"by", "+"},
                            {"read", place(3, 6, 7)},
                            {"written", place(3, 2, 3)}},
                           {{"name", "x"},
                            {"role", "shared"},
                            {"read", partial},
                            {"written", place(3, 13, 14)}}}));
}

TEST(JsonReport, RemarkHasItsPaths) {
    const Json remarks = Json::parse(
        jsonText("parfor k = 1:3, t = k; end\nshow(t)\n%#nothing\n"))["files"][0]["remarks"];
    ASSERT_EQ(remarks.size(), 2U);
    EXPECT_THAT(keysOf(remarks[0]),
                ElementsAre("code", "line", "column", "endLine", "endColumn", "message", "help",
                            "construct", "variable", "paths"));
    EXPECT_EQ(remarks[0]["code"], "used-after");
    EXPECT_EQ(remarks[0]["construct"], 0);
    EXPECT_EQ(remarks[0]["variable"], "t");
    ASSERT_EQ(remarks[0]["paths"].size(), 1U);
    EXPECT_EQ(remarks[0]["paths"][0][1], (Json{{"line", 2},
                                               {"column", 6},
                                               {"endLine", 2},
                                               {"endColumn", 7},
                                               {"note", "'t' is read at 2:6"}}));
    EXPECT_EQ(remarks[1]["code"], "unknown-pragma");
    EXPECT_FALSE(remarks[1].contains("construct"));
    EXPECT_EQ(remarks[1]["paths"], Json::array());
}

TEST(JsonReport, FileThatCouldNotBeReadHasNothingButItsFailure) {
    Report report = singleReport("");
    report.files[0].failure = "no such file";
    std::ostringstream out;
    writeJsonReport(out, report);
    EXPECT_EQ(Json::parse(out.str())["files"][0],
              (Json{{"path", "test.ost"}, {"failure", "no such file"}}));
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

TEST(JsonReport, AllControlCharactersAreEscaped) {
    EXPECT_THAT(jsonText("%#ok \x7F \xC2\x9B \xE2\x80\xA8 \x1b\n"),
                HasSubstr("\"arguments\": \"\\u007f \\u009b \\u2028 \\u001b\""));
}

} // namespace

} // namespace ostrel::report::testing
