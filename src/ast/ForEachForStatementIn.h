#pragma once

#include <zt_orvex/ast/TypedViews.h>

#include <functional>

namespace zt::orvex::internal {

/// Walks as `forEachNodeIn` does and calls `callback` only at `ForStatement` nodes, each before its
/// children: a nested loop comes after the one around it. A `ParforStatement` isn't a
/// `ForStatement`.
///
/// Throws std::bad_function_call if `callback` is empty, at the first `ForStatement`.
void forEachForStatementIn(const NodeView& root,
                           const std::function<void(ForStatementView)>& callback);

} // namespace zt::orvex::internal
