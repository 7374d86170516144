#pragma once

#include <zt_orvex/literals/LiteralValue.h>

#include <string_view>

namespace ostrel {

/// The value of a number as the source spells it. The text must be valid, as that of every
/// NumberLiteral of a parsed tree is.
zt::orvex::LiteralValue numberValue(std::u16string_view spelling);

} // namespace ostrel
