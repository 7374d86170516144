#pragma once

#include <zt_orvex/support/Export.h>

#include <cstdint>
#include <ostream>
#include <string>

namespace zt::orvex {

/// The operator of a `BinaryOperation`. The numbers are part of the interface.
///
/// Deliberate: the doubled form comes directly before the single one.
enum class BinaryOperator : std::uint32_t {
    Add,                ///< `+`
    Subtract,           ///< `-`
    MatrixMultiply,     ///< `*`
    MatrixRightDivide,  ///< `/`
    MatrixLeftDivide,   ///< `\`
    MatrixPower,        ///< `^`
    ElementMultiply,    ///< `.*`
    ElementRightDivide, ///< `./`
    ElementLeftDivide,  ///< `.\`
    ElementPower,       ///< `.^`
    LessOrEqual,        ///< `<=`
    Less,               ///< `<`
    GreaterOrEqual,     ///< `>=`
    Greater,            ///< `>`
    Equal,              ///< `==`
    NotEqual,           ///< `~=`
    ShortCircuitAnd,    ///< `&&`
    ElementAnd,         ///< `&`
    ShortCircuitOr,     ///< `||`
    ElementOr,          ///< `|`
    At,                 ///< `@`
};

/// The operator of a `UnaryOperation`. The numbers are part of the interface. They don't say
/// whether an operator comes before or after its operand.
enum class UnaryOperator : std::uint32_t {
    UnaryPlus,     ///< `+`
    UnaryMinus,    ///< `-`
    Apostrophe,    ///< `'`
    DotApostrophe, ///< `.'`
    Tilde,         ///< `~`
    QuestionMark,  ///< `?`
    UnaryAt,       ///< `@`
};

/// @{
/// Writes the operator's source spelling. The stream's width and fill apply; it needs no locale for
/// 16-bit characters. There is no inserter for 8-bit streams: use `toString`.
///
/// Throws std::out_of_range("invalid map<K, T> key"), before the stream is touched, for a value
/// that isn't an enumerator.
ZT_ORVEX_EXPORT std::basic_ostream<char16_t>& operator<<(std::basic_ostream<char16_t>& stream,
                                                         const BinaryOperator& op);
ZT_ORVEX_EXPORT std::basic_ostream<char16_t>& operator<<(std::basic_ostream<char16_t>& stream,
                                                         const UnaryOperator& op);
/// @}

/// @{
/// The operator's source spelling in UTF-8. Throws as the inserters do.
ZT_ORVEX_EXPORT std::string toString(BinaryOperator op);
ZT_ORVEX_EXPORT std::string toString(UnaryOperator op);
/// @}

} // namespace zt::orvex
