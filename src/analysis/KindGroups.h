#pragma once

#include "ast/NodeClass.h"

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/TypedViews.h>

#include <cstdint>
#include <type_traits>
#include <utility>

namespace zt::orvex::flow::internal {

// Groups of kinds, for visitors that treat several kinds alike:
//
//     template <typename View>
//     std::enable_if_t<isInGroups<View, Definitions, Expressions>> visit(const View& other);
//
// The visitors of an analysis pass over most kinds, but have no fallback `visit(const NodeView&)`,
// since it would silently swallow every kind that is added to the language. A new statement doesn't
// compile until the visitors of statements and heads handle it, a new expression until that of
// expressions does, and any other kind until it is in a group here or all three handle it.

template <typename View, typename = void>
constexpr NodeKind kindOf = NodeKind::Invalid;
template <typename View>
constexpr NodeKind kindOf<View, std::void_t<decltype(View::KIND)>> = View::KIND;

template <typename... Views>
struct KindGroup {};
template <std::uint8_t Class>
struct KindsOfClass {};

template <typename View, typename Group>
constexpr bool isInGroup = false;
template <typename View, typename... Views>
constexpr bool isInGroup<View, KindGroup<Views...>> = (std::is_same_v<View, Views> || ...);
template <typename View, std::uint8_t Class>
constexpr bool
    isInGroup<View, KindsOfClass<Class>> = zt::orvex::internal::kindHasClass(kindOf<View>, Class);

template <typename View, typename... Groups>
constexpr bool isInGroups = (isInGroup<View, Groups> || ...);

/// Whether a visitor takes nodes of kinds that it doesn't name.
template <typename Visitor, typename = void>
constexpr bool hasFallback = false;
template <typename Visitor>
constexpr bool hasFallback<
    Visitor, std::void_t<decltype(std::declval<Visitor&>().visit(std::declval<NodeView>()))>> =
    true;

using Statements = KindsOfClass<zt::orvex::internal::StatementNode>;
using Expressions = KindsOfClass<zt::orvex::internal::ExpressionNode>;

using Clauses = KindGroup<CaseClauseView, CatchClauseView, ElseClauseView, ElseIfClauseView,
                          OtherwiseClauseView>;

/// What files, functions and classes are made of.
using Definitions =
    KindGroup<ArgumentDeclarationView, ArgumentsBlockView, AttributeView, ClassDefinitionView,
              EnumerationBlockView, EnumerationMemberView, EventDefinitionView, EventsBlockView,
              FillerNodeView, FunctionDefinitionView, InputParameterView, MethodDeclarationView,
              MethodDefinitionView, MethodsBlockView, ProgramView, PropertiesBlockView,
              PropertyDefinitionView, ValidationSpecificationView>;

} // namespace zt::orvex::flow::internal
