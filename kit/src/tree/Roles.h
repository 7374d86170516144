#pragma once

#include "ast/NodeClass.h"
#include "tree/Parts.h"

#include <zt_orvex/ast/NodeKind.h>

#include <cstdint>
#include <iterator>

namespace zt::orvex::kit::internal {

/// What becomes of a child. Roles.def describes them.
enum class Use : std::uint8_t { Own, Read, Write, Target, Bare, Inherit, Declare, Label };

/// The kinds that may stand at a place: one, or all that have the flags.
struct Expected {
    NodeKind kind = NodeKind::Invalid; ///< `Invalid` if the flags decide.
    std::uint8_t flags = 0;

    constexpr bool allows(NodeKind other) const {
        return kind != NodeKind::Invalid ? other == kind
                                         : zt::orvex::internal::kindHasClass(other, flags);
    }
};

/// What a part may hold and what becomes of it.
struct Role {
    Expected expected;
    Use use;
};

namespace expected {
#define ZT_ORVEX_NODE_KIND(Name, Class) inline constexpr Expected Name = {NodeKind::Name, 0};
#include <zt_orvex/ast/NodeKinds.def>
inline constexpr Expected Expressions = {NodeKind::Invalid, zt::orvex::internal::ExpressionNode};
inline constexpr Expected Methods = {NodeKind::Invalid, zt::orvex::internal::MethodNode};
inline constexpr Expected Nodes = {NodeKind::Invalid, zt::orvex::internal::AnyNode};
inline constexpr Expected Statements = {NodeKind::Invalid, zt::orvex::internal::StatementNode};

// By the class of a range view.
#define ZT_ORVEX_KIT_FAMILY(View, Elements) inline constexpr Expected View = Elements;
#include "tree/Roles.def"
} // namespace expected

// A row of Roles.def for each accessor: one that is missing doesn't compile.
namespace uses {
#define ZT_ORVEX_KIT_CHILD(accessor, Child, UseOfIt) inline constexpr Use accessor = Use::UseOfIt;
#define ZT_ORVEX_KIT_RANGE(accessor, UseOfIt) inline constexpr Use accessor = Use::UseOfIt;
#include "tree/Roles.def"
} // namespace uses
namespace children {
#define ZT_ORVEX_KIT_CHILD(accessor, Child, UseOfIt)                                               \
    inline constexpr Expected accessor = expected::Child;
#include "tree/Roles.def"
} // namespace children

/// In the order of `PARTS`.
inline constexpr Role ROLES[] = {
#define ZT_ORVEX_ONE(Kind, accessor) {children::accessor, uses::accessor},
#define ZT_ORVEX_MAYBE(Kind, accessor) {children::accessor, uses::accessor},
#define ZT_ORVEX_EACH(Kind, accessor, View) {expected::View, uses::accessor},
#define ZT_ORVEX_HELD(Kind, accessor, Held) {children::accessor, uses::accessor},
#include <zt_orvex/ast/NodeKinds.def>
};

static_assert(std::size(ROLES) == std::size(PARTS));

/// `part` must be an element of `PARTS`.
inline const Role& roleOf(const Part& part) { return ROLES[&part - PARTS]; }

/// What becomes of a part with the `use`, in a node of which `parent` becomes. What is below
/// something that is only walked is only walked, too.
constexpr Use passOn(Use parent, Use use) {
    if (parent == Use::Label) return Use::Label;
    return use == Use::Inherit ? parent : use;
}

} // namespace zt::orvex::kit::internal
