#pragma once

#include "syntax/Limits.h"
#include "syntax/ParserState.h"

#include <cstddef>
#include <string>

namespace ostrel {

inline std::string expressionTooDeep() {
    return "the expression is nested deeper than " + std::to_string(MAX_EXPRESSION_HEIGHT) +
           " levels";
}

/// Counts one level of recursion while it lives. Each level of recursion is a level of the tree, so
/// one limit serves both.
class ExpressionNesting {
public:
    ExpressionNesting(std::size_t& count, const ParserState& state) : depth(count) {
        if (depth == MAX_EXPRESSION_HEIGHT) state.fail(expressionTooDeep());
        ++depth;
    }
    ~ExpressionNesting() { --depth; }
    ExpressionNesting(const ExpressionNesting&) = delete;
    ExpressionNesting& operator=(const ExpressionNesting&) = delete;

private:
    std::size_t& depth;
};

} // namespace ostrel
