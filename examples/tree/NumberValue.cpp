#include "tree/NumberValue.h"

#include "tree/NumberForm.h"

#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/literals/LiteralParsing.h>

namespace ostrel {

namespace {

/// The same value and type, as one of the alternatives of `LiteralValue`.
zt::orvex::LiteralValue widen(const zt::orvex::internal::IntegerLiteralValue& integer) {
    return boost::apply_visitor([](auto value) { return zt::orvex::LiteralValue(value); }, integer);
}

} // namespace

zt::orvex::LiteralValue numberValue(std::u16string_view spelling) {
    using namespace zt::orvex::internal;
    switch (numberForm(spelling)) {
    case NumberForm::Binary:
        return widen(parseBinaryLiteral(spelling));
    case NumberForm::Hexadecimal:
        return widen(parseHexLiteral(spelling));
    case NumberForm::Imaginary:
        return zt::orvex::Imaginary(parseDoubleLiteral(spelling.substr(0, spelling.size() - 1)));
    case NumberForm::Decimal:
        break;
    }
    return parseDoubleLiteral(spelling);
}

} // namespace ostrel
