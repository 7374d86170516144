#pragma once

#include <zt_orvex/support/Export.h>

#include <exception>
#include <string>

namespace zt::orvex::internal {

/// Text that could not be converted to a number.
///
/// Owns its texts. `what()` is "Conversion failed converting '<text>' Reason: <reason>", and both
/// it and the views of the texts live as long as the exception.
///
///   try {
///       parseBinaryLiteral("0b102");
///   } catch (const NumberConversionError& error) {
///       error.what();  // Conversion failed converting '102' Reason: Not Specified
///   }
class ZT_ORVEX_EXPORT NumberConversionError : public std::exception {
public:
    explicit NumberConversionError(std::string textToConvert,
                                   std::string reasonOfFailure = "Not Specified");
    NumberConversionError(const NumberConversionError& other);
    NumberConversionError& operator=(const NumberConversionError& other);
    ~NumberConversionError() override;

    const char* what() const noexcept override;

    /// The text that was being converted: for an integer its digits alone, without prefix and
    /// suffix. 16-bit text is narrowed to the low byte of each unit.
    const std::string& getText() const noexcept;
    const std::string& getReason() const noexcept;
    const std::string& getMessage() const noexcept;

private:
    std::string text;
    std::string reason;
    std::string message;
};

} // namespace zt::orvex::internal
