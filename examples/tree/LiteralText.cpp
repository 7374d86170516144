#include "tree/LiteralText.h"

#include <zt_orvex/support/Quote.h>

namespace ostrel {

std::u16string literalText(const Tree& tree, zt::orvex::NodeView literal) {
    std::u16string text(tree.spelling(literal));
    const bool isString = literal.getKind() == zt::orvex::NodeKind::StringLiteral;
    text.resize(zt::orvex::unquote(text.data(), text.size(), isString ? u'"' : u'\''));
    return text;
}

} // namespace ostrel
