#include <zt_orvex_kit/tree/Children.h>

#include "testing/FakeAst.h"
#include "testing/TreeBuilder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>

namespace zt::orvex::kit {
namespace {

using testing::label;

class Children : public ::testing::Test, protected testing::TreeBuilder {
protected:
    /// The roles and labels of the children, such as "getIfBody[0]=x getIfElseClause=ElseClause".
    static std::string childrenOf(const NodeView& node) {
        std::ostringstream text;
        forEachChild(node, [&](const NodeView& child, const ChildRole& role) {
            text << (text.str().empty() ? "" : " ") << role << '=' << label(child);
        });
        return text.str();
    }
};

TEST_F(Children, ComeWithTheNameOfTheAccessor) {
    EXPECT_EQ(childrenOf(assign(id("x"), number())),
              "getAssignmentLhs=x getAssignmentRhs=NumberLiteral");
}

TEST_F(Children, ElementsOfARangeComeWithTheirIndex) {
    const auto statement = ifStatement(id("c"), {breakStatement(), returnStatement()});
    EXPECT_EQ(childrenOf(statement), "getIfCondition=c getIfBody[0]=BreakStatement "
                                     "getIfBody[1]=ReturnStatement");
}

TEST_F(Children, AfterARangeHaveNoIndex) {
    const auto statement =
        ifStatement(id("c"), {breakStatement()}, {elseIfClause(id("d"), {})}, elseClause({}));
    EXPECT_EQ(childrenOf(statement),
              "getIfCondition=c getIfBody[0]=BreakStatement "
              "getIfElseIfClauses[0]=ElseIfClause getIfElseClause=ElseClause");
}

TEST_F(Children, AbsentOnesAreLeftOut) {
    EXPECT_EQ(childrenOf(colonOperation(id("a"), {}, id("b"))), "getColonStart=a getColonStop=b");
    EXPECT_EQ(childrenOf(colonOperation(id("a"), id("s"), id("b"))),
              "getColonStart=a getColonStep=s getColonStop=b");
}

TEST_F(Children, OfAParameterIsTheOneThatItsKindTells) {
    EXPECT_EQ(childrenOf(inputParameter(id("a"))), "getInputParameterIdentifier=a");
    EXPECT_EQ(childrenOf(inputParameter(ignoredArgument())),
              "getInputParameterIgnored=IgnoredArgument");
    EXPECT_EQ(childrenOf(inputParameterThatSays(NodeKind::Matrix, {}, {})), "");
}

TEST_F(Children, MethodsOfBothKindsShareAccessors) {
    EXPECT_EQ(childrenOf(methodDeclaration({}, id("m"), {inputParameter(id("a"))})),
              "getMethodName=m getMethodInputs[0]=InputParameter");
    EXPECT_EQ(childrenOf(methodDefinition({}, id("m"), {}, filler(), {}, {})),
              "getMethodName=m getMethodPart=FillerNode");
}

TEST_F(Children, AreNotDescendedInto) {
    EXPECT_EQ(childrenOf(parenthesized(parenthesized(id("a")))),
              "getParenthesizedInner=ParenthesizedExpression");
}

TEST_F(Children, OfAnUnknownKindAreNone) {
    EXPECT_EQ(childrenOf(unknown(0)), "");
    EXPECT_EQ(childrenOf(unknown(67)), "");
    EXPECT_EQ(childrenOf(unknown(255)), "");
}

TEST_F(Children, ExceptionsOfTheTreePassThrough) {
    const auto node = parenthesized(id("a"));
    ast.onCall = [](const testing::Call& call) {
        if (call.operation == testing::Operation::getParenthesizedInner) {
            throw std::runtime_error("no inner");
        }
    };
    EXPECT_THROW(childrenOf(node), std::runtime_error);
}

TEST(ChildRole, IsEqualIfAllItsPartsAre) {
    const ChildRole role{"getIfBody", 1, true};
    EXPECT_EQ(role, (ChildRole{"getIfBody", 1, true}));
    EXPECT_NE(role, (ChildRole{"getIfBody", 2, true}));
    EXPECT_NE(role, (ChildRole{"getTryBody", 1, true}));
    EXPECT_NE(role, (ChildRole{"getIfBody", 1, false}));
}

} // namespace
} // namespace zt::orvex::kit
