#include <zt_orvex/literals/LiteralParsing.h>

#include "literals/ConvertDigits.h"
#include "literals/DecimalToDouble.h"
#include "literals/LiteralGrammar.h"
#include "literals/LiteralParts.h"
#include "literals/LiteralPattern.h"
#include "literals/ThreadLocal.h"

#include <cstddef>
#include <memory>

namespace zt::orvex::internal {

namespace {

struct StatedGrammar {
    LiteralPattern prefix{RADIX_PREFIX_PATTERN, RADIX_PREFIX_PATTERN};
    LiteralPattern suffix{TYPE_SUFFIX_PATTERN, TYPE_SUFFIX_PATTERN};
};

/// Deliberate: the patterns of the prefix and the suffix are compiled, as a statement of the
/// grammar, but never matched. Parsing must not reject what it accepts today.
///
/// Both are in one object because each thread-local object costs a parse the test of a guard.
template <class Radix, class CharT>
void stateGrammarOfThisThread() {
    [[maybe_unused]] ZT_ORVEX_THREAD_LOCAL const StatedGrammar grammar;
}

template <class Radix, class CharT>
IntegerLiteralValue convertUnsuffixed(std::basic_string_view<CharT> digits) {
    if (digits.size() <= digitsThatFit<Radix>(8)) {
        return convertDigits<unsigned char, Radix>(digits);
    }
    if (digits.size() <= digitsThatFit<Radix>(16)) {
        return convertDigits<unsigned short, Radix>(digits);
    }
    if (digits.size() <= digitsThatFit<Radix>(32)) {
        return convertDigits<unsigned int, Radix>(digits);
    }
    return convertDigits<unsigned long long, Radix>(digits);
}

template <class Radix, class CharT>
IntegerLiteralValue convertUnsigned(std::basic_string_view<CharT> digits, CharT width) {
    switch (width) {
    case CharT{'8'}:
        return convertDigits<unsigned char, Radix>(digits);
    case CharT{'1'}:
        return convertDigits<unsigned short, Radix>(digits);
    case CharT{'3'}:
        return convertDigits<unsigned int, Radix>(digits);
    default:
        return convertDigits<unsigned long long, Radix>(digits);
    }
}

template <class Radix, class CharT>
IntegerLiteralValue convertSigned(std::basic_string_view<CharT> digits, CharT width) {
    switch (width) {
    case CharT{'8'}:
        return convertDigits<signed char, Radix>(digits);
    case CharT{'1'}:
        return convertDigits<short, Radix>(digits);
    case CharT{'3'}:
        return convertDigits<int, Radix>(digits);
    default:
        return convertDigits<long long, Radix>(digits);
    }
}

template <class Radix, class CharT>
IntegerLiteralValue parseInteger(std::basic_string_view<CharT> text) {
    stateGrammarOfThisThread<Radix, CharT>();
    const LiteralParts<CharT> parts = splitLiteral(text);
    if (parts.suffix.empty()) return convertUnsuffixed<Radix>(parts.digits);
    const bool isUnsigned = parts.suffix[0] == CharT{'U'} || parts.suffix[0] == CharT{'u'};
    return isUnsigned ? convertUnsigned<Radix>(parts.digits, parts.suffix[1])
                      : convertSigned<Radix>(parts.digits, parts.suffix[1]);
}

template <class CharT>
double parseDouble(std::basic_string_view<CharT> text) {
    const std::unique_ptr<CharT[]> buffer(new CharT[text.size() + 1]);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isD = text[i] == CharT{'d'} || text[i] == CharT{'D'};
        buffer[i] = isD ? CharT{'e'} : text[i];
    }
    buffer[text.size()] = CharT{0};
    return decimalToDouble(buffer.get(), text.size());
}

} // namespace

IntegerLiteralValue parseBinaryLiteral(std::basic_string_view<char> text) {
    return parseInteger<Binary>(text);
}

IntegerLiteralValue parseBinaryLiteral(std::basic_string_view<char16_t> text) {
    return parseInteger<Binary>(text);
}

IntegerLiteralValue parseHexLiteral(std::basic_string_view<char> text) {
    return parseInteger<Hexadecimal>(text);
}

IntegerLiteralValue parseHexLiteral(std::basic_string_view<char16_t> text) {
    return parseInteger<Hexadecimal>(text);
}

double parseDoubleLiteral(std::basic_string_view<char> text) { return parseDouble(text); }

double parseDoubleLiteral(std::basic_string_view<char16_t> text) { return parseDouble(text); }

} // namespace zt::orvex::internal
