#include "ast/NodeClass.h"
#include "WalkTraces.h"
#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <gtest/gtest.h>

namespace zt::orvex::internal {
namespace {

using testing::KindClass;
using testing::TreeBuilder;

std::uint8_t expectedWord(int kind) {
    switch (testing::expectedClass(static_cast<std::size_t>(kind))) {
    case KindClass::Statement:
        return 3;
    case KindClass::Expression:
        return 5;
    case KindClass::Method:
        return 17;
    case KindClass::Clause:
    case KindClass::Other:
        break;
    }
    return 1;
}

TEST(NodeClass, BitsHaveTheirValues) {
    EXPECT_EQ(AnyNode, 1);
    EXPECT_EQ(StatementNode, 2);
    EXPECT_EQ(ExpressionNode, 4);
    EXPECT_EQ(MethodNode, 16);
}

TEST(NodeClass, EveryKindHasItsClassWord) {
    for (int kind = 0; kind <= 255; ++kind) {
        EXPECT_EQ(getClassWord(static_cast<NodeKind>(kind)), expectedWord(kind)) << kind;
    }
}

TEST(NodeClass, EveryKindIsTestedForEveryCombinationOfFlags) {
    TreeBuilder t;
    for (int kind = 0; kind <= 255; ++kind) {
        const NodeView node = t.unknown(kind);
        for (int flags = 0; flags <= 255; ++flags) {
            const bool expected = flags != 0 && (expectedWord(kind) & flags) == flags;
            const auto byte = static_cast<std::uint8_t>(flags);
            ASSERT_EQ(kindHasClass(static_cast<NodeKind>(kind), byte), expected)
                << kind << ' ' << flags;
            ASSERT_EQ(hasClass(node, byte), expected) << kind << ' ' << flags;
        }
    }
}

TEST(NodeClass, EveryNodeIsAnyNodeEvenOneOfUnknownKind) {
    TreeBuilder t;
    for (const int kind : {0, 1, 66, 200, 255})
        EXPECT_TRUE(hasClass(t.unknown(kind), AnyNode));
}

TEST(NodeClass, NoWordContainsTheEmptySetOfFlags) {
    for (int word = 0; word <= 255; ++word) {
        EXPECT_FALSE(flagsContain(static_cast<std::uint8_t>(word), 0));
    }
}

TEST(NodeClass, AllFlagsMustBeInTheWord) {
    EXPECT_TRUE(flagsContain(3, 3));
    EXPECT_TRUE(flagsContain(3, 2));
    EXPECT_FALSE(flagsContain(3, 6));
    EXPECT_FALSE(flagsContain(3, 8));
    EXPECT_TRUE(flagsContain(255, 255));
}

TEST(NodeClass, BitOfValue8BelongsToNoKind) {
    for (int kind = 0; kind <= 255; ++kind) {
        EXPECT_FALSE(kindHasClass(static_cast<NodeKind>(kind), 8));
    }
}

TEST(NodeClass, FunctionDefinitionIsNotAMethodAndRowIsAnExpression) {
    EXPECT_FALSE(kindHasClass(NodeKind::FunctionDefinition, MethodNode));
    EXPECT_TRUE(kindHasClass(NodeKind::Row, ExpressionNode));
}

TEST(NodeClass, IsKindComparesTheKindOfTheNode) {
    TreeBuilder t;
    EXPECT_TRUE(isKind(t.id("x"), NodeKind::Identifier));
    EXPECT_FALSE(isKind(t.id("x"), NodeKind::Matrix));
    EXPECT_TRUE(isKind(t.unknown(0), NodeKind::Invalid));
}

} // namespace
} // namespace zt::orvex::internal
