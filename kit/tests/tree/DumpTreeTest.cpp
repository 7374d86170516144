#include <zt_orvex_kit/tree/DumpTree.h>

#include "testing/TreeBuilder.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace zt::orvex::kit {
namespace {

class DumpTree : public ::testing::Test, protected testing::TreeBuilder {
protected:
    static DumpOptions as(DumpFormat format) {
        DumpOptions options;
        options.format = format;
        options.literalText = [](const NodeView&) { return std::string("1.5"); };
        return options;
    }

    // x = f(-1.5)
    const IdentifierView x = id("x"), f = id("f");
    const NumberLiteralView literal = number();
    const UnaryOperationView negative = minus(literal);
    const ParenOperationView call = paren(f, {negative});
    const AssignmentStatementView root = assign(x, call);
};

TEST_F(DumpTree, TextHasALineForEachNode) {
    ast.setIsVariable(u"f", false);
    EXPECT_EQ(dumpTree(root, as(DumpFormat::Text)),
              "AssignmentStatement (node 0x1005)\n"
              "  getAssignmentLhs: Identifier x (node 0x1000) symbol 0x500000000000\n"
              "  getAssignmentRhs: ParenOperation (node 0x1004)\n"
              "    getParenBase: Identifier f (node 0x1001) symbol 0x500000000001 not a variable\n"
              "    getParenArguments[0]: UnaryOperation - (node 0x1003)\n"
              "      getUnaryOperand: NumberLiteral 1.5 (node 0x1002)\n");
}

TEST_F(DumpTree, WithoutATextALiteralIsItsKind) {
    EXPECT_EQ(dumpTree(number()), "NumberLiteral (node 0x1006)\n");
}

TEST_F(DumpTree, TextShowsWhatAWalkSkips) {
    EXPECT_EQ(dumpTree(row({unknown(200), NodeView{7, nullptr}})),
              "Row (node 0x1007)\n"
              "  getRowExpressions[0]: unknown kind 200 (node 0x1006)\n"
              "  getRowExpressions[1]: node 0x7 without a view\n");
    EXPECT_EQ(dumpTree(binary(BinaryOperator{99}, id("a"), NodeView{7, nullptr})).substr(0, 35),
              "BinaryOperation unknown operator 99");
}

TEST_F(DumpTree, DotHasANodeAndAnEdgeForEachNode) {
    EXPECT_EQ(dumpTree(root, as(DumpFormat::Dot)), "digraph tree {\n"
                                                   "  node [shape=box];\n"
                                                   "  n0 [label=\"AssignmentStatement\"];\n"
                                                   "  n1 [label=\"Identifier\\nx\"];\n"
                                                   "  n0 -> n1 [label=\"getAssignmentLhs\"];\n"
                                                   "  n2 [label=\"ParenOperation\"];\n"
                                                   "  n0 -> n2 [label=\"getAssignmentRhs\"];\n"
                                                   "  n3 [label=\"Identifier\\nf\"];\n"
                                                   "  n2 -> n3 [label=\"getParenBase\"];\n"
                                                   "  n4 [label=\"UnaryOperation\\n-\"];\n"
                                                   "  n2 -> n4 [label=\"getParenArguments[0]\"];\n"
                                                   "  n5 [label=\"NumberLiteral\\n1.5\"];\n"
                                                   "  n4 -> n5 [label=\"getUnaryOperand\"];\n"
                                                   "}\n");
}

TEST_F(DumpTree, JsonHasTheFactsOfEachNode) {
    const auto json = nlohmann::json::parse(dumpTree(root, as(DumpFormat::Json)));
    EXPECT_EQ(json["kind"], "AssignmentStatement");
    EXPECT_EQ(json["class"], "statement");
    EXPECT_EQ(json["node"], "0x1005");
    EXPECT_FALSE(json.contains("role"));
    const auto& left = json["children"][0];
    EXPECT_EQ(left["role"], "getAssignmentLhs");
    EXPECT_EQ(left["name"], "x");
    EXPECT_EQ(left["symbol"], "0x500000000000");
    EXPECT_EQ(left["variable"], true);
    EXPECT_FALSE(left.contains("index"));
    const auto& argument = json["children"][1]["children"][1];
    EXPECT_EQ(argument["index"], 0);
    EXPECT_EQ(argument["operator"], "-");
    EXPECT_EQ(argument["children"][0]["literal"], "1.5");
}

TEST_F(DumpTree, TextsAreEscaped) {
    DumpOptions options = as(DumpFormat::Json);
    options.literalText = [](const NodeView&) { return std::string("a\"b\\c\nd\x01"); };
    const auto json = nlohmann::json::parse(dumpTree(number(), options));
    EXPECT_EQ(json["literal"], "a\"b\\c\nd\x01");
    options.format = DumpFormat::Dot;
    EXPECT_NE(dumpTree(number(), options).find("a\\\"b\\\\c\\nd"), std::string::npos);
}

TEST_F(DumpTree, LoneSurrogateOfANameBecomesAReplacement) {
    const char16_t name[] = {0xD800, u'x'};
    const auto json =
        nlohmann::json::parse(dumpTree(id(std::u16string_view(name, 2)), as(DumpFormat::Json)));
    EXPECT_EQ(json["name"], "\xEF\xBF\xBDx");
}

TEST_F(DumpTree, EndsAtTheLimitOfNodes) {
    DumpOptions options = as(DumpFormat::Text);
    options.maxNodes = 2;
    const std::string text = dumpTree(root, options);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3);
    EXPECT_EQ(text.substr(text.size() - 4), "...\n");
    options.format = DumpFormat::Json;
    const auto json = nlohmann::json::parse(dumpTree(root, options));
    EXPECT_EQ(json["children"].size(), 2u);
    EXPECT_EQ(json["children"][1], "...");
    options.maxNodes = 6;
    EXPECT_EQ(dumpTree(root, options).find("..."), std::string::npos);
}

TEST_F(DumpTree, DepthTakesNeitherStackNorQuadraticText) {
    constexpr std::size_t DEPTH = 100'000;
    NodeView deep = id("a");
    for (std::size_t i = 0; i < DEPTH; ++i)
        deep = parenthesized(deep);
    for (const DumpFormat format : {DumpFormat::Text, DumpFormat::Dot, DumpFormat::Json}) {
        const std::string text = dumpTree(deep, as(format));
        EXPECT_GT(text.size(), DEPTH * 20);
        EXPECT_LT(text.size(), DEPTH * 200);
    }
}

} // namespace
} // namespace zt::orvex::kit
