#pragma once

#include <zt_orvex/ast/TypedViews.h>

#include <functional>

namespace zt::orvex::internal {

/// Walks as `forEachNodeIn` does and calls `callback` only at `ForStatement` nodes, each before its
/// children: a loop nested in a loop comes after the outer one. A `ParforStatement` is none.
///
/// Throws std::bad_function_call if `callback` is empty, at the first `ForStatement`.
void forEachForStatementIn(const NodeView& root,
                           const std::function<void(ForStatementView)>& callback);

} // namespace zt::orvex::internal
