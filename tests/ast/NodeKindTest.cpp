#include "testing/PrintTo.h"

#include <zt_orvex/ast/NodeKind.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace zt::orvex {
namespace {

static_assert(std::is_same_v<std::underlying_type_t<NodeKind>, std::uint8_t>);
static_assert(static_cast<int>(NodeKind{}) == 0 && NodeKind{} == NodeKind::Invalid);

// The numbers by hand. They are part of the interface: a tree's owner may have stored them.
TEST(NodeKind, EveryNameHasItsNumber) {
    const std::vector<NodeKind> byNumber = {
        NodeKind::Invalid,
        // 1
        NodeKind::AnonymousFunction, NodeKind::AnyExpression, NodeKind::ArgumentDeclaration,
        NodeKind::ArgumentsBlock, NodeKind::AssignmentStatement, NodeKind::Attribute,
        NodeKind::BareIdentifierStatement, NodeKind::BinaryOperation, NodeKind::BraceOperation,
        NodeKind::BreakStatement,
        // 11
        NodeKind::CaseClause, NodeKind::CatchClause, NodeKind::CellArray,
        NodeKind::CharacterLiteral, NodeKind::ClassDefinition, NodeKind::Colon,
        NodeKind::ColonOperation, NodeKind::CommandStatement, NodeKind::ContinueStatement,
        NodeKind::DiscardedExpression,
        // 21
        NodeKind::DiscardedStatement, NodeKind::DotOperation, NodeKind::DynamicFieldOperation,
        NodeKind::ElseClause, NodeKind::ElseIfClause, NodeKind::EmptyStatement, NodeKind::End,
        NodeKind::EnumerationBlock, NodeKind::EnumerationMember, NodeKind::EventDefinition,
        // 31
        NodeKind::EventsBlock, NodeKind::ExpressionStatement, NodeKind::FillerNode,
        NodeKind::ForStatement, NodeKind::FunctionDefinition, NodeKind::GlobalDeclaration,
        NodeKind::Identifier, NodeKind::IfStatement, NodeKind::IgnoredArgument,
        NodeKind::ImplicitCommandStatement,
        // 41
        NodeKind::InputParameter, NodeKind::Matrix, NodeKind::MethodDeclaration,
        NodeKind::MethodDefinition, NodeKind::MethodsBlock, NodeKind::MultiAssignmentStatement,
        NodeKind::NamedArgument, NodeKind::NumberLiteral, NodeKind::OtherwiseClause,
        NodeKind::ParenOperation,
        // 51
        NodeKind::ParenthesizedExpression, NodeKind::ParforStatement,
        NodeKind::PersistentDeclaration, NodeKind::PrintStatement, NodeKind::Program,
        NodeKind::PropertiesBlock, NodeKind::PropertyDefinition, NodeKind::ReturnStatement,
        NodeKind::Row, NodeKind::SpmdStatement,
        // 61
        NodeKind::StringLiteral, NodeKind::SwitchStatement, NodeKind::TryStatement,
        NodeKind::UnaryOperation, NodeKind::ValidationSpecification, NodeKind::WhileStatement};
    ASSERT_EQ(byNumber.size(), 67U);
    for (std::size_t number = 0; number < byNumber.size(); ++number) {
        EXPECT_EQ(static_cast<std::size_t>(byNumber[number]), number);
    }
}

TEST(GetAllNodeKinds, HoldsTheValuesFrom1To66Ascending) {
    const std::set<NodeKind>& kinds = getAllNodeKinds();
    ASSERT_EQ(kinds.size(), 66U);
    int expected = 1;
    for (const NodeKind kind : kinds)
        EXPECT_EQ(static_cast<int>(kind), expected++);
    EXPECT_EQ(kinds.count(NodeKind::Invalid), 0U);
}

TEST(GetAllNodeKinds, GivesTheSameObjectAtEveryCall) {
    EXPECT_EQ(&getAllNodeKinds(), &getAllNodeKinds());
}

} // namespace
} // namespace zt::orvex
