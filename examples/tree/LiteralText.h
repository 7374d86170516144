#pragma once

#include "tree/Tree.h"

#include <string>

namespace ostrel {

/// The text of a CharacterLiteral, a StringLiteral or a command word: its spelling without the
/// enclosing quotes, and with single ones for doubled ones.
std::u16string literalText(const Tree& tree, zt::orvex::NodeView literal);

} // namespace ostrel
