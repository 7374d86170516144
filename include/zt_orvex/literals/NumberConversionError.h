#pragma once

#include <zt_orvex/support/Export.h>

#include <exception>
#include <string>

namespace zt::orvex::internal {

/// Thrown for text that can't be converted to a number.
///
/// Owns its texts; what its functions return lives as long as the exception. `what()` is
/// "Conversion failed converting '<text>' Reason: <reason>".
///
///     try {
///         parseBinaryLiteral("0b102");
///     } catch (const NumberConversionError& error) {
///         error.what();  // Conversion failed converting '102' Reason: Not Specified
///     }
class ZT_ORVEX_EXPORT NumberConversionError : public std::exception {
public:
    explicit NumberConversionError(std::string textToConvert,
                                   std::string reasonOfFailure = "Not Specified");
    NumberConversionError(const NumberConversionError& other);
    NumberConversionError& operator=(const NumberConversionError& other);
    ~NumberConversionError() override;

    const char* what() const noexcept override;

    /// The text that was being converted; for an integer, the digits without prefix and suffix.
    /// 16-bit text is narrowed to the low byte of each unit.
    const std::string& getText() const noexcept;
    const std::string& getReason() const noexcept;
    const std::string& getMessage() const noexcept;

private:
    std::string text;
    std::string reason;
    std::string message;
};

} // namespace zt::orvex::internal
