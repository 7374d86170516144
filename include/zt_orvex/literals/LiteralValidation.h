#pragma once

#include <zt_orvex/support/Export.h>

#include <string_view>

namespace zt::orvex::internal {

/// What a validation found.
enum class LiteralValidationResult {
    Valid,        ///< The `parse` function of the same name can convert the text.
    Malformed,    ///< The whole text isn't a literal of this kind.
    TooManyDigits ///< A literal with more digits than the width of its suffix allows.
};

/// @addtogroup literals
/// ## Validating
///
/// The `validate` functions tell whether a text is a numeric literal of Ostrel source text.
///
///     binary        0b1011u8    0[bB][01]+([uUsS](8|16|32|64))?
///     hexadecimal   0xFFs16     0[xX][0-9A-Fa-f]+([uUsS](8|16|32|64))?
///     double        1.5d+3      digits with an optional point, or a point and digits; then
///                               optionally one of d D e E, an optional sign and digits
///
/// The whole text must match; leading signs and blanks aren't allowed. An integer may have as many
/// digits as fit the width of its suffix (8, 16, 32 or 64 bits; 64 without a suffix), signed or
/// not: 0xFFs8 is valid. Digits are counted, so leading zeros count, too. A double of any magnitude
/// is valid.
///
/// No text makes these functions throw, however long. They take time linear in the text, and give
/// the same answer for 8-bit and 16-bit text; 16-bit text is faster, since 8-bit text runs through
/// a general regular expression.
///
/// Any thread may call them. The first call of each function on a thread compiles its expression,
/// and compiling takes a lock of the regular-expression library for a moment: a process that forks
/// meanwhile can leave its child with the lock held. Only that first call, and any call for 8-bit
/// text, can throw, std::bad_alloc, and the next call then tries again.
///
/// Destructors of static and thread-local objects may call them, too. Once the thread's expressions
/// have been destroyed, each call compiles its own.
///
///     if (validateHexLiteral(text) == LiteralValidationResult::Valid)
///         value = parseHexLiteral(text);

/// @{
/// Whether the text is a binary literal: `Valid`, `Malformed` or `TooManyDigits`. Linear in the
/// text.
ZT_ORVEX_EXPORT LiteralValidationResult validateBinaryLiteral(std::basic_string_view<char> text);
ZT_ORVEX_EXPORT LiteralValidationResult
validateBinaryLiteral(std::basic_string_view<char16_t> text);
/// @}

/// @{
/// Whether the text is a hexadecimal literal: `Valid`, `Malformed` or `TooManyDigits`. Linear in
/// the text.
ZT_ORVEX_EXPORT LiteralValidationResult validateHexLiteral(std::basic_string_view<char> text);
ZT_ORVEX_EXPORT LiteralValidationResult validateHexLiteral(std::basic_string_view<char16_t> text);
/// @}

/// @{
/// Whether the text is the literal of a double: `Valid` or `Malformed`, since any magnitude is
/// valid. Linear in the text.
ZT_ORVEX_EXPORT LiteralValidationResult validateDoubleLiteral(std::basic_string_view<char> text);
ZT_ORVEX_EXPORT LiteralValidationResult
validateDoubleLiteral(std::basic_string_view<char16_t> text);
/// @}

} // namespace zt::orvex::internal
