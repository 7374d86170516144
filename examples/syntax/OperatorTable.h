#pragma once

#include "syntax/Token.h"

#include <zt_orvex/ast/Operators.h>

namespace ostrel {

/// Precedence levels; a higher level binds tighter. All binary operators group to the left.
namespace level {
constexpr int LOOSEST = 1;
constexpr int COLON = 6;
constexpr int PREFIX = 9;
} // namespace level

struct BinaryRow {
    TokenKind token;
    int level;
    zt::orvex::BinaryOperator op; ///< Unused for `:`, which has a node kind of its own.
};

constexpr BinaryRow BINARY_OPERATORS[] = {
    {TokenKind::OrOr, 1, zt::orvex::BinaryOperator::ShortCircuitOr},
    {TokenKind::AndAnd, 2, zt::orvex::BinaryOperator::ShortCircuitAnd},
    {TokenKind::Or, 3, zt::orvex::BinaryOperator::ElementOr},
    {TokenKind::And, 4, zt::orvex::BinaryOperator::ElementAnd},
    {TokenKind::Less, 5, zt::orvex::BinaryOperator::Less},
    {TokenKind::LessEqual, 5, zt::orvex::BinaryOperator::LessOrEqual},
    {TokenKind::Greater, 5, zt::orvex::BinaryOperator::Greater},
    {TokenKind::GreaterEqual, 5, zt::orvex::BinaryOperator::GreaterOrEqual},
    {TokenKind::EqualEqual, 5, zt::orvex::BinaryOperator::Equal},
    {TokenKind::TildeEqual, 5, zt::orvex::BinaryOperator::NotEqual},
    {TokenKind::Colon, level::COLON, {}},
    {TokenKind::Plus, 7, zt::orvex::BinaryOperator::Add},
    {TokenKind::Minus, 7, zt::orvex::BinaryOperator::Subtract},
    {TokenKind::Star, 8, zt::orvex::BinaryOperator::MatrixMultiply},
    {TokenKind::Slash, 8, zt::orvex::BinaryOperator::MatrixRightDivide},
    {TokenKind::Backslash, 8, zt::orvex::BinaryOperator::MatrixLeftDivide},
    {TokenKind::DotStar, 8, zt::orvex::BinaryOperator::ElementMultiply},
    {TokenKind::DotSlash, 8, zt::orvex::BinaryOperator::ElementRightDivide},
    {TokenKind::DotBackslash, 8, zt::orvex::BinaryOperator::ElementLeftDivide},
};

/// Level 10.
constexpr BinaryRow POWER_OPERATORS[] = {
    {TokenKind::Caret, 10, zt::orvex::BinaryOperator::MatrixPower},
    {TokenKind::DotCaret, 10, zt::orvex::BinaryOperator::ElementPower},
};

struct UnaryRow {
    TokenKind token;
    zt::orvex::UnaryOperator op;
};

/// Level 9, and after a power operator.
constexpr UnaryRow PREFIX_OPERATORS[] = {
    {TokenKind::Plus, zt::orvex::UnaryOperator::UnaryPlus},
    {TokenKind::Minus, zt::orvex::UnaryOperator::UnaryMinus},
    {TokenKind::Tilde, zt::orvex::UnaryOperator::Tilde},
};

/// Level 10.
constexpr UnaryRow TRANSPOSE_OPERATORS[] = {
    {TokenKind::Apostrophe, zt::orvex::UnaryOperator::Apostrophe},
    {TokenKind::DotApostrophe, zt::orvex::UnaryOperator::DotApostrophe},
};

/// The row of `token` in one of the tables; null if there is none.
template <typename Table>
constexpr auto findRow(const Table& table, TokenKind token) -> decltype(&table[0]) {
    for (const auto& row : table) {
        if (row.token == token) return &row;
    }
    return nullptr;
}

} // namespace ostrel
