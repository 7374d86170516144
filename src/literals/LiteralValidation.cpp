#include <zt_orvex/literals/LiteralValidation.h>

#include "literals/LiteralGrammar.h"
#include "literals/LiteralParts.h"
#include "literals/LiteralPattern.h"
#include "literals/ThreadLocal.h"

#include <cstddef>

namespace zt::orvex::internal {

namespace {

/// The width in bits that the suffix of a well-formed literal names; 64 without a suffix.
template <class CharT>
std::size_t widthOf(std::basic_string_view<CharT> suffix) {
    if (suffix.size() == 2) return 8;
    if (!suffix.empty() && suffix[1] == CharT{'1'}) return 16;
    if (!suffix.empty() && suffix[1] == CharT{'3'}) return 32;
    return 64;
}

// Whether this thread has begun to destroy its patterns. Destructors of thread-local objects, and on
// the main thread those of static objects, run after that and may validate literals. The flag has no
// destructor itself, so they can still read it.
ZT_ORVEX_THREAD_LOCAL bool patternsAreGone = false;

struct ThreadPattern : LiteralPattern {
    using LiteralPattern::LiteralPattern;
    ~ThreadPattern() { patternsAreGone = true; }
};

// The patterns are local to the functions: each function has one for each thread, compiled by the
// thread's first call. If that call runs out of memory, the next one tries again.

template <class Radix, class CharT>
bool isWellFormedInteger(std::basic_string_view<CharT> text) {
    if (patternsAreGone) return LiteralPattern(Radix::PATTERN, Radix::PATTERN).matches(text);
    ZT_ORVEX_THREAD_LOCAL const ThreadPattern pattern(Radix::PATTERN, Radix::PATTERN);
    return pattern.matches(text);
}

template <class CharT>
bool isWellFormedDouble(std::basic_string_view<CharT> text) {
    if (patternsAreGone) {
        return LiteralPattern(NARROW_DOUBLE_PATTERN, WIDE_DOUBLE_PATTERN).matches(text);
    }
    ZT_ORVEX_THREAD_LOCAL const ThreadPattern pattern(NARROW_DOUBLE_PATTERN, WIDE_DOUBLE_PATTERN);
    return pattern.matches(text);
}

template <class Radix, class CharT>
LiteralValidationResult validateInteger(std::basic_string_view<CharT> text) {
    if (!isWellFormedInteger<Radix>(text)) return LiteralValidationResult::Malformed;
    const LiteralParts<CharT> parts = splitLiteral(text);
    return parts.digits.size() <= digitsThatFit<Radix>(widthOf(parts.suffix))
               ? LiteralValidationResult::Valid
               : LiteralValidationResult::TooManyDigits;
}

template <class CharT>
LiteralValidationResult validateDouble(std::basic_string_view<CharT> text) {
    return isWellFormedDouble(text) ? LiteralValidationResult::Valid
                                    : LiteralValidationResult::Malformed;
}

} // namespace

LiteralValidationResult validateBinaryLiteral(std::basic_string_view<char> text) {
    return validateInteger<Binary>(text);
}

LiteralValidationResult validateBinaryLiteral(std::basic_string_view<char16_t> text) {
    return validateInteger<Binary>(text);
}

LiteralValidationResult validateHexLiteral(std::basic_string_view<char> text) {
    return validateInteger<Hexadecimal>(text);
}

LiteralValidationResult validateHexLiteral(std::basic_string_view<char16_t> text) {
    return validateInteger<Hexadecimal>(text);
}

LiteralValidationResult validateDoubleLiteral(std::basic_string_view<char> text) {
    return validateDouble(text);
}

LiteralValidationResult validateDoubleLiteral(std::basic_string_view<char16_t> text) {
    return validateDouble(text);
}

} // namespace zt::orvex::internal
