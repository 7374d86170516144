#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/TypedViews.h>

#include <type_traits>
#include <utility>

namespace zt::orvex::flow::internal {

/// A list of kinds, by their typed views, for a visitor that treats all of them alike:
///
///     template <typename View>
///     std::enable_if_t<isInGroups<View, Definitions, Expressions>> visit(const View& other);
///
/// The visitors of an analysis pass over most kinds, but have no fallback `visit(const NodeView&)`:
/// it would silently swallow a kind that is added to the language. Instead each kind is in one of
/// the groups below, and a kind in none of them doesn't compile until every visitor knows it.
template <typename... Views>
struct KindGroup {};

template <typename View, typename Group>
constexpr bool isInGroup = false;
template <typename View, typename... Views>
constexpr bool isInGroup<View, KindGroup<Views...>> = (std::is_same_v<View, Views> || ...);

template <typename View, typename... Groups>
constexpr bool isInGroups = (isInGroup<View, Groups> || ...);

/// Whether a visitor takes nodes of kinds that it doesn't name.
template <typename Visitor, typename = void>
constexpr bool hasFallback = false;
template <typename Visitor>
constexpr bool hasFallback<
    Visitor, std::void_t<decltype(std::declval<Visitor&>().visit(std::declval<NodeView>()))>> =
    true;

using Statements =
    KindGroup<AssignmentStatementView, BareIdentifierStatementView, BreakStatementView,
              CommandStatementView, ContinueStatementView, DiscardedStatementView,
              EmptyStatementView, ExpressionStatementView, ForStatementView, GlobalDeclarationView,
              IfStatementView, ImplicitCommandStatementView, MultiAssignmentStatementView,
              ParforStatementView, PersistentDeclarationView, PrintStatementView,
              ReturnStatementView, SpmdStatementView, SwitchStatementView, TryStatementView,
              WhileStatementView>;

using Clauses = KindGroup<CaseClauseView, CatchClauseView, ElseClauseView, ElseIfClauseView,
                          OtherwiseClauseView>;

using Expressions =
    KindGroup<AnonymousFunctionView, AnyExpressionView, BinaryOperationView, BraceOperationView,
              CellArrayView, CharacterLiteralView, ColonView, ColonOperationView,
              DiscardedExpressionView, DotOperationView, DynamicFieldOperationView, EndView,
              IdentifierView, IgnoredArgumentView, MatrixView, NamedArgumentView, NumberLiteralView,
              ParenOperationView, ParenthesizedExpressionView, RowView, StringLiteralView,
              UnaryOperationView>;

/// What files, functions and classes are made of.
using Definitions =
    KindGroup<ArgumentDeclarationView, ArgumentsBlockView, AttributeView, ClassDefinitionView,
              EnumerationBlockView, EnumerationMemberView, EventDefinitionView, EventsBlockView,
              FillerNodeView, FunctionDefinitionView, InputParameterView, MethodDeclarationView,
              MethodDefinitionView, MethodsBlockView, ProgramView, PropertiesBlockView,
              PropertyDefinitionView, ValidationSpecificationView>;

} // namespace zt::orvex::flow::internal
