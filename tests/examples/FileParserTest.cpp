#include "Programs.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

using testing::errors;
using testing::nodes;
using testing::statement;

TEST(FileParserFunction, HeadMayHaveAnyForm) {
    EXPECT_EQ(statement("function [o1, o2] = name(i1, ~, i2)\nend"),
              "(FunctionDefinition name [(InputParameter i1) (InputParameter IgnoredArgument) "
              "(InputParameter i2)] [o1 o2] FillerNode [] [])");
    EXPECT_EQ(statement("function [a b] = name\nend"),
              "(FunctionDefinition name [] [a b] FillerNode [] [])");
    EXPECT_EQ(statement("function o = name(i)\nend"),
              "(FunctionDefinition name [(InputParameter i)] [o] FillerNode [] [])");
    EXPECT_EQ(statement("function name(i), end"),
              "(FunctionDefinition name [(InputParameter i)] [] FillerNode [] [])");
    EXPECT_EQ(statement("function name; end"), "(FunctionDefinition name [] [] FillerNode [] [])");
}

TEST(FileParserFunction, BodyContainsTheMembers) {
    EXPECT_EQ(statement("function f\n x = 1;\n if x, end\nend"),
              "(FunctionDefinition f [] [] FillerNode [] [(AssignmentStatement x 1) (IfStatement x "
              "[] [] -)])");
}

TEST(FileParserFunction, ArgumentsBlocksFollowTheHead) {
    EXPECT_EQ(
        statement("function f(a, b)\n\narguments (Input)\n a (1,:) number {atLeast(a), c} = 3\n b\n"
                  "end\narguments\n b pkg.Type\n a = 1, b {c}\nend\nb = a;\nend"),
        "(FunctionDefinition f [(InputParameter a) (InputParameter b)] [] FillerNode "
        "[(ArgumentsBlock [(Attribute Input -)] [(ArgumentDeclaration a (ValidationSpecification "
        "[1 "
        "Colon] number [(ParenOperation atLeast [a]) c]) 3 - -) (ArgumentDeclaration b - - - -)]) "
        "(ArgumentsBlock [] [(ArgumentDeclaration b (ValidationSpecification [] (DotOperation pkg "
        "Type) []) - - -) (ArgumentDeclaration a - 1 - -) (ArgumentDeclaration b "
        "(ValidationSpecification [] - [c]) - - -)])] [(AssignmentStatement b a)])");
}

TEST(FileParserFunction, ArgumentsIsANameAfterTheHead) {
    EXPECT_EQ(statement("function f\nx = 1;\narguments\nend"),
              "(FunctionDefinition f [] [] FillerNode [] [(AssignmentStatement x 1) "
              "(BareIdentifierStatement arguments)])");
}

TEST(FileParser, FunctionsFollowTheScript) {
    EXPECT_EQ(nodes("x = 1;\nfunction f\nend\n\nfunction g\nend"),
              "(AssignmentStatement x 1)\n(FunctionDefinition f [] [] FillerNode [] [])\n"
              "(FunctionDefinition g [] [] FillerNode [] [])\n");
}

TEST(FileParser, StatementsAfterFunctionsAreOneError) {
    EXPECT_EQ(errors("function f\nend\nx = 1;\ny = 2;\n"),
              "3:1: statements must precede the functions of a file\n");
}

TEST(FileParserClass, HasBlocksOfEveryKind) {
    EXPECT_EQ(
        statement(
            "class (Sealed, Kind = 3) Name < Base & Other\n"
            "properties (Access = private)\n a\n b (1,:) number {check} = 2;\nend\n"
            "methods\n function o = f(obj)\n  o = obj.a;\n end\n [x, y] = g(obj, ~)\n h\nend\n"
            "events (Hidden)\n Changed\n Gone, Lost\nend\n"
            "enumeration\n Red (1, 'x')\n Blue\nend\n"
            "end\n"),
        "(ClassDefinition [(Attribute Sealed -) (Attribute Kind 3)] Name [Base Other] "
        "[(PropertiesBlock [(PropertyDefinition a - -) (PropertyDefinition b "
        "(ValidationSpecification [1 Colon] number [check]) 2)] [(Attribute Access private)]) "
        "(MethodsBlock [(MethodDefinition f [(InputParameter obj)] [o] FillerNode [] "
        "[(AssignmentStatement o (DotOperation obj a))]) (MethodDeclaration g [(InputParameter "
        "obj) "
        "(InputParameter IgnoredArgument)] [x y]) (MethodDeclaration h [] [])] []) "
        "(EventsBlock [(EventDefinition Changed -) (EventDefinition Gone -) (EventDefinition Lost "
        "-)] [(Attribute Hidden -)]) (EnumerationBlock [(EnumerationMember Red [1 'x']) "
        "(EnumerationMember Blue [])] [])])");
}

TEST(FileParserClass, BlockKeywordsAreNamesInsideBlocks) {
    EXPECT_EQ(statement("class A\nproperties\nevents\nmethods = 1\nend\nend"),
              "(ClassDefinition [] A [] [(PropertiesBlock [(PropertyDefinition events - -) "
              "(PropertyDefinition methods - 1)] [])])");
}

TEST(FileParserClass, MustBeAloneInItsFile) {
    EXPECT_EQ(errors("class A\nend\nx = 1;\n"), "3:1: nothing may follow the class\n");
    EXPECT_EQ(errors("x = 1;\nclass A\nend\n"), "2:1: a class must be alone in its file\n");
}

} // namespace
} // namespace ostrel
