#pragma once

#include "tree/Tree.h"

#include <string>

namespace ostrel {

/// What a CharacterLiteral, a StringLiteral or a command word stands for: its spelling without the
/// quotes, where a doubled quote is one.
std::u16string literalText(const Tree& tree, zt::orvex::NodeView literal);

} // namespace ostrel
