#pragma once

#include <zt_orvex/support/Export.h>

#include <exception>
#include <string>

namespace zt::orvex::internal {

/// Thrown for text that can't be converted to a number.
///
/// Owns its texts; what its functions return lives as long as the exception. `what()` is
/// "Conversion failed converting 'TEXT' Reason: REASON".
///
///     try {
///         parseBinaryLiteral("0b102");
///     } catch (const NumberConversionError& error) {
///         error.what();  // Conversion failed converting '102' Reason: Not Specified
///     }
class ZT_ORVEX_EXPORT NumberConversionError : public std::exception {
public:
    /// Composes the message of the two texts, which aren't looked into.
    explicit NumberConversionError(std::string textToConvert,
                                   std::string reasonOfFailure = "Not Specified");
    /// Copies the three texts, for which it allocates.
    NumberConversionError(const NumberConversionError& other);
    /// Copies the three texts, for which it allocates.
    NumberConversionError& operator=(const NumberConversionError& other);
    ~NumberConversionError() override;

    /// The message, ended by a zero.
    const char* what() const noexcept override;

    /// The text that was being converted; for an integer, the digits without prefix and suffix.
    /// 16-bit text is narrowed to the low byte of each unit.
    const std::string& getText() const noexcept;
    /// Why the text can't be converted: "Not Specified" for all errors of the library.
    const std::string& getReason() const noexcept;
    /// What `what` returns, with its length.
    const std::string& getMessage() const noexcept;

private:
    std::string text;
    std::string reason;
    std::string message;
};

} // namespace zt::orvex::internal
