#pragma once

#include "source/SourceText.h"
#include "tree/TreeBuilder.h"

#include <cstddef>
#include <optional>

namespace ostrel {

/// An assignment as other languages write it, such as `w(i) += 1` or `i++`.
struct CompoundAssignment {
    Extent target;
    Extent sign;      ///< `+=` or `++`.
    std::size_t size; ///< Of the operator itself, with which `sign` begins.
    bool isStep;      ///< Whether it is `++` or `--`, which have no operand.
    Extent operand;   ///< Empty, too, if it isn't on one line.
};

/// The compound assignment that begins at `begin` and in which the parser got stuck at the token at
/// `stuckAt`; nothing if it is something else.
///
/// Cost: linear in the text from `begin` to the end of the statement.
std::optional<CompoundAssignment> compoundAssignmentAt(const SourceText& source, std::size_t begin,
                                                       std::size_t stuckAt);

/// Whether the operand must be put in parentheses to become the right operand of an operator.
bool needsParentheses(const SourceText& source, Extent operand);

} // namespace ostrel
