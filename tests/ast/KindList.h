#pragma once

#include <zt_orvex/ast/NodeKind.h>

#include <cstddef>
#include <iterator>

namespace zt::orvex::testing {

/// The expected class of a kind. A clause is of the class "other" and is a control flow node.
enum class Expected { Other, Clause, Statement, Expression, Method };

struct ListedKind {
    NodeKind kind;
    Expected expected;
};

/// The kinds by number, from 1. Written by hand: tests hold the table of kinds against this list.
/// The numbers are part of the interface, and owners of trees may have stored them.
constexpr ListedKind KIND_LIST[] = {
    // 1
    {NodeKind::AnonymousFunction, Expected::Expression},
    {NodeKind::AnyExpression, Expected::Expression},
    {NodeKind::ArgumentDeclaration, Expected::Other},
    {NodeKind::ArgumentsBlock, Expected::Other},
    {NodeKind::AssignmentStatement, Expected::Statement},
    {NodeKind::Attribute, Expected::Other},
    {NodeKind::BareIdentifierStatement, Expected::Statement},
    {NodeKind::BinaryOperation, Expected::Expression},
    {NodeKind::BraceOperation, Expected::Expression},
    {NodeKind::BreakStatement, Expected::Statement},
    // 11
    {NodeKind::CaseClause, Expected::Clause},
    {NodeKind::CatchClause, Expected::Clause},
    {NodeKind::CellArray, Expected::Expression},
    {NodeKind::CharacterLiteral, Expected::Expression},
    {NodeKind::ClassDefinition, Expected::Other},
    {NodeKind::Colon, Expected::Expression},
    {NodeKind::ColonOperation, Expected::Expression},
    {NodeKind::CommandStatement, Expected::Statement},
    {NodeKind::ContinueStatement, Expected::Statement},
    {NodeKind::DiscardedExpression, Expected::Expression},
    // 21
    {NodeKind::DiscardedStatement, Expected::Statement},
    {NodeKind::DotOperation, Expected::Expression},
    {NodeKind::DynamicFieldOperation, Expected::Expression},
    {NodeKind::ElseClause, Expected::Other},
    {NodeKind::ElseIfClause, Expected::Clause},
    {NodeKind::EmptyStatement, Expected::Statement},
    {NodeKind::End, Expected::Expression},
    {NodeKind::EnumerationBlock, Expected::Other},
    {NodeKind::EnumerationMember, Expected::Other},
    {NodeKind::EventDefinition, Expected::Other},
    // 31
    {NodeKind::EventsBlock, Expected::Other},
    {NodeKind::ExpressionStatement, Expected::Statement},
    {NodeKind::FillerNode, Expected::Other},
    {NodeKind::ForStatement, Expected::Statement},
    {NodeKind::FunctionDefinition, Expected::Other},
    {NodeKind::GlobalDeclaration, Expected::Statement},
    {NodeKind::Identifier, Expected::Expression},
    {NodeKind::IfStatement, Expected::Statement},
    {NodeKind::IgnoredArgument, Expected::Expression},
    {NodeKind::ImplicitCommandStatement, Expected::Statement},
    // 41
    {NodeKind::InputParameter, Expected::Other},
    {NodeKind::Matrix, Expected::Expression},
    {NodeKind::MethodDeclaration, Expected::Method},
    {NodeKind::MethodDefinition, Expected::Method},
    {NodeKind::MethodsBlock, Expected::Other},
    {NodeKind::MultiAssignmentStatement, Expected::Statement},
    {NodeKind::NamedArgument, Expected::Expression},
    {NodeKind::NumberLiteral, Expected::Expression},
    {NodeKind::OtherwiseClause, Expected::Other},
    {NodeKind::ParenOperation, Expected::Expression},
    // 51
    {NodeKind::ParenthesizedExpression, Expected::Expression},
    {NodeKind::ParforStatement, Expected::Statement},
    {NodeKind::PersistentDeclaration, Expected::Statement},
    {NodeKind::PrintStatement, Expected::Statement},
    {NodeKind::Program, Expected::Other},
    {NodeKind::PropertiesBlock, Expected::Other},
    {NodeKind::PropertyDefinition, Expected::Other},
    {NodeKind::ReturnStatement, Expected::Statement},
    {NodeKind::Row, Expected::Expression},
    {NodeKind::SpmdStatement, Expected::Statement},
    // 61
    {NodeKind::StringLiteral, Expected::Expression},
    {NodeKind::SwitchStatement, Expected::Statement},
    {NodeKind::TryStatement, Expected::Statement},
    {NodeKind::UnaryOperation, Expected::Expression},
    {NodeKind::ValidationSpecification, Expected::Other},
    {NodeKind::WhileStatement, Expected::Statement},
};

/// How many kinds there are.
constexpr std::size_t KIND_COUNT = std::size(KIND_LIST);

/// The expected class of the kind with that number; unknown kinds are other.
constexpr Expected expectedOf(std::size_t number) {
    return 1 <= number && number <= KIND_COUNT ? KIND_LIST[number - 1].expected : Expected::Other;
}

} // namespace zt::orvex::testing
